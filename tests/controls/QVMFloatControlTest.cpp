// The gestures that all controls share, driven with synthetic events.
#include "controls/HookedControl.h"
#include "controls/QVMFocusBorder.h"
#include "platform/system/Log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Bench = HookedControlBench;

constexpr std::uint32_t kShift = EventModifier::shift, kControl = EventModifier::control,
                        kOption = EventModifier::option, kCommand = EventModifier::command;

constexpr Rect kFrame = {10, 20, 100, 40};

TEST(QVMFloatControl, OptionClickResetsAndReportsBeganButNeverEnded) {
    Bench b(parameterLike(pidTiltGain));
    b.control.setFloatValue(6);
    press(b.control, b.inside, kOption);
    release(b.control, b.inside, kOption);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0);
    EXPECT_THAT(b.record.lines, ElementsAre("action 0", "began"));
    EXPECT_THAT(b.control.hooks, IsEmpty());
}

TEST(QVMFloatControl, DragsAfterAnOptionClickAreIgnoredWhileOptionStaysHeld) {
    Bench b(parameterLike(pidTiltGain));
    press(b.control, b.inside, kOption);
    drag(b.control, {60, 20}, kOption);
    EXPECT_THAT(b.control.hooks, IsEmpty());
    drag(b.control, {70, 20});
    EXPECT_THAT(b.control.hooks, ElementsAre("dragged 0 0"));
}

TEST(QVMFloatControl, OptionCommandClickDoesNotResetAndReachesTheHookAtStandardGranularity) {
    Bench b(parameterLike(pidTiltGain));
    b.control.setFloatValue(6);
    press(b.control, b.inside, kOption | kCommand);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 6);
    EXPECT_THAT(b.control.hooks, ElementsAre("down 0 0"));
    EXPECT_THAT(b.record.lines, ElementsAre("began"));
}

TEST(QVMFloatControl, ControlClickReportsBeganButCallsNoHook) {
    Bench b(parameterLike(pidTiltGain));
    press(b.control, b.inside, kControl);
    EXPECT_THAT(b.control.hooks, IsEmpty());
    EXPECT_THAT(b.record.lines, ElementsAre("began"));
}

TEST(QVMFloatControl, APressThatIsLostEnds) {
    Bench b(parameterLike(pidTiltGain));
    press(b.control, b.inside);
    drag(b.control, {60, 20});
    b.control.mouseCancelled(eventAt(EventType::mouseCancelled, b.control, {60, 20}));
    EXPECT_THAT(b.control.hooks, ElementsAre("down 0 0", "dragged 0 0", "up 0 0"));
    EXPECT_THAT(b.record.lines, ElementsAre("began", "ended"));
}

TEST(QVMFloatControl, ControlAtMouseUpSendsNothing) {
    Bench b(parameterLike(pidTiltGain));
    press(b.control, b.inside);
    release(b.control, b.inside, kControl);
    EXPECT_THAT(b.control.hooks, ElementsAre("down 0 0"));
    EXPECT_THAT(b.record.lines, ElementsAre("began"));
}

TEST(QVMFloatControl, CommandWinsOverShift) {
    Bench b(parameterLike(pidTiltGain));
    Event event;
    event.modifierFlags = kCommand | kShift;
    EXPECT_EQ(b.control.granularityFromEvent(event), 1);
    event.modifierFlags = kShift | kOption | kControl;
    EXPECT_EQ(b.control.granularityFromEvent(event), 2);
    event.modifierFlags = kOption | kControl;
    EXPECT_EQ(b.control.granularityFromEvent(event), 0);
}

