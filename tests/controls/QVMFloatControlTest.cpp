// The gestures that all controls share, driven with synthetic events.
#include "controls/QVMFloatControl.h"

#include "controls/Gestures.h"
#include "controls/QVMFocusBorder.h"
#include "platform/Log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kShift = EventModifier::shift, kControl = EventModifier::control,
                        kOption = EventModifier::option, kCommand = EventModifier::command;
constexpr Rect kFrame = {10, 20, 100, 40};

std::string shown(const char* hook, const QVMGranularities& g) {
    return std::string(hook) + ' ' + std::to_string(g.is) + ' ' + std::to_string(g.was) + (g.changed ? " changed" : "");
}

// Writes down which hook is called with which granularities.
class HookedControl : public QVMFloatControl {
public:
    using QVMFloatControl::QVMFloatControl;
    void handleMouseDownWithEventGranularities(const QVMEvent&, const QVMGranularities& g) override {
        hooks.push_back(shown("down", g));
    }
    void handleMouseDraggedWithEventGranularities(const QVMEvent&, const QVMGranularities& g) override {
        hooks.push_back(shown("dragged", g));
    }
    void handleMouseUpWithEventGranularities(const QVMEvent&, const QVMGranularities& g) override {
        hooks.push_back(shown("up", g));
    }
    void handleScrollWithEventStartDeltaGranularities(const QVMEvent&, float, double,
                                                      const QVMGranularities& g) override {
        hooks.push_back(shown("scroll", g));
    }
    std::vector<std::string> hooks;
};

struct Bench {
    explicit Bench(QVMParameter p) : parameter(std::move(p)), control(kFrame, parameter), record(control) {}
    QVMParameter parameter;
    HookedControl control;
    GestureRecord record;
    Point inside = {50, 20};
};

Bench tiltGain() {
    return Bench(parameterLike(1));
}

// A mapping-free frequency parameter in whole steps.
QVMParameter frequency() {
    return parameterLike(9, [](QVMParameter& p) {
        p.fineGranularity = 1;
        p.logarithmic = false;
    });
}

TEST(QVMFloatControl, OptionClickResetsAndReportsBeganButNeverEnded) {
    Bench b(parameterLike(1));
    b.control.setFloatValue(6);
    press(b.control, b.inside, kOption);
    release(b.control, b.inside, kOption);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0);
    EXPECT_THAT(b.record.lines, ElementsAre("action 0", "began"));
    EXPECT_THAT(b.control.hooks, IsEmpty());
}

TEST(QVMFloatControl, DragsAfterAnOptionClickAreIgnoredWhileOptionStaysHeld) {
    Bench b(parameterLike(1));
    press(b.control, b.inside, kOption);
    drag(b.control, {60, 20}, kOption);
    EXPECT_THAT(b.control.hooks, IsEmpty());
    drag(b.control, {70, 20});
    EXPECT_THAT(b.control.hooks, ElementsAre("dragged 0 0"));
}

TEST(QVMFloatControl, OptionCommandClickDoesNotResetAndReachesTheHookAtStandardGranularity) {
    Bench b(parameterLike(1));
    b.control.setFloatValue(6);
    press(b.control, b.inside, kOption | kCommand);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 6);
    EXPECT_THAT(b.control.hooks, ElementsAre("down 0 0"));
    EXPECT_THAT(b.record.lines, ElementsAre("began"));
}

TEST(QVMFloatControl, ControlClickReportsBeganButCallsNoHook) {
    Bench b(parameterLike(1));
    press(b.control, b.inside, kControl);
    EXPECT_THAT(b.control.hooks, IsEmpty());
    EXPECT_THAT(b.record.lines, ElementsAre("began"));
}

TEST(QVMFloatControl, ControlAtMouseUpSendsNothing) {
    Bench b(parameterLike(1));
    press(b.control, b.inside);
    release(b.control, b.inside, kControl);
    EXPECT_THAT(b.control.hooks, ElementsAre("down 0 0"));
    EXPECT_THAT(b.record.lines, ElementsAre("began"));
}

