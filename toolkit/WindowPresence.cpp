#include "toolkit/WindowPresence.h"

#include "platform/runloop/RunLoop.h"
#include "toolkit/KeyboardFocus.h"
#include "toolkit/WindowMapState.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double usualHz = 60; // of a display that does not say: a virtual one, or a far one

} // namespace

bool WindowPresence::look() {
    lastLook_ = RunLoop::main().now();
    if (!component_.getPeer()) {
        window_.setVisible(!wasOnScreen_);
        return false;
    }
    // On its way to the screen it is about to be seen, and opening must not wait for the server's answers.
    if (!std::exchange(wasOnScreen_, true)) return false;
    window_.setVisible(component_.isShowing() && isWindowViewable(connection_, nativeWindowOf(component_)));
    adoptLinkRate();
    return true;
}

void WindowPresence::adoptLinkRate() {
    const auto* const display =
        juce::Desktop::getInstance().getDisplays().getDisplayForRect(component_.getScreenBounds());
    const double hertz = display ? display->verticalFrequencyHz.value_or(0) : 0;
    linkRequest_.setHertz(hertz > 0 ? hertz : usualHz);
}

} // namespace QVM_NAMESPACE
