#include "viz/sketches/MainQueue.h"

#include "platform/runloop/VirtualTime.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

TEST(MainQueue, RunsAtOnceOnTheMainThread) {
    VirtualTime time;
    RunLoop::main().becomeMainThread();
    bool ran = false;
    runOnMainQueueWithoutDeadlocking([&] { ran = true; });
    EXPECT_TRUE(ran);
}

TEST(MainQueue, WaitsForTheMainThreadFromAnyOther) {
    VirtualTime time;
    RunLoop::main().becomeMainThread();
    const std::thread::id mainThread = std::this_thread::get_id();
    std::atomic<bool> isBack = false;
    std::thread::id ranOn;
    std::thread other([&] {
        runOnMainQueueWithoutDeadlocking([&] {
            EXPECT_FALSE(isBack);
            ranOn = std::this_thread::get_id();
        });
        isBack = true;
    });
    while (!isBack)
        RunLoop::main().runDue();
    other.join();
    EXPECT_EQ(ranOn, mainThread);
}

} // namespace
} // namespace QVM_NAMESPACE
