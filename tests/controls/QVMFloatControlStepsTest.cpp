// What arrow keys and the wheel make of a value, and the limit of a pair.
#include "controls/HookedControl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using Bench = HookedControlBench;

constexpr std::uint32_t kCommand = EventModifier::command;

Bench tiltGain() {
    return Bench(parameterLike(pidTiltGain));
}

// A mapping-free frequency parameter in whole steps.
QVMParameter frequency() {
    return parameterLike(pidFilterRangeLow, [](QVMParameter& p) {
        p.fineGranularity = 1;
        p.logarithmic = false;
    });
}

Event wheel(const View& view, double x, double y, bool precise, std::uint32_t phase = 0, bool inverted = true) {
    Event event = eventAt(EventType::scrollWheel, view, {50, 20});
    event.scrollingDeltaX = x;
    event.scrollingDeltaY = y;
    event.hasPreciseScrollingDeltas = precise;
    event.phase = phase;
    event.isDirectionInvertedFromDevice = inverted;
    return event;
}

TEST(QVMFloatControlSteps, DownArrowAtTwelveKilohertzStepsByTenNotByAHundred) {
    Bench b(frequency());
    b.control.setFloatValue(12000);
    EXPECT_FLOAT_EQ(b.control.incrementedValueForArrowGranularity(Key::down, 1), -10);
    EXPECT_FLOAT_EQ(b.control.incrementedValueForArrowGranularity(Key::left, 1), -10);
    EXPECT_FLOAT_EQ(b.control.incrementedValueForArrowGranularity(Key::up, 1), 10);
    EXPECT_FLOAT_EQ(b.control.incrementedValueForArrowGranularity(Key::right, 1), 10);
    b.control.setFloatValue(500);
    EXPECT_FLOAT_EQ(b.control.incrementedValueForArrowGranularity(Key::up, 1), 1);
}

TEST(QVMFloatControlSteps, FromExactlyAKilohertzOnTheLeastStepIsTenHertz) {
    Bench b(frequency());
    const auto step = [&b](float value) {
        b.control.setFloatValue(value);
        return b.control.incrementedValueForArrowGranularity(Key::up, QVMGranularityFine);
    };
    EXPECT_FLOAT_EQ(step(999), 1);
    EXPECT_FLOAT_EQ(step(1000), 10);
    EXPECT_FLOAT_EQ(step(10000), 10);
    Bench gain(parameterLike(pidTiltGain, [](QVMParameter& p) { p.maxValue = 5000; }));
    gain.control.setFloatValue(1000);
    EXPECT_LT(gain.control.incrementedValueForArrowGranularity(Key::up, QVMGranularityFine), 1)
        << "the rule is that of frequencies";
}

TEST(QVMFloatControlSteps, OnlyDownAndLeftStepDownwards) {
    Bench b(tiltGain());
    for (const char32_t key : {Key::up, Key::right, U'x', U'\0'})
        EXPECT_GT(b.control.incrementedValueForArrowGranularity(key, QVMGranularityNormal), 0);
    for (const char32_t key : {Key::down, Key::left})
        EXPECT_LT(b.control.incrementedValueForArrowGranularity(key, QVMGranularityNormal), 0);
}

TEST(QVMFloatControlSteps, AnArrowKeyIsOneDiscreteChange) {
    Bench b(parameterLike(pidTiltGain));
    EXPECT_TRUE(b.control.incrementWithArrowGranularity(Key::up, 0));
    EXPECT_THAT(b.record.lines, ElementsAre("action 0.5", "discrete"));
    EXPECT_TRUE(b.control.userControlling());
}

TEST(QVMFloatControlSteps, RoundingTakesTheStepTowardsItsOwnSide) {
    Bench b(parameterLike(pidTiltGain)); // steps of 0.5, rounded first
    b.control.setFloatValue(2.3f);       // rounds up to 2.5
    b.control.incrementWithArrowGranularity(Key::up, 0);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 2.5f);
    b.control.setFloatValue(2.3f);
    b.control.incrementWithArrowGranularity(Key::down, 0);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 2.0f);
    b.control.setFloatValue(2.1f); // rounds down to 2
    b.control.incrementWithArrowGranularity(Key::down, 0);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 2.0f);
    b.control.setFloatValue(2.1f);
    b.control.incrementWithArrowGranularity(Key::up, 0);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 2.5f);
}

TEST(QVMFloatControlSteps, WithoutPreroundingACoarseStepKeepsTheOffset) {
    Bench b(parameterLike(pidTiltGain, [](QVMParameter& p) { p.coarseGranularityShouldPreround = false; }));
    b.control.setFloatValue(0.4f);
    b.control.incrementWithArrowGranularity(Key::up, 2);
    EXPECT_NEAR(b.control.floatValue(), 1.9f, 1e-5);
}

