#include "toolkit/ProgramWindow.h"

#include "toolkit/ContentHolder.h"

namespace QVM_NAMESPACE {

namespace {

int buttons(ProgramWindow::Resizing resizing) {
    constexpr int plain = juce::DocumentWindow::closeButton | juce::DocumentWindow::minimiseButton;
    return resizing == ProgramWindow::Resizing::yes ? plain | juce::DocumentWindow::maximiseButton : plain;
}

} // namespace

ProgramWindow::ProgramWindow(const juce::String& title, juce::Component& content, Resizing resizing)
    : juce::DocumentWindow(title, juce::Colours::black, buttons(resizing), false) {
    // It comes to the desktop once it has its size. There, a window manager that is still busy with a first size
    // answers late, and the toolkit takes its answer for the size that the window is to have.
    setUsingNativeTitleBar(true);
    setWantsKeyboardFocus(false); // what is in it has the keyboard from the start
    setContentOwned(new ContentHolder(content), true);
    setResizable(resizing == Resizing::yes, false);
    centreWithSize(getWidth(), getHeight());
    addToDesktop();
    setVisible(true);
}

} // namespace QVM_NAMESPACE
