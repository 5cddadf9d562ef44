#include "platform/runloop/DelayedCall.h"

#include <utility>

namespace QVM_NAMESPACE {

void DelayedCall::schedule(double seconds, RunLoop::Function fn) {
    cancel();
    id_ = RunLoop::main().schedule(seconds, [this, call = std::move(fn)] {
        id_ = 0; // first, so that the call may schedule again or destroy this object
        call();
    });
}

void DelayedCall::cancel() {
    if (id_ != 0) RunLoop::main().cancel(id_);
    id_ = 0;
}

} // namespace QVM_NAMESPACE
