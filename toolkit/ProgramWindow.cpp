#include "toolkit/ProgramWindow.h"

#include "toolkit/ContentHolder.h"

namespace QVM_NAMESPACE {

ProgramWindow::ProgramWindow(const juce::String& title, juce::Component& content)
    : juce::DocumentWindow(title, juce::Colours::black, closeButton | minimiseButton, false) {
    // It comes to the desktop once it has its size. There, a window manager that is still busy with a first size
    // answers late, and the toolkit takes its answer for the size that the window is to have.
    setUsingNativeTitleBar(true);
    setWantsKeyboardFocus(false); // what is in it has the keyboard from the start
    setContentOwned(new ContentHolder(content), true);
    setResizable(false, false);
    centreWithSize(getWidth(), getHeight());
    addToDesktop();
    setVisible(true);
}

} // namespace QVM_NAMESPACE
