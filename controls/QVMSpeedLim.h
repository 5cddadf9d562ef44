// A throttle: at most one call per interval, and the last call of a burst is made late rather than lost.
//
// Fire it from any thread; the call itself is made on the main run loop, never in place. A limiter's own state is
// guarded by one lock for the whole of a fire; what limiters know of each other's calls has another, taken inside it. A
// limiter must not outlive what it calls: destroying it cancels what is still to come.
#pragma once

#include "platform/runloop/RunLoop.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <limits>
#include <map>
#include <optional>

namespace QVM_NAMESPACE {

class QVMSpeedLim {
public:
    QVMSpeedLim() = default;
    ~QVMSpeedLim();
    QVMSpeedLim(const QVMSpeedLim&) = delete;
    QVMSpeedLim& operator=(const QVMSpeedLim&) = delete;

    // Whether calls that come too early are made up for by one at the end of the interval. Any thread.
    bool trailing() const;
    void setTrailing(bool trailing);

    // Has `(target.*selector)()` called, but not within `limit` seconds of the last call, and no sooner than `delay`
    // seconds from now. A pending call of the same selector on the same target is replaced, whichever limiter it came
    // from. Any thread.
    template <class Target>
    void fireWithLimitAndDelayTargetSelector(double limit, double delay, Target& target, void (Target::*selector)()) {
        fire(limit, delay, keyFor(&target, selector), [&target, selector] { (target.*selector)(); });
    }
    // The same at the next pass of the run loop.
    template <class Target>
    void fireWithLimitTargetSelector(double limit, Target& target, void (Target::*selector)()) {
        fireWithLimitAndDelayTargetSelector(limit, 0, target, selector);
    }

private:
    // What is called: an object and the bytes of a pointer to its member function.
    struct Key {
        const void* target = nullptr;
        std::array<std::byte, sizeof(void (QVMSpeedLim::*)())> selector{};
        auto operator<=>(const Key&) const = default; // NOLINT(modernize-use-nullptr): the compiler wrote the 0
    };
    template <class Target>
    static Key keyFor(const void* target, void (Target::*selector)()) {
        static_assert(sizeof selector == sizeof(Key::selector));
        Key key{target, {}};
        std::memcpy(key.selector.data(), &selector, sizeof selector);
        return key;
    }
    struct LastCalls;
    static LastCalls& lastCalls();
    void fire(double limit, double delay, const Key& key, RunLoop::Function call);
    void perform(double delay, const Key& key, RunLoop::Function call);

    mutable std::mutex mutex_; // guards everything below
    bool trailing_ = true;
    double last_ = -std::numeric_limits<double>::infinity(); // run loop seconds; so the first fire always goes out
    std::optional<double> airborne_;                         // when the trailing call is due
    std::map<Key, RunLoop::CallId> pending_;                 // own ones; calls made already are no harm
};

} // namespace QVM_NAMESPACE
