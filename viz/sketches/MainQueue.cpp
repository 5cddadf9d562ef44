#include "viz/sketches/MainQueue.h"

#include "platform/runloop/RunLoop.h"

#include <future>
#include <memory>

namespace QVM_NAMESPACE {

void runOnMainQueueWithoutDeadlocking(const std::function<void()>& block) {
    RunLoop& mainLoop = RunLoop::main();
    if (mainLoop.isMainThread()) return block();
    const auto ran = std::make_shared<std::promise<void>>(); // shared: this side may be gone before the other is done
    mainLoop.post([&block, ran] {
        block();
        ran->set_value();
    });
    ran->get_future().wait();
}

} // namespace QVM_NAMESPACE
