#include "controls/QVMToggleControl.h"

#include "controls/Gestures.h"
#include "controls/QVMFocusBorder.h"
#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kListen = 13, kLoudness = 6;
constexpr Rect kFrame = {0, 0, 160, 26};

// A switch: two segments, 80 points each.
class Switch : public testing::Test {
protected:
    VirtualTime time;
    QVMParameter parameter = parameterLike(kListen);
    QVMToggleControl control{kFrame, parameter};
    GestureRecord record{control};
};

// Four segments, 40 points each.
class Row : public testing::Test {
protected:
    VirtualTime time;
    QVMParameter parameter = parameterLike(kLoudness);
    QVMToggleControl control{kFrame, parameter};
    GestureRecord record{control};

    std::string label(std::size_t i) const { return control.values()[i]->label()->string().string(); }
};

using QVMToggleControlSwitch = Switch;
using QVMToggleControlRow = Row;

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
    auto lost = std::make_unique<QVMToggleControl>(kFrame, parameter);
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

TEST_F(QVMToggleControlRow, ShowsEveryValueByNameAndWhichIsTaken) {
    ASSERT_EQ(control.values().size(), 4u);
    EXPECT_EQ(label(0), "Auto");
    EXPECT_EQ(label(3), "Bass");
    control.setFloatValue(2);
    time.advance(0.2);
    EXPECT_EQ(control.selected(), 2);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(control.values()[i]->isSelected(), i == 2) << i;
    EXPECT_TRUE(control.rValuesOriginal()[2].contains(control.selection()->frame()));
    EXPECT_THAT(record.lines, IsEmpty()) << "a value from the model is not reported";
}

TEST_F(QVMToggleControlRow, TheSelectionIsRoundAtItsEnds) {
    control.setFloatValue(2);
    const Rect frame = control.selection()->frame();
    EXPECT_EQ(control.selection()->cornerRadius(), std::min(frame.width, frame.height) / 2);
}

TEST_F(QVMToggleControlRow, TheSelectionGlidesToItsSegment) {
    control.setFloatValue(3);
    const double start = control.selection()->presentation().position.x;
    time.advance(0.05);
    EXPECT_GT(control.selection()->presentation().position.x, start);
    EXPECT_LT(control.selection()->presentation().position.x, control.selection()->position().x);
    time.advance(0.06);
    EXPECT_EQ(control.selection()->presentation().position.x, control.selection()->position().x);
}

TEST_F(QVMToggleControlRow, AValueWithoutASegmentShowsNoSelection) {
    control.setFloatValue(9);
    EXPECT_EQ(control.selected(), -1);
    EXPECT_TRUE(control.selection()->isHidden());
    control.setFloatValue(1);
    EXPECT_FALSE(control.selection()->isHidden());
}

TEST_F(QVMToggleControlRow, LinesSeparateSegmentsThatTheSelectionDoesNotTouch) {
    control.setFloatValue(0);
    std::vector<bool> separated;
    for (const QVMToggleSegment* segment : control.values())
        separated.push_back(segment->isSeparated());
    EXPECT_THAT(separated, ElementsAre(false, false, true, true));
}

TEST_F(QVMToggleControlRow, SegmentsFillTheWidthInWholePoints) {
    control.setFrame({0, 0, 161, 26});
    double x = 0;
    for (const Rect& segment : control.rValuesOriginal()) {
        EXPECT_EQ(segment.x, x);
        EXPECT_EQ(segment.x, std::round(segment.x));
        x = segment.maxX();
    }
    EXPECT_EQ(x, 161);
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

TEST_F(QVMToggleControlRow, FocusStandsAroundTheRow) {
    control.setHighlit(true);
    EXPECT_EQ(control.highlight()->frame(), (Rect{-4, -3, 168, 32}));
    EXPECT_EQ(control.highlight()->opacity(), 1);
    control.setHighlit(false);
    EXPECT_EQ(control.highlight()->opacity(), 0);
}

TEST_F(QVMToggleControlRow, TextsAreLegibleInBothThemes) {
    const auto check = [this] {
        for (const QVMToggleSegment* segment : control.values()) {
            const Color below =
                segment->isSelected() ? control.selection()->backgroundColor() : control.bg()->backgroundColor();
            EXPECT_GE(contrastRatio(segment->label()->string().runs.at(0).color, below), minimumTextContrast)
                << segment->text();
        }
    };
    check();
    const DarkTheme dark;
    EXPECT_EQ(control.bg()->backgroundColor(), QVMUITheme::dark().palette.boxFill);
    check();
}

TEST_F(QVMToggleControlRow, HoveringShowsOnTheSegmentUnderThePointerOnlyAndRasterisesNoText) {
    const auto before = control.values()[2]->label()->contentVersion();
    control.mouseMoved(eventAt(EventType::mouseMoved, control, {90, 13}));
    const Layer& hover = *control.layer()->sublayers()[1];
    EXPECT_EQ(hover.opacity(), 1);
    EXPECT_TRUE(control.rValuesOriginal()[2].contains(hover.frame()));
    control.mouseMoved(eventAt(EventType::mouseMoved, control, {5, 13}));
    EXPECT_EQ(hover.opacity(), 0) << "the one that is taken has nothing to offer";
    control.mouseMoved(eventAt(EventType::mouseMoved, control, {50, 13}));
    EXPECT_EQ(hover.opacity(), 1);
    pointAway(control);
    EXPECT_EQ(hover.opacity(), 0);
    EXPECT_EQ(control.values()[2]->label()->contentVersion(), before);
}

TEST_F(QVMToggleControlSwitch, ShowsIconsWhereTheValuesHaveThem) {
    ASSERT_EQ(control.values().size(), 2u);
    EXPECT_EQ(control.values()[0]->label()->string().string(), "\uE219");
}

} // namespace
} // namespace QVM_NAMESPACE
