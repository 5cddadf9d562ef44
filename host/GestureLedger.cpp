#include "host/GestureLedger.h"

#include "platform/view/Window.h"

#include <utility>

namespace QVM_NAMESPACE {

GestureLedger::GestureLedger(AudioUnitInstance& unit, GestureListener& host) : host_(host) {
    AUEventListenerCreate(&unitEvent, this, &RunLoop::main(), 0, AUEventDelivery::immediate, &listener_);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        for (const auto type : {kAudioUnitEvent_ParameterValueChange, kAudioUnitEvent_BeginParameterChangeGesture,
                                kAudioUnitEvent_EndParameterChangeGesture, kQVMEvent_ParameterBecameAnother}) {
            const AudioUnitEvent event{type, {&unit, pid, kAudioUnitScope_Global, 0}};
            AUEventListenerAddEventType(listener_, nullptr, &event);
        }
    }
}

GestureLedger::~GestureLedger() {
    AUListenerDispose(listener_);
}

ObservationToken GestureLedger::follow(const Window& window) {
    window_ = &window;
    pressEnd_ = NotificationCenter::defaultCenter().observe(Window::didEndPressNotification, window_,
                                                            [this](const Notification&) { endAll(); });
    endAllUnlessPressed();
    return ObservationToken([this, &window] { unfollow(window); });
}

void GestureLedger::unfollow(const Window& window) {
    if (window_ != &window) return; // another is followed by now
    pressEnd_.reset();
    window_ = nullptr;
    endAll();
}

void GestureLedger::unitEvent(void* self, void*, const AudioUnitEvent* event, float) {
    static_cast<GestureLedger*>(self)->report(event->mEventType, event->mArgument.mParameterID);
}

void GestureLedger::report(AudioUnitEventType type, std::uint32_t pid) {
    switch (type) {
    case kAudioUnitEvent_BeginParameterChangeGesture:
        return begin(pid);
    case kAudioUnitEvent_ParameterValueChange:
        begin(pid);
        return host_.valueChanged(pid);
    case kQVMEvent_ParameterBecameAnother:
        begin(pid);
        isEdited_ = true;
        return;
    case kAudioUnitEvent_EndParameterChangeGesture:
        return end(pid);
    }
}

void GestureLedger::begin(std::uint32_t pid) {
    if (isOpen_[pid]) return;
    isOpen_.set(pid);
    host_.gestureBegan(pid);
    turnEnd_.schedule(0, [this] { endAllUnlessPressed(); });
}

void GestureLedger::end(std::uint32_t pid) {
    if (!isOpen_[pid]) return;
    isOpen_.reset(pid);
    host_.gestureEnded(pid);
    if (isOpen_.none() && std::exchange(isEdited_, false)) host_.editEnded();
}

void GestureLedger::endAll() {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        end(pid);
}

void GestureLedger::endAllUnlessPressed() {
    if (!window_ || !window_->mouseCapture()) endAll();
}

} // namespace QVM_NAMESPACE