TEST(QVMFloatControlSteps, CoarseStepsWalkTheCoarseOptions) {
    Bench b(parameterLike(pidTiltRangeLow));
    b.control.setFloatValue(161);
    b.control.incrementWithArrowGranularity(Key::up, 2);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 200);
    b.control.incrementWithArrowGranularity(Key::up, 2);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 250);
    b.control.incrementWithArrowGranularity(Key::down, 2);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 200);
}

TEST(QVMFloatControlSteps, ACoarseStepAtTheLastOptionStaysAtTheArithmeticResult) {
    Bench b(parameterLike(pidFilterRangeLow, [](QVMParameter& p) {
        p.coarseGranularityOptions = {100, 200};
        p.coarseGranularity = 50;
        p.coarseGranularityShouldPreround = false;
        p.fineGranularity = 1;
    }));
    b.control.setFloatValue(203);
    b.control.incrementWithArrowGranularity(Key::up, 2);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 253); // 203 + 50, not option 0
    b.control.setFloatValue(97);
    b.control.incrementWithArrowGranularity(Key::down, 2);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 47);
}

TEST(QVMFloatControlSteps, LimitFloatKeepsEachEndOnItsSideOfTheLimit) {
    const auto limited = [](bool low) {
        return parameterLike(pidFilterRangeLow, [low](QVMParameter& p) {
            p.range = QVMRangeSettings({{"low", low}, {"limit", 500.0f}});
        });
    };
    Bench low(limited(true)), high(limited(false));
    EXPECT_FLOAT_EQ(low.control.limitFloat(700), 500);
    EXPECT_FLOAT_EQ(low.control.limitFloat(300), 300);
    EXPECT_FLOAT_EQ(high.control.limitFloat(300), 500);
    EXPECT_FLOAT_EQ(high.control.limitFloat(700), 700);
    EXPECT_FLOAT_EQ(tiltGain().control.limitFloat(700), 700); // no pair
}

TEST(QVMFloatControlSteps, AGentleTickOfANotchedWheelCountsAsAWholeNotch) {
    Bench b(parameterLike(pidOutputGain));
    b.control.setFloatValue(-6);
    b.control.scrollWheel(wheel(b.control, 0, -0.3, false));
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), 10);
    EXPECT_FLOAT_EQ(b.control.scrollStartValue(), -6);
    b.control.scrollWheel(wheel(b.control, 0, 0, false));
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), -10);
    b.control.scrollWheel(wheel(b.control, 0, 2.5, false, 0, false)); // the direction plays no part
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), -25);
}

TEST(QVMFloatControlSteps, ANotchedWheelReadsTheVerticalDeltaOfALyingControlToo) {
    Bench b(parameterLike(pidTiltGain));
    b.control.scrollWheel(wheel(b.control, 7, -2, false));
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), 20);
}

TEST(QVMFloatControlSteps, PreciseScrollingAccumulatesFromTheMayBeginPhase) {
    Bench b(parameterLike(pidOutputGain));
    b.control.setFloatValue(-6);
    b.control.scrollWheel(wheel(b.control, 0, -3, true, EventPhase::mayBegin));
    EXPECT_FLOAT_EQ(b.control.scrollStartValue(), -6);
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), 3);
    b.control.setFloatValue(-3);
    b.control.scrollWheel(wheel(b.control, 0, -4, true, EventPhase::began)); // no new sequence
    EXPECT_FLOAT_EQ(b.control.scrollStartValue(), -6);
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), 7);
    b.control.scrollWheel(wheel(b.control, 0, -1, true, EventPhase::changed, false)); // classic direction
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), 6);
    b.control.scrollWheel(wheel(b.control, 0, -5, true, EventPhase::mayBegin | EventPhase::began));
    EXPECT_FLOAT_EQ(b.control.scrollStartValue(), -3);
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), 5);
}

TEST(QVMFloatControlSteps, PreciseScrollingOfALyingControlReadsTheHorizontalDelta) {
    Bench b(parameterLike(pidTiltGain));
    b.control.scrollWheel(wheel(b.control, 3, 50, true, EventPhase::mayBegin));
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), 3);
}

TEST(QVMFloatControlSteps, ScrollingHandsTheGranularitiesToItsHook) {
    Bench b(parameterLike(pidTiltGain));
    Event event = wheel(b.control, 3, 0, true);
    event.modifierFlags = kCommand;
    b.control.scrollWheel(event);
    b.control.scrollWheel(event);
    EXPECT_THAT(b.control.hooks, ElementsAre("scroll 1 0 changed", "scroll 1 1"));
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0);
}

} // namespace
} // namespace QVM_NAMESPACE
