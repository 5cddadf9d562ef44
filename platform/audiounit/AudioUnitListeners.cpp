#include "platform/audiounit/AudioUnitListeners.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <variant>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

struct Subscription {
    AudioUnitEvent event;
    void* object = nullptr;
    bool operator==(const Subscription&) const = default;
};

struct Delivery {
    Subscription to;
    float value = 0;
};

} // namespace

// Everything but the constants below is guarded by the registry's mutex.
struct AUListener {
    std::variant<AUParameterListenerProc, AUEventListenerProc> proc;
    void* userData = nullptr;
    RunLoop* runLoop = nullptr;
    double interval = 0; // seconds
    AUEventDelivery delivery = AUEventDelivery::queued;

    bool live = true;
    std::vector<Subscription> subscriptions;
    std::deque<Delivery> queue;
    RunLoop::CallId pending = 0; // 0: none
    double lastRound = -1e300;   // seconds on the run loop's clock
};

namespace {

using ListenerPtr = std::shared_ptr<AUListener>;

class Registry {
public:
    static Registry& shared() {
        // Never destroyed: a unit with static life may still end its registrations after every static is gone.
        static Registry& registry = *new Registry;
        return registry;
    }

    OSStatus create(ListenerPtr listener, AUListener** out) {
        if (!out || !listener->runLoop || !(listener->interval >= 0)) return kAudio_ParamError;
        const std::lock_guard lock(mutex_);
        *out = listener.get();
        listeners_.push_back(std::move(listener));
        return noErr;
    }

    OSStatus dispose(AUListener* handle) {
        const std::lock_guard lock(mutex_);
        const auto at = position(handle);
        if (at == listeners_.end()) return kAudio_ParamError;
        handle->live = false;
        handle->queue.clear();
        if (handle->pending) handle->runLoop->cancel(handle->pending);
        listeners_.erase(at);
        return noErr;
    }

    OSStatus subscribe(AUListener* handle, const Subscription& wanted) {
        return edit(handle, wanted, [&](std::vector<Subscription>& list) {
            if (std::find(list.begin(), list.end(), wanted) == list.end()) list.push_back(wanted);
        });
    }

    OSStatus unsubscribe(AUListener* handle, const Subscription& unwanted) {
        return edit(handle, unwanted, [&](std::vector<Subscription>& list) {
            std::erase(list, unwanted);
            std::erase_if(handle->queue, [&](const Delivery& d) { return d.to == unwanted; });
        });
    }

    void send(const AUListener* sender, const AudioUnitEvent& event, float value) {
        std::vector<ListenerPtr> immediate;
        {
            const std::lock_guard lock(mutex_);
            for (const ListenerPtr& listener : listeners_) {
                if (listener.get() == sender || !enqueue(*listener, event, value)) continue;
                if (listener->delivery == AUEventDelivery::immediate && listener->runLoop->isMainThread()) {
                    immediate.push_back(listener);
                } else {
                    schedule(listener, event.mEventType);
                }
            }
        }
        for (const ListenerPtr& listener : immediate)
            drain(listener);
    }

    void forget(const AudioUnitInstance* unit) {
        const std::lock_guard lock(mutex_);
        for (const ListenerPtr& listener : listeners_) {
            std::erase_if(listener->subscriptions,
                          [&](const Subscription& s) { return s.event.mArgument.mAudioUnit == unit; });
            std::erase_if(listener->queue, [&](const Delivery& d) { return d.to.event.mArgument.mAudioUnit == unit; });
        }
    }

private:
    std::vector<ListenerPtr>::iterator position(const AUListener* handle) {
        return std::find_if(listeners_.begin(), listeners_.end(), [&](const auto& l) { return l.get() == handle; });
    }

    template <class Change>
    OSStatus edit(AUListener* handle, const Subscription& subscription, Change change) {
        if (!subscription.event.mArgument.mAudioUnit) return kAudio_ParamError;
        const std::lock_guard lock(mutex_);
        if (position(handle) == listeners_.end()) return kAudio_ParamError;
        change(handle->subscriptions);
        return noErr;
    }

    // Whether anything was put into the listener's queue, or a waiting value was renewed.
    static bool enqueue(AUListener& listener, const AudioUnitEvent& event, float value) {
        bool any = false;
        for (const Subscription& to : listener.subscriptions) {
            if (to.event != event) continue;
            any = true;
            if (Delivery* waiting = collapsible(listener.queue, to)) {
                waiting->value = value;
            } else {
                listener.queue.push_back({to, value});
            }
        }
        return any;
    }

    // The waiting value that a newer one replaces: the last event of the same parameter, if it is a value.
    static Delivery* collapsible(std::deque<Delivery>& queue, const Subscription& to) {
        if (to.event.mEventType != kAudioUnitEvent_ParameterValueChange) return nullptr;
        for (auto at = queue.rbegin(); at != queue.rend(); ++at) {
            if (at->to.event.mArgument != to.event.mArgument || at->to.object != to.object) continue;
            return at->to.event.mEventType == kAudioUnitEvent_ParameterValueChange ? &*at : nullptr;
        }
        return nullptr;
    }

    void schedule(const ListenerPtr& listener, AudioUnitEventType type) {
        const bool gesture = type != kAudioUnitEvent_ParameterValueChange;
        if (listener->pending && !gesture) return;
        if (listener->pending) listener->runLoop->cancel(listener->pending);
        const double wait = listener->lastRound + listener->interval - listener->runLoop->now();
        listener->pending = listener->runLoop->schedule(gesture ? 0 : std::max(wait, 0.0), [this, listener] {
            {
                const std::lock_guard lock(mutex_);
                listener->pending = 0;
            }
            drain(listener);
        });
    }

