#include "platform/runloop/DelayedCall.h"

#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

#include <memory>

namespace QVM_NAMESPACE {
namespace {

struct DelayedCallTest : testing::Test {
    VirtualTime time;
    int ran = 0;
};

TEST_F(DelayedCallTest, RunsOnceAfterItsTime) {
    DelayedCall call;
    call.schedule(0.5, [&] { ++ran; });
    time.advance(0.49);
    EXPECT_EQ(ran, 0);
    time.advance(0.01);
    EXPECT_EQ(ran, 1);
    time.advance(5);
    EXPECT_EQ(ran, 1);
}

TEST_F(DelayedCallTest, SchedulingAgainCancelsThePendingCall) {
    DelayedCall call;
    call.schedule(0.5, [&] { ran += 10; });
    time.advance(0.4);
    call.schedule(0.5, [&] { ++ran; });
    time.advance(0.4);
    EXPECT_EQ(ran, 0);
    time.advance(0.1);
    EXPECT_EQ(ran, 1);
}

TEST_F(DelayedCallTest, CancelAndDestructionDropTheCall) {
    DelayedCall call;
    call.schedule(0.1, [&] { ++ran; });
    call.cancel();
    {
        DelayedCall{}.schedule(0.1, [&] { ++ran; });
    }
    time.advance(1);
    EXPECT_EQ(ran, 0);
}

TEST_F(DelayedCallTest, MayScheduleItselfAgainFromItsCall) {
    DelayedCall call;
    call.schedule(0.1, [&] {
        ++ran;
        call.schedule(0.1, [&] { ran += 10; });
    });
    time.advance(0.1);
    EXPECT_EQ(ran, 1);
    time.advance(0.1);
    EXPECT_EQ(ran, 11);
}

TEST_F(DelayedCallTest, MayBeDestroyedByItsOwnCall) {
    auto call = std::make_unique<DelayedCall>();
    call->schedule(0, [&, text = std::string(100, 'x')] {
        call.reset();
        ran = static_cast<int>(text.size()); // the function outlives the object that scheduled it
    });
    time.settle();
    EXPECT_EQ(ran, 100);
}

} // namespace
} // namespace QVM_NAMESPACE