TEST(QVMFloatControl, CommandWinsOverShift) {
    Bench b(parameterLike(1));
    Event event;
    event.modifierFlags = kCommand | kShift;
    EXPECT_EQ(b.control.granularityFromEvent(event), 1);
    event.modifierFlags = kShift | kOption | kControl;
    EXPECT_EQ(b.control.granularityFromEvent(event), 2);
    event.modifierFlags = kOption | kControl;
    EXPECT_EQ(b.control.granularityFromEvent(event), 0);
}

TEST(QVMFloatControl, AGestureReportsBeganAndEndedWithStandardGranularityAtBothEnds) {
    Bench b(parameterLike(1));
    press(b.control, b.inside, kShift);
    drag(b.control, b.inside, kShift);
    drag(b.control, b.inside, kShift);
    drag(b.control, b.inside, kCommand);
    release(b.control, b.inside, kCommand);
    EXPECT_THAT(b.control.hooks,
                ElementsAre("down 0 0", "dragged 2 0 changed", "dragged 2 2", "dragged 1 2 changed", "up 0 0"));
    EXPECT_THAT(b.record.lines, ElementsAre("began", "ended"));
}

TEST(QVMFloatControl, ADisabledControlIgnoresTheMouseAndTheWheelButStartsItsGranularitiesAnew) {
    Bench b(parameterLike(1));
    press(b.control, b.inside);
    drag(b.control, b.inside, kShift);
    b.control.hooks.clear();
    b.record.lines.clear();
    b.control.setPreventInteraction(true);
    EXPECT_TRUE(b.control.isDisabled());
    EXPECT_EQ(b.control.granIs(), 2);
    press(b.control, b.inside, kOption);
    EXPECT_EQ(b.control.granIs(), 0);
    drag(b.control, b.inside);
    release(b.control, b.inside);
    b.control.scrollWheel(eventAt(EventType::scrollWheel, b.control, b.inside));
    EXPECT_THAT(b.control.hooks, IsEmpty());
    EXPECT_THAT(b.record.lines, IsEmpty());
}

TEST(QVMFloatControl, OnlyMouseDownsArePassedOn) {
    struct Listener : Responder {
        int downs = 0, others = 0;
        void mouseDown(const Event&) override { ++downs; }
        void mouseDragged(const Event&) override { ++others; }
        void mouseUp(const Event&) override { ++others; }
        void scrollWheel(const Event&) override { ++others; }
    } next;
    Bench b(parameterLike(1));
    b.control.setNextResponder(&next);
    press(b.control, b.inside);
    drag(b.control, b.inside);
    release(b.control, b.inside);
    b.control.scrollWheel(eventAt(EventType::scrollWheel, b.control, b.inside));
    EXPECT_EQ(next.downs, 1);
    EXPECT_EQ(next.others, 0);
}

TEST(QVMFloatControl, DownArrowAtTwelveKilohertzStepsByTenNotByAHundred) {
    Bench b(frequency());
    b.control.setFloatValue(12000);
    EXPECT_FLOAT_EQ(b.control.incrementedValueForArrowGranularity(Key::down, 1), -10);
    EXPECT_FLOAT_EQ(b.control.incrementedValueForArrowGranularity(Key::left, 1), -10);
    EXPECT_FLOAT_EQ(b.control.incrementedValueForArrowGranularity(Key::up, 1), 10);
    EXPECT_FLOAT_EQ(b.control.incrementedValueForArrowGranularity(Key::right, 1), 10);
    b.control.setFloatValue(500);
    EXPECT_FLOAT_EQ(b.control.incrementedValueForArrowGranularity(Key::up, 1), 1);
}

TEST(QVMFloatControl, AnArrowKeyIsOneDiscreteChange) {
    Bench b(parameterLike(1));
    EXPECT_TRUE(b.control.incrementWithArrowGranularity(Key::up, 0));
    EXPECT_THAT(b.record.lines, ElementsAre("action 0.5", "discrete"));
    EXPECT_TRUE(b.control.userControlling());
}