    // One at a time and without the lock: a callback may send, add, remove and dispose. What it sends to the same
    // listener at once is delivered by the inner call, after what waits ahead.
    void drain(const ListenerPtr& listener) {
        for (;;) {
            Delivery next;
            {
                const std::lock_guard lock(mutex_);
                if (!listener->live || listener->queue.empty()) return;
                next = listener->queue.front();
                listener->queue.pop_front();
                listener->lastRound = listener->runLoop->now();
            }
            if (const auto* proc = std::get_if<AUParameterListenerProc>(&listener->proc)) {
                (*proc)(listener->userData, next.to.object, &next.to.event.mArgument, next.value);
            } else {
                std::get<AUEventListenerProc>(listener->proc)(listener->userData, next.to.object, &next.to.event,
                                                              next.value);
            }
        }
    }

    std::mutex mutex_;
    std::vector<ListenerPtr> listeners_; // guarded by mutex_
};

Subscription valueSubscription(void* object, const AudioUnitParameter& parameter) {
    return {{kAudioUnitEvent_ParameterValueChange, parameter}, object};
}

// Nothing where the unit has no such parameter.
std::optional<float> heldValue(const AudioUnitParameter& p) {
    float value = 0;
    if (AudioUnitGetParameter(p.mAudioUnit, p.mParameterID, p.mScope, p.mElement, &value) != noErr) return {};
    return value;
}

OSStatus createListener(decltype(AUListener::proc) proc, bool callable, void* userData, RunLoop* runLoop,
                        float interval, AUEventDelivery delivery, AUListener** outListener) {
    if (!callable) return kAudio_ParamError;
    auto listener = std::make_shared<AUListener>();
    listener->proc = proc;
    listener->userData = userData;
    listener->runLoop = runLoop;
    listener->interval = static_cast<double>(interval);
    listener->delivery = delivery;
    return Registry::shared().create(std::move(listener), outListener);
}

} // namespace

OSStatus AUListenerCreate(AUParameterListenerProc proc, void* userData, RunLoop* runLoop, float notificationInterval,
                          AUParameterListenerRef* outListener) {
    return createListener(proc, proc != nullptr, userData, runLoop, notificationInterval, AUEventDelivery::queued,
                          outListener);
}

OSStatus AUEventListenerCreate(AUEventListenerProc proc, void* userData, RunLoop* runLoop, float notificationInterval,
                               AUEventDelivery delivery, AUEventListenerRef* outListener) {
    return createListener(proc, proc != nullptr, userData, runLoop, notificationInterval, delivery, outListener);
}

OSStatus AUListenerDispose(AUListener* listener) {
    return Registry::shared().dispose(listener);
}

OSStatus AUListenerAddParameter(AUParameterListenerRef listener, void* object, const AudioUnitParameter* parameter) {
    if (!parameter) return kAudio_ParamError;
    return Registry::shared().subscribe(listener, valueSubscription(object, *parameter));
}

OSStatus AUListenerRemoveParameter(AUParameterListenerRef listener, void* object, const AudioUnitParameter* parameter) {
    if (!parameter) return kAudio_ParamError;
    return Registry::shared().unsubscribe(listener, valueSubscription(object, *parameter));
}

OSStatus AUEventListenerAddEventType(AUEventListenerRef listener, void* object, const AudioUnitEvent* event) {
    if (!event) return kAudio_ParamError;
    return Registry::shared().subscribe(listener, {*event, object});
}

OSStatus AUEventListenerRemoveEventType(AUEventListenerRef listener, void* object, const AudioUnitEvent* event) {
    if (!event) return kAudio_ParamError;
    return Registry::shared().unsubscribe(listener, {*event, object});
}

OSStatus AUParameterSet(AUListener* sendingListener, void*, const AudioUnitParameter* parameter,
                        AudioUnitParameterValue value, std::uint32_t bufferOffsetInFrames) {
    if (!parameter) return kAudio_ParamError;
    const std::optional<float> before = heldValue(*parameter);
    const OSStatus status = AudioUnitSetParameter(parameter->mAudioUnit, parameter->mParameterID, parameter->mScope,
                                                  parameter->mElement, value, bufferOffsetInFrames);
    if (status != noErr) return status;
    if (const std::optional<float> now = heldValue(*parameter); now && now != before)
        Registry::shared().send(sendingListener, {kQVMEvent_ParameterBecameAnother, *parameter}, *now);
    // Listeners learn what the unit made of it.
    const AudioUnitEvent event{kAudioUnitEvent_ParameterValueChange, *parameter};
    return AUEventListenerNotify(sendingListener, nullptr, &event);
}

OSStatus AUEventListenerNotify(AUListener* sendingListener, void*, const AudioUnitEvent* event) {
    if (!event) return kAudio_ParamError;
    if (event->mEventType > kAudioUnitEvent_EndParameterChangeGesture) return kAudio_ParamError;
    const AudioUnitParameter& p = event->mArgument;
    float value = 0;
    if (const OSStatus status = AudioUnitGetParameter(p.mAudioUnit, p.mParameterID, p.mScope, p.mElement, &value)) {
        return status;
    }
    Registry::shared().send(sendingListener, *event, value);
    return noErr;
}

void AUListenersForgetUnit(const AudioUnitInstance* unit) {
    Registry::shared().forget(unit);
}

} // namespace QVM_NAMESPACE
