#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

TEST(VirtualTimeTest, StandsStillUntilToldToMove) {
    VirtualTime time(50);
    EXPECT_EQ(RunLoop::main().now(), 50);
    EXPECT_EQ(RunLoop::main().now(), 50);
    time.advance(1.5);
    EXPECT_EQ(RunLoop::main().now(), 51.5);
    EXPECT_TRUE(RunLoop::main().isMainThread());
}

TEST(VirtualTimeTest, EachCallRunsAtItsOwnDueTime) {
    VirtualTime time;
    std::vector<double> at;
    const auto note = [&] { at.push_back(RunLoop::main().now()); };
    RunLoop::main().schedule(0.5, note);
    RunLoop::main().schedule(0.25, [&] {
        note();
        RunLoop::main().schedule(0.125, note);
        RunLoop::main().schedule(10, note);
    });
    time.advance(1);
    EXPECT_THAT(at, ElementsAre(0.25, 0.375, 0.5));
    EXPECT_EQ(time.now(), 1);
    time.advance(10);
    EXPECT_EQ(at.back(), 10.25);
}

TEST(VirtualTimeTest, SettleRunsChainsOfImmediateCallsButNotTime) {
    VirtualTime time;
    int depth = 0;
    std::function<void()> again = [&] {
        if (++depth < 5) RunLoop::main().post(again);
    };
    RunLoop::main().post(again);
    time.settle();
    EXPECT_EQ(depth, 5);
    EXPECT_EQ(time.now(), 0);
}

TEST(VirtualTimeTest, DecimalStepsReachADecimalDueTime) {
    VirtualTime time(0.7);
    bool ran = false;
    RunLoop::main().schedule(0.3, [&] { ran = true; });
    for (int i = 0; i < 3; ++i)
        time.advance(0.1);
    EXPECT_TRUE(ran);
}

TEST(VirtualTimeTest, TheSteadyClockIsBackAfterwards) {
    { const VirtualTime time(-1e9); }
    EXPECT_GT(RunLoop::main().now(), -1e8);
}

} // namespace
} // namespace QVM_NAMESPACE