TEST(QVMFloatControl, RoundingTakesTheStepTowardsItsOwnSide) {
    Bench b(parameterLike(1));     // steps of 0.5, rounded first
    b.control.setFloatValue(2.3f); // rounds up to 2.5
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

TEST(QVMFloatControl, WithoutPreroundingACoarseStepKeepsTheOffset) {
    Bench b(parameterLike(1, [](QVMParameter& p) { p.coarseGranularityShouldPreround = false; }));
    b.control.setFloatValue(0.4f);
    b.control.incrementWithArrowGranularity(Key::up, 2);
    EXPECT_NEAR(b.control.floatValue(), 1.9f, 1e-5);
}

TEST(QVMFloatControl, CoarseStepsWalkTheCoarseOptions) {
    Bench b(parameterLike(2));
    b.control.setFloatValue(161);
    b.control.incrementWithArrowGranularity(Key::up, 2);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 200);
    b.control.incrementWithArrowGranularity(Key::up, 2);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 250);
    b.control.incrementWithArrowGranularity(Key::down, 2);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 200);
}

TEST(QVMFloatControl, ACoarseStepAtTheLastOptionStaysAtTheArithmeticResult) {
    Bench b(parameterLike(9, [](QVMParameter& p) {
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

TEST(QVMFloatControl, LimitFloatKeepsEachEndOnItsSideOfTheLimit) {
    const auto limited = [](bool low) {
        return parameterLike(9, [low](QVMParameter& p) {
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

Event wheel(const View& view, double x, double y, bool precise, std::uint32_t phase = 0, bool inverted = true) {
    Event event = eventAt(EventType::scrollWheel, view, {50, 20});
    event.scrollingDeltaX = x;
    event.scrollingDeltaY = y;
    event.hasPreciseScrollingDeltas = precise;
    event.phase = phase;
    event.isDirectionInvertedFromDevice = inverted;
    return event;
}

TEST(QVMFloatControl, AGentleTickOfANotchedWheelCountsAsAWholeNotch) {
    Bench b(parameterLike(7));
    b.control.setFloatValue(-6);
    b.control.scrollWheel(wheel(b.control, 0, -0.3, false));
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), 10);
    EXPECT_FLOAT_EQ(b.control.scrollStartValue(), -6);
    b.control.scrollWheel(wheel(b.control, 0, 0, false));
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), -10);
    b.control.scrollWheel(wheel(b.control, 0, 2.5, false, 0, false)); // the direction plays no part
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), -25);
}

TEST(QVMFloatControl, ANotchedWheelReadsTheVerticalDeltaOfALyingControlToo) {
    Bench b(parameterLike(1));
    b.control.scrollWheel(wheel(b.control, 7, -2, false));
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), 20);
}

TEST(QVMFloatControl, PreciseScrollingAccumulatesFromTheMayBeginPhase) {
    Bench b(parameterLike(7));
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

TEST(QVMFloatControl, PreciseScrollingOfALyingControlReadsTheHorizontalDelta) {
    Bench b(parameterLike(1));
    b.control.scrollWheel(wheel(b.control, 3, 50, true, EventPhase::mayBegin));
    EXPECT_DOUBLE_EQ(b.control.scrollDelta(), 3);
}

TEST(QVMFloatControl, ScrollingHandsTheGranularitiesToItsHook) {
    Bench b(parameterLike(1));
    Event event = wheel(b.control, 3, 0, true);
    event.modifierFlags = kCommand;
    b.control.scrollWheel(event);
    b.control.scrollWheel(event);
    EXPECT_THAT(b.control.hooks, ElementsAre("scroll 1 0 changed", "scroll 1 1"));
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0);
}

