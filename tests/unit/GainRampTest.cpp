#include "unit/GainRamp.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

constexpr double rateHz = 48000;
constexpr int rampFrames = 960; // GainRamp::seconds at that rate

TEST(GainRamp, StandsAtItsTargetAfterPrepare) {
    GainRamp ramp;
    ramp.prepare(rateHz, 0.5);
    EXPECT_FALSE(ramp.isMoving());
    EXPECT_EQ(ramp.next(), 0.5);
}

TEST(GainRamp, ReachesItsTargetExactlyAndOnTime) {
    GainRamp ramp;
    ramp.prepare(rateHz, 0.1);
    ramp.setTarget(1);
    for (int i = 1; i < rampFrames; ++i)
        EXPECT_LT(ramp.next(), 1) << i;
    EXPECT_EQ(ramp.next(), 1.0);
    EXPECT_FALSE(ramp.isMoving());
    EXPECT_EQ(ramp.next(), 1.0);
}

TEST(GainRamp, MovesInEqualSteps) {
    GainRamp ramp;
    ramp.prepare(rateHz, 1);
    ramp.setTarget(0);
    double last = 1;
    for (int i = 0; i < rampFrames; ++i) {
        const double now = ramp.next();
        EXPECT_NEAR(last - now, 1.0 / rampFrames, 1e-12);
        last = now;
    }
}

TEST(GainRamp, TurnsRoundInMidRampWithoutAJump) {
    GainRamp ramp;
    ramp.prepare(rateHz, 0);
    ramp.setTarget(1);
    double last = 0;
    for (int i = 0; i < 300; ++i)
        last = ramp.next();
    ramp.setTarget(0);
    EXPECT_NEAR(ramp.next(), last, 1.0 / rampFrames);
}

TEST(GainRamp, ARepeatedTargetDoesNotSlowTheRamp) {
    GainRamp ramp;
    ramp.prepare(rateHz, 0);
    for (int i = 0; i < rampFrames; ++i) {
        ramp.setTarget(1);
        ramp.next();
    }
    EXPECT_FALSE(ramp.isMoving());
}

TEST(GainRamp, SnapEndsTheRamp) {
    GainRamp ramp;
    ramp.prepare(rateHz, 0);
    ramp.setTarget(1);
    ramp.snap();
    EXPECT_FALSE(ramp.isMoving());
    EXPECT_EQ(ramp.next(), 1.0);
}

TEST(GainRamp, DecibelsBecomeAmplitudes) {
    EXPECT_EQ(amplitudeFromDecibels(0), 1.0);
    EXPECT_NEAR(amplitudeFromDecibels(-6.0205999F), 0.5, 1e-7);
    EXPECT_NEAR(amplitudeFromDecibels(12), 3.9810717, 1e-6);
}

TEST(GainRamp, TheLowestOutputGainIsSilence) {
    EXPECT_EQ(amplitudeFromDecibels(-96), 0.0);
    EXPECT_EQ(amplitudeFromDecibels(-1000), 0.0);
    EXPECT_GT(amplitudeFromDecibels(-95.9F), 0.0);
}

TEST(GainRamp, BadDecibelsGiveAHarmlessAmplitude) {
    EXPECT_EQ(amplitudeFromDecibels(std::nanf("")), 0.0);
    EXPECT_EQ(amplitudeFromDecibels(INFINITY), amplitudeFromDecibels(12));
}

} // namespace
} // namespace QVM_NAMESPACE
