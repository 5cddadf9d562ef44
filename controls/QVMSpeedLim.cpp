#include "controls/QVMSpeedLim.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

// The last call of each selector on each target, whichever limiter has scheduled it.
struct QVMSpeedLim::LastCalls {
    std::mutex mutex; // guards what follows; taken inside a limiter's own lock
    std::map<Key, RunLoop::CallId> byKey;
};

QVMSpeedLim::LastCalls& QVMSpeedLim::lastCalls() {
    static auto& calls = *new LastCalls; // never destroyed: limiters of other statics may outlive any order
    return calls;
}

QVMSpeedLim::~QVMSpeedLim() {
    const std::scoped_lock lock(mutex_, lastCalls().mutex);
    for (const auto& [key, call] : pending_) {
        RunLoop::main().cancel(call);
        const auto last = lastCalls().byKey.find(key);
        if (last != lastCalls().byKey.end() && last->second == call) lastCalls().byKey.erase(last);
    }
}

bool QVMSpeedLim::trailing() const {
    const std::scoped_lock lock(mutex_);
    return trailing_;
}

void QVMSpeedLim::setTrailing(bool trailing) {
    const std::scoped_lock lock(mutex_);
    trailing_ = trailing;
}

void QVMSpeedLim::fire(double limit, double delay, const Key& key, RunLoop::Function call) {
    const std::scoped_lock lock(mutex_);
    const double now = RunLoop::main().now();
    if (airborne_ && *airborne_ < now) last_ = *airborne_; // the trailing call has been made meanwhile
    const double elapsed = now - last_;
    if (elapsed >= limit) {
        last_ = now;
        airborne_.reset();
        perform(delay, key, std::move(call));
    } else if (trailing_) {
        const float wait = std::max(static_cast<float>(limit - elapsed), static_cast<float>(delay));
        perform(wait, key, std::move(call));
        airborne_ = now + wait;
    }
}

void QVMSpeedLim::perform(double delay, const Key& key, RunLoop::Function call) {
    const std::scoped_lock lock(lastCalls().mutex);
    RunLoop::CallId& last = lastCalls().byKey[key];
    RunLoop::main().cancel(last);
    last = pending_[key] = RunLoop::main().schedule(delay, std::move(call));
}

} // namespace QVM_NAMESPACE