TEST(QVMFloatControl, TheContextMenuItemsResetConvertAndAskForDocumentation) {
    struct Delegate : GestureRecord {
        using GestureRecord::GestureRecord;
        void floatControlWantsToPerformStaticConversion(QVMFloatControl&, std::int32_t value) override {
            lines.push_back("convert " + std::to_string(value));
        }
        void floatControlHasRequestedDocumentation(QVMFloatControl&) override { lines.push_back("document"); }
    };
    const QVMParameter parameter = parameterLike(1);
    HookedControl control(kFrame, parameter);
    Delegate delegate(control);
    control.setFloatValue(-2.9f);
    control.contextMenuDoStaticConversion();
    control.contextMenuRequestedDocumentation();
    control.contextMenuResetInitialValue();
    EXPECT_THAT(delegate.lines, ElementsAre("convert -2", "document", "action 0"));
}

TEST(QVMFloatControl, AnUnexpectedMetaActionIsOnlyLogged) {
    std::vector<std::string> lines;
    const ScopedLogSink sink([&](const std::string& line) { lines.push_back(line); });
    Bench b(parameterLike(1));
    b.control.handleMetaActionWithEvent(0, nullptr);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].substr(0, 9), "unhandled");
}

TEST(QVMFloatControl, TheFocusBorderStandsOutsideTheFrameItIsGiven) {
    Bench b(parameterLike(1));
    b.control.animateHighlightToFramePositionRoundingInset({0, 0, 100, 20}, {}, 0.2, true);
    EXPECT_EQ(b.control.highlight()->frame(), (Rect{-4, -3, 108, 26}));
    EXPECT_DOUBLE_EQ(b.control.highlight()->rounding(), 13); // a fraction is at least one half
    b.control.animateHighlightToFramePositionRoundingInset({0, 0, 100, 20}, {}, 4, false);
    EXPECT_EQ(b.control.highlight()->frame(), (Rect{0, 0, 100, 20}));
    EXPECT_DOUBLE_EQ(b.control.highlight()->rounding(), 4);
}

TEST(QVMFloatControl, AnotherFocusShapeHasCornersOfSixPoints) {
    Bench b(parameterLike(1, [](QVMParameter& p) { p.controlFocusShape = 1; }));
    b.control.animateHighlightToFramePositionRoundingInset({0, 0, 100, 20}, {}, 0.5, true);
    EXPECT_DOUBLE_EQ(b.control.highlight()->rounding(), 6);
}

TEST(QVMFloatControl, BeingHighlitShowsTheFocusBorderInTheParametersColour) {
    Bench b(parameterLike(1));
    EXPECT_DOUBLE_EQ(b.control.highlight()->opacity(), 0);
    b.control.setHighlit(true);
    EXPECT_DOUBLE_EQ(b.control.highlight()->opacity(), 1);
    EXPECT_EQ(b.control.highlight()->strokeNSColor(), colorFrom(b.parameter.color));
    b.control.setHighlit(false);
    EXPECT_DOUBLE_EQ(b.control.highlight()->opacity(), 0);
    EXPECT_FALSE(b.control.layer()->masksToBounds());
}

TEST(QVMFloatControl, AReplayedEventKeepsItsSourceAndIsMarked) {
    Bench b(parameterLike(1));
    const QVMEvent event(eventAt(EventType::mouseDown, b.control, {30, 7}, kShift), b.control);
    EXPECT_EQ(event.point, (Point{30, 7})); // y up, as in the control
    EXPECT_FALSE(event.simulated);
    const QVMEvent moved = event.adjustedToPoint({1, 2});
    EXPECT_EQ(moved.point, (Point{1, 2}));
    EXPECT_TRUE(moved.simulated);
    EXPECT_TRUE(moved.nsEvent.has(kShift));
}

TEST(QVMFloatControl, ClearingHalfTypedTextIsHarmlessOnControlsThatShowNone) {
    Bench b(parameterLike(1));
    QVMTransientBufferDisplayClear(nullptr);
    QVMTransientBufferDisplayClear(&b.control);
    EXPECT_THAT(b.record.lines, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
