// What a toggle does with presses, sweeps and keys.
#include "controls/ToggleFixture.h"
#include "platform/view/Window.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

using QVMToggleControlSwitch = ToggleSwitch;
using QVMToggleControlRow = ToggleRow;

TEST_F(QVMToggleControlSwitch, AQuickClickFlipsItExactlyOnceWhereverItLands) {
    press(control, {10, 13});
    EXPECT_EQ(control.floatValue(), 0) << "not on the press";
    time.advance(0.1);
    release(control, {10, 13});
    EXPECT_EQ(control.floatValue(), 1);
    time.advance(1);
    EXPECT_EQ(control.floatValue(), 1);
    EXPECT_THAT(record.lines, ElementsAre("began", "action 1", "ended"));
    press(control, {10, 13});
    release(control, {10, 13});
    EXPECT_EQ(control.floatValue(), 0);
}

TEST_F(QVMToggleControlSwitch, APressHeldPastAFifthOfASecondSelectsTheSegmentUnderThePointerInstead) {
    press(control, {120, 13});
    time.advance(0.19);
    EXPECT_EQ(control.floatValue(), 0);
    EXPECT_FALSE(control.didDrag());
    time.advance(0.02);
    EXPECT_EQ(control.floatValue(), 1);
    EXPECT_TRUE(control.didDrag());
    EXPECT_TRUE(control.sweeping());
    release(control, {120, 13});
    EXPECT_EQ(control.floatValue(), 1) << "the release does not flip it back";
    EXPECT_THAT(record.lines, ElementsAre("began", "action 1", "ended"));
    EXPECT_FALSE(control.sweeping());

    record.lines.clear();
    press(control, {120, 13});
    time.advance(0.3);
    release(control, {120, 13});
    EXPECT_EQ(control.floatValue(), 1) << "held on the segment that is taken already";
}

TEST_F(QVMToggleControlSwitch, SweepingSelectsAtOnceWithoutWaiting) {
    press(control, {10, 13});
    drag(control, {130, 13});
    EXPECT_EQ(control.floatValue(), 1);
    drag(control, {20, 13});
    EXPECT_EQ(control.floatValue(), 0);
    release(control, {20, 13});
    EXPECT_EQ(control.floatValue(), 0);
}

TEST_F(QVMToggleControlSwitch, ASweepThatIsHeldStaysWhereThePointerIs) {
    press(control, {10, 13});
    time.advance(0.1);
    drag(control, {130, 13});
    time.advance(0.3);
    EXPECT_EQ(control.floatValue(), 1);
    release(control, {130, 13});
    EXPECT_THAT(record.lines, ElementsAre("began", "action 1", "ended"));
}

TEST_F(QVMToggleControlSwitch, AReleaseWithAKeyHeldLeavesNothingPending) {
    press(control, {120, 13});
    release(control, {120, 13}, EventModifier::option);
    time.advance(1);
    EXPECT_EQ(control.floatValue(), 0);
    EXPECT_THAT(record.lines, ElementsAre("began"));
}

TEST_F(QVMToggleControlSwitch, APressThatIsLostEndsAndChoosesNothing) {
    press(control, {120, 13});
    control.mouseCancelled(eventAt(EventType::mouseCancelled, control, {120, 13}));
    time.advance(1);
    EXPECT_EQ(control.floatValue(), 0);
    EXPECT_THAT(record.lines, ElementsAre("began", "ended"));
    press(control, {120, 13});
    release(control, {120, 13});
    EXPECT_EQ(control.floatValue(), 1) << "the next one is as any";
}

TEST_F(QVMToggleControlSwitch, AnythingButZeroFlipsToZero) {
    control.setFloatValue(0.4f);
    press(control, {10, 13});
    release(control, {10, 13});
    EXPECT_EQ(control.floatValue(), 0);
}

TEST_F(QVMToggleControlSwitch, AControlThatGoesWhileItIsHeldChoosesNothing) {
    ASSERT_FALSE(RunLoop::main().nextDue());
    auto lost = std::make_unique<QVMToggleControl>(kToggleFrame, parameter);
    int choices = 0;
    lost->setAction([&](Control&) { ++choices; });
    press(*lost, {120, 13});
    EXPECT_TRUE(RunLoop::main().nextDue()) << "the hold";
    lost.reset();
    EXPECT_FALSE(RunLoop::main().nextDue()) << "nothing is left that could come to a control that is gone";
    time.advance(1);
    EXPECT_EQ(choices, 0);
}

TEST_F(QVMToggleControlRow, WithMoreThanTwoStatesAClickNeverFlipsButSelectsByPosition) {
    press(control, {90, 13});
    EXPECT_EQ(control.floatValue(), 2) << "on the press";
    release(control, {90, 13});
    EXPECT_EQ(control.floatValue(), 2);
    press(control, {90, 13});
    release(control, {90, 13});
    EXPECT_EQ(control.floatValue(), 2);
    EXPECT_EQ(record.lines.front(), "action 2");
    EXPECT_EQ(record.lines.back(), "ended");
}

TEST_F(QVMToggleControlRow, SweepingFollowsThePointerAndBesideTheRowNothingChanges) {
    press(control, {5, 13});
    drag(control, {50, 40});
    EXPECT_EQ(control.floatValue(), 1) << "only x counts";
    drag(control, {155, 13});
    EXPECT_EQ(control.floatValue(), 3);
    drag(control, {400, 13});
    EXPECT_EQ(control.floatValue(), 3);
    drag(control, {-3, 13});
    EXPECT_EQ(control.floatValue(), 3);
    release(control, {-3, 13});
    EXPECT_EQ(control.floatValue(), 3);
}

TEST_F(QVMToggleControlRow, OnTheLineBetweenTwoSegmentsTheFirstOneCounts) {
    press(control, {40, 13});
    EXPECT_EQ(control.floatValue(), 0);
    drag(control, {40.5, 13});
    EXPECT_EQ(control.floatValue(), 1);
}

TEST_F(QVMToggleControlRow, AfterTheReleaseADragComesTooLate) {
    press(control, {5, 13});
    release(control, {5, 13});
    EXPECT_TRUE(control.caughtUp());
    control.toggleDraggedToPointFromEvent(QVMEvent(eventAt(EventType::mouseDragged, control, {155, 13}), control));
    EXPECT_EQ(control.floatValue(), 0);
}

TEST_F(QVMToggleControlRow, EventsOnASegmentAreTheTogglesOwn) {
    Window window;
    auto& inWindow = window.setContentView(std::make_unique<View>(Rect{0, 0, 200, 100}))
                         .addSubview(std::make_unique<QVMToggleControl>(Rect{10, 10, 160, 26}, parameter));
    EXPECT_EQ(window.contentView()->hitTest({110, 20}), &inWindow);
}

TEST_F(QVMToggleControlRow, ArrowKeysStepAndStopAtTheEnds) {
    control.setFloatValue(3);
    control.incrementWithArrowGranularity(Key::right, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 3);
    control.incrementWithArrowGranularity(Key::left, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 2);
}

TEST_F(QVMToggleControlRow, ADisabledToggleIsFaintAndIgnoresThePointer) {
    control.setPreventInteraction(true);
    press(control, {155, 13});
    EXPECT_EQ(control.floatValue(), 0);
    EXPECT_LT(control.alpha(), 1);
}

} // namespace
} // namespace QVM_NAMESPACE
