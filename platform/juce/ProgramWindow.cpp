#include "platform/juce/ProgramWindow.h"

#include "platform/juce/ContentHolder.h"

namespace QVM_NAMESPACE {

ProgramWindow::ProgramWindow(const juce::String& title, juce::Component& content)
    : juce::DocumentWindow(title, juce::Colours::black, closeButton | minimiseButton) {
    setUsingNativeTitleBar(true);
    setWantsKeyboardFocus(false); // what is in it has the keyboard from the start
    setContentOwned(new ContentHolder(content), true);
    setResizable(false, false);
    centreWithSize(getWidth(), getHeight());
    setVisible(true);
}

} // namespace QVM_NAMESPACE