TEST(QVMFloatControl, AGestureReportsBeganAndEndedWithStandardGranularityAtBothEnds) {
    Bench b(parameterLike(pidTiltGain));
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
    Bench b(parameterLike(pidTiltGain));
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

TEST(QVMFloatControl, ADisabledControlIsFaintAsAWhole) {
    Bench b(parameterLike(pidTiltGain));
    b.control.setPreventInteraction(true);
    EXPECT_LT(b.control.alpha(), 0.6);
    b.control.setPreventInteraction(false);
    EXPECT_DOUBLE_EQ(b.control.alpha(), 1);
}

TEST(QVMFloatControl, OnlyMouseDownsArePassedOn) {
    struct Listener : Responder {
        int downs = 0, others = 0;
        void mouseDown(const Event&) override { ++downs; }
        void mouseDragged(const Event&) override { ++others; }
        void mouseUp(const Event&) override { ++others; }
        void scrollWheel(const Event&) override { ++others; }
    } next;
    Bench b(parameterLike(pidTiltGain));
    b.control.setNextResponder(&next);
    press(b.control, b.inside);
    drag(b.control, b.inside);
    release(b.control, b.inside);
    b.control.scrollWheel(eventAt(EventType::scrollWheel, b.control, b.inside));
    EXPECT_EQ(next.downs, 1);
    EXPECT_EQ(next.others, 0);
}

TEST(QVMFloatControl, TheContextMenuItemsResetConvertAndAskForDocumentation) {
    struct Delegate : GestureRecord {
        using GestureRecord::GestureRecord;
        void floatControlWantsToPerformStaticConversion(QVMFloatControl&, std::int32_t value) override {
            lines.push_back("convert " + std::to_string(value));
        }
        void floatControlHasRequestedDocumentation(QVMFloatControl&) override { lines.push_back("document"); }
    };
    const QVMParameter parameter = parameterLike(pidTiltGain);
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
    Bench b(parameterLike(pidTiltGain));
    b.control.handleMetaActionWithEvent(0, nullptr);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].substr(0, 9), "unhandled");
}

TEST(QVMFloatControl, TheFocusBorderStandsOutsideTheFrameItIsGiven) {
    Bench b(parameterLike(pidTiltGain));
    b.control.animateHighlightToFramePositionRoundingInset({0, 0, 100, 20}, {}, 0.2, true);
    EXPECT_EQ(b.control.highlight()->frame(), (Rect{-4, -3, 108, 26}));
    EXPECT_DOUBLE_EQ(b.control.highlight()->rounding(), 13); // a fraction is at least one half
    b.control.animateHighlightToFramePositionRoundingInset({0, 0, 100, 20}, {}, 4, false);
    EXPECT_EQ(b.control.highlight()->frame(), (Rect{0, 0, 100, 20}));
    EXPECT_DOUBLE_EQ(b.control.highlight()->rounding(), 4);
}

TEST(QVMFloatControl, AnotherFocusShapeHasCornersOfSixPoints) {
    Bench b(parameterLike(pidTiltGain, [](QVMParameter& p) { p.controlFocusShape = 1; }));
    b.control.animateHighlightToFramePositionRoundingInset({0, 0, 100, 20}, {}, 0.5, true);
    EXPECT_DOUBLE_EQ(b.control.highlight()->rounding(), 6);
}

TEST(QVMFloatControl, BeingHighlitShowsTheFocusBorderInTheParametersColour) {
    Bench b(parameterLike(pidTiltGain));
    EXPECT_DOUBLE_EQ(b.control.highlight()->opacity(), 0);
    b.control.setHighlit(true);
    EXPECT_DOUBLE_EQ(b.control.highlight()->opacity(), 1);
    EXPECT_EQ(b.control.highlight()->strokeNSColor(), QVMCGColor(b.parameter.color));
    b.control.setHighlit(false);
    EXPECT_DOUBLE_EQ(b.control.highlight()->opacity(), 0);
    EXPECT_FALSE(b.control.layer()->masksToBounds());
}

TEST(QVMFloatControl, AReplayedEventKeepsItsSourceAndIsMarked) {
    Bench b(parameterLike(pidTiltGain));
    const QVMEvent event(eventAt(EventType::mouseDown, b.control, {30, 7}, kShift), b.control);
    EXPECT_EQ(event.point, (Point{30, 7})); // y up, as in the control
    EXPECT_FALSE(event.simulated);
    const QVMEvent moved = event.adjustedToPoint({1, 2});
    EXPECT_EQ(moved.point, (Point{1, 2}));
    EXPECT_TRUE(moved.simulated);
    EXPECT_TRUE(moved.nsEvent.has(kShift));
}

TEST(QVMFloatControl, ClearingHalfTypedTextIsHarmlessOnControlsThatShowNone) {
    Bench b(parameterLike(pidTiltGain));
    QVMTransientBufferDisplayClear(nullptr);
    QVMTransientBufferDisplayClear(&b.control);
    EXPECT_THAT(b.record.lines, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
