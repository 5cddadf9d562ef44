// The tooltip of the view that a key has led to, for whoever has no pointer to rest on it.
#pragma once

#include "platform/runloop/DelayedCall.h"
#include "platform/view/Window.h"
#include "toolkit/ToolkitRuntime.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

namespace QVM_NAMESPACE {

// It shows once, when no key and no pointer was used for a while after a key moved the window's keyboard view. It takes
// no clicks. Main thread.
class KeyboardToolTip {
public:
    static constexpr double restSeconds = 1.5;

    // All are borrowed and outlive it; it stands in `parent`, which shows the window.
    KeyboardToolTip(juce::Component& parent, Window& window, ToolkitRuntime& runtime)
        : parent_(parent), window_(window), runtime_(runtime) {}

    // Around what the window does with a key.
    void keyWillArrive();
    void keyDidArrive();
    // Until a key leads to another view.
    void hide();

private:
    void show();

    juce::Component& parent_;
    Window& window_;
    ToolkitRuntime& runtime_;
    const View* viewBefore_ = nullptr; // to compare with, never followed
    DelayedCall rest_;
    std::unique_ptr<juce::Component> tip_; // while it is to be seen
};

} // namespace QVM_NAMESPACE
