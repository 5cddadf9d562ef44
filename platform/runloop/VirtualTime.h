// A clock that stands still until it is told to move: the main run loop in virtual time, for tests and screenshots.
#pragma once

#include "platform/runloop/RunLoop.h"

#include <atomic>

namespace QVM_NAMESPACE {

// While it lives the main run loop reads this clock. Main thread; at most one at a time.
class VirtualTime final : public Clock {
public:
    explicit VirtualTime(double start = 0);
    ~VirtualTime() override;

    double now() const override { return now_; }
    // Moves time on by `seconds` and runs what falls due on the way, each call at its own due time.
    void advance(double seconds);
    // Runs what is due now, until nothing is.
    void settle();

private:
    std::atomic<double> now_{0}; // written by the main thread, read by any
};

} // namespace QVM_NAMESPACE
