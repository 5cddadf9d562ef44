// The throttle in virtual time.
#include "controls/QVMSpeedLim.h"

#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

struct Target {
    void ring() { rings.push_back(RunLoop::main().now()); }
    void knock() { knocks.push_back(RunLoop::main().now()); }
    std::vector<double> rings, knocks;
};

auto at(double seconds) {
    return DoubleNear(seconds, 1e-6);
}

class QVMSpeedLimTest : public testing::Test {
protected:
    void fire() { limiter.fireWithLimitTargetSelector(0.1, target, &Target::ring); }
    VirtualTime time;
    Target target;
    QVMSpeedLim limiter;
};

TEST_F(QVMSpeedLimTest, ABurstMakesOneCallAtOnceAndOneAtTheEndOfTheInterval) {
    fire();
    EXPECT_THAT(target.rings, IsEmpty()); // never in place
    time.advance(0.02);
    fire();
    time.advance(0.03);
    fire();
    time.advance(1);
    EXPECT_THAT(target.rings, ElementsAre(at(0), at(0.1)));
}

TEST_F(QVMSpeedLimTest, WithoutTrailingOnlyTheFirstOfABurstIsCalled) {
    EXPECT_TRUE(limiter.trailing());
    limiter.setTrailing(false);
    fire();
    time.advance(0.02);
    fire();
    time.advance(0.03);
    fire();
    time.advance(1);
    EXPECT_THAT(target.rings, ElementsAre(at(0)));
}

TEST_F(QVMSpeedLimTest, ATrailingCallCountsAsTheLastOne) {
    fire();
    time.advance(0.05);
    fire(); // due at 0.1
    time.advance(0.1);
    fire(); // at 0.15, only 0.05 after the trailing call
    time.advance(1);
    EXPECT_THAT(target.rings, ElementsAre(at(0), at(0.1), at(0.2)));
}

TEST_F(QVMSpeedLimTest, CallsFartherApartThanTheLimitAllGoOut) {
    for (int i = 0; i < 3; ++i) {
        fire();
        time.advance(0.11);
    }
    EXPECT_THAT(target.rings, ElementsAre(at(0), at(0.11), at(0.22)));
}

TEST_F(QVMSpeedLimTest, ADelayHoldsTheFirstCallBackAndIsTheLeastForATrailingOne) {
    const auto fireLate = [&] { limiter.fireWithLimitAndDelayTargetSelector(0.1, 0.07, target, &Target::ring); };
    fireLate();
    time.advance(0.069);
    EXPECT_THAT(target.rings, IsEmpty());
    time.advance(0.011); // 0.08: called at 0.07
    fireLate();          // 0.02 left of the interval, but 0.07 of delay
    time.advance(1);
    EXPECT_THAT(target.rings, ElementsAre(at(0.07), at(0.15)));
}

TEST_F(QVMSpeedLimTest, AnotherSelectorsPendingCallIsLeftAlone) {
    fire();
    time.advance(0.02);
    fire();
    limiter.fireWithLimitTargetSelector(0.1, target, &Target::knock);
    time.advance(1);
    EXPECT_THAT(target.rings, ElementsAre(at(0), at(0.1)));
    EXPECT_THAT(target.knocks, ElementsAre(at(0.1)));
}

TEST_F(QVMSpeedLimTest, AnotherLimitersPendingCallOfTheSameSelectorOnTheSameTargetIsReplaced) {
    QVMSpeedLim other;
    other.fireWithLimitAndDelayTargetSelector(0.1, 0.5, target, &Target::ring);
    time.advance(0.2);
    limiter.fireWithLimitAndDelayTargetSelector(0.1, 0.5, target, &Target::ring);
    time.advance(2);
    EXPECT_THAT(target.rings, ElementsAre(at(0.7)));
}

TEST_F(QVMSpeedLimTest, AnotherTargetsPendingCallIsLeftAlone) {
    QVMSpeedLim other;
    Target neighbour;
    other.fireWithLimitAndDelayTargetSelector(0.1, 0.5, neighbour, &Target::ring);
    limiter.fireWithLimitAndDelayTargetSelector(0.1, 0.5, target, &Target::ring);
    time.advance(2);
    EXPECT_THAT(target.rings, ElementsAre(at(0.5)));
    EXPECT_THAT(neighbour.rings, ElementsAre(at(0.5)));
}

TEST_F(QVMSpeedLimTest, DestroyingTheLimiterLeavesACallThatHasReplacedItsOwn) {
    auto shortLived = std::make_unique<QVMSpeedLim>();
    shortLived->fireWithLimitAndDelayTargetSelector(0.1, 0.2, target, &Target::ring);
    limiter.fireWithLimitAndDelayTargetSelector(0.1, 0.3, target, &Target::ring);
    shortLived.reset();
    time.advance(0.1);
    limiter.fireWithLimitAndDelayTargetSelector(0.1, 0.3, target, &Target::ring);
    time.advance(1);
    EXPECT_THAT(target.rings, ElementsAre(at(0.4)));
}

TEST_F(QVMSpeedLimTest, DestroyingTheLimiterCancelsWhatIsStillToCome) {
    {
        QVMSpeedLim shortLived;
        shortLived.fireWithLimitTargetSelector(0.1, target, &Target::ring);
    }
    time.advance(1);
    EXPECT_THAT(target.rings, IsEmpty());
}

TEST_F(QVMSpeedLimTest, FiresFromManyThreadsCollapseAndAreCalledOnTheMainLoop) {
    RunLoop::main().becomeMainThread();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([this] {
            for (int n = 0; n < 250; ++n)
                fire();
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(target.rings, IsEmpty());
    time.advance(1);
    // The trailing call replaces the one that was still waiting: same selector, same target.
    EXPECT_THAT(target.rings, ElementsAre(at(0.1)));
}

} // namespace
} // namespace QVM_NAMESPACE
