// The window of a program of ours: around one component, as large as that is, with the desktop's own title bar.
#pragma once

#include "BuildNamespace.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

// Closing it ends the program. Main thread; only where there is a display.
class ProgramWindow final : public juce::DocumentWindow {
public:
    // Whether the user can make it larger and smaller, and the content with it.
    enum class Resizing : bool { no, yes };

    // On screen when this returns. The content, with the scale it is to have, is borrowed and outlives the window.
    ProgramWindow(const juce::String& title, juce::Component& content, Resizing resizing = Resizing::no);

    void closeButtonPressed() override { juce::JUCEApplicationBase::quit(); }
};

} // namespace QVM_NAMESPACE
