// A member object that holds at most one pending call on the main run loop.
#pragma once

#include "platform/runloop/RunLoop.h"

namespace QVM_NAMESPACE {

class DelayedCall {
public:
    DelayedCall() = default;
    ~DelayedCall() { cancel(); }
    DelayedCall(const DelayedCall&) = delete;
    DelayedCall& operator=(const DelayedCall&) = delete;

    // Cancels the pending call, then runs `fn` on the main thread after `seconds`. Main thread.
    void schedule(double seconds, RunLoop::Function fn);
    // Nothing when none is pending. Main thread.
    void cancel();
    bool isPending() const { return id_ != 0; }

private:
    RunLoop::CallId id_ = 0; // 0: none
};

} // namespace QVM_NAMESPACE
