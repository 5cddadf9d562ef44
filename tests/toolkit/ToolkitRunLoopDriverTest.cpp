#include "toolkit/ToolkitRunLoopDriver.h"

#include "platform/runloop/DelayedCall.h"
#include "toolkit/FakePeer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

class ToolkitRunLoopDriverTest : public ::testing::Test {
protected:
    // Serves the message thread until `done` or for two seconds; whether it was done.
    template <class Done>
    static bool waitFor(const Done& done) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        while (!done() && std::chrono::steady_clock::now() < end) {
            juce::Timer::callPendingTimersSynchronously();
            runPostedMessages();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return done();
    }
    ToolkitRunLoopDriver driver;
};

TEST_F(ToolkitRunLoopDriverTest, PostedWorkRunsOnTheMessageThreadAndNotInPlace) {
    bool ran = false;
    RunLoop::main().post([&] { ran = juce::MessageManager::getInstance()->isThisTheMessageThread(); });
    EXPECT_FALSE(ran);
    EXPECT_TRUE(waitFor([&] { return ran; }));
}

TEST_F(ToolkitRunLoopDriverTest, WorkFromAnotherThreadRunsOnTheMessageThread) {
    std::atomic<bool> ran = false;
    std::thread([&] {
        RunLoop::main().post([&] { ran = juce::MessageManager::getInstance()->isThisTheMessageThread(); });
    }).join();
    EXPECT_TRUE(waitFor([&] { return ran.load(); }));
}

TEST_F(ToolkitRunLoopDriverTest, DelayedCallsComeInOrderAndNotBeforeTheirTime) {
    std::vector<int> order;
    const double start = RunLoop::main().now();
    double late = 0;
    DelayedCall a, b, c;
    a.schedule(0.3, [&] {
        order.push_back(3);
        late = RunLoop::main().now() - start;
    });
    b.schedule(0.1, [&] { order.push_back(2); });
    c.schedule(0, [&] { order.push_back(1); });
    EXPECT_TRUE(waitFor([&] { return order.size() == 3; }));
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
    EXPECT_GE(late, 0.3);
}

TEST_F(ToolkitRunLoopDriverTest, CallThatSchedulesAgainGoesOn) {
    int count = 0;
    DelayedCall call;
    std::function<void()> again = [&] {
        if (++count < 5) call.schedule(0.002, again);
    };
    call.schedule(0, again);
    EXPECT_TRUE(waitFor([&] { return count == 5; }));
}

TEST(ToolkitRunLoopDriver, WorkThatWaitedForADriverRunsOnceThereIsOne) {
    bool ran = false;
    RunLoop::main().post([&] { ran = true; });
    runPostedMessages();
    EXPECT_FALSE(ran);
    const ToolkitRunLoopDriver driver;
    runPostedMessages();
    EXPECT_TRUE(ran);
}

TEST(ToolkitRunLoopDriver, GoesAwayWithWorkPending) {
    bool ran = false;
    DelayedCall call;
    {
        const ToolkitRunLoopDriver driver;
        call.schedule(0, [&] { ran = true; });
    }
    runPostedMessages();
    EXPECT_FALSE(ran);
}

} // namespace
} // namespace QVM_NAMESPACE
