#include "editor/surface/CurveNumbersFixture.h"
#include "platform/view/Menu.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

using CurveNumbersGestures = CurveNumbersFixture;

TEST_F(CurveNumbersGestures, ACornerIsLitWhileThePointerIsOverItAndNotOnceItHasMovedAway) {
    const Point at = middleOf(corner(pidTiltRangeLow));
    pointTo(at);
    EXPECT_TRUE(handle(pidTiltRangeLow).isHovered());
    EXPECT_FALSE(handle(pidTiltRangeHigh).isHovered());
    pointTo({100, 150});
    EXPECT_FALSE(handle(pidTiltRangeLow).isHovered());
    pointTo(at);
    hostSets(pidTiltRangeLow, GetParameter(pidTiltRangeLow)->reverseCastValue(500));
    frames(0.2);
    EXPECT_FALSE(handle(pidTiltRangeLow).isHovered()) << "the pointer rests where it was";
    press(middleOf(corner(pidTiltRangeLow)));
    dragTo({160, 100});
    release({160, 100});
    EXPECT_TRUE(handle(pidTiltRangeLow).isHovered()) << "it came along";
    pointOut();
    EXPECT_FALSE(handle(pidTiltRangeLow).isHovered());
}

TEST_F(CurveNumbersGestures, ADragOfACornerIsOneGestureOfItsParameter) {
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    dragTo({at.x + 20, at.y});
    frame();
    dragTo({at.x + 40, at.y + 30});
    frame();
    release({at.x + 40, at.y + 30});
    frames(0.2);
    EXPECT_THAT(delegate_.calls, ElementsAre("began 2", "updated 2", "updated 2", "ended 2"));
    const double reached = scale().hertzAt(scale().xOf(20) + 40);
    EXPECT_NEAR(memoized(pidTiltRangeLow), reached, 1);
    EXPECT_EQ(control(pidTiltRangeLow).floatValue(), memoized(pidTiltRangeLow)) << "the slider shows it";
    EXPECT_TRUE(ui_->sketch()->vizVisible()) << "it was no click on the curve";
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameCompact);
    EXPECT_NEAR(middleOf(corner(pidTiltRangeLow)).x, at.x + 40, 1);
}

TEST_F(CurveNumbersGestures, TheWholeDragIsOneStepBack) {
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    for (int i = 1; i <= 40; ++i) {
        dragTo({at.x + i, at.y});
        frames(0.05);
    }
    release({at.x + 40, at.y});
    frames(1);
    ui_->keyboard().keyboardShortcutUndo();
    frames(1);
    EXPECT_EQ(memoized(pidTiltRangeLow), 20);
    EXPECT_NEAR(middleOf(corner(pidTiltRangeLow)).x, at.x, 0.5);
}

TEST_F(CurveNumbersGestures, ThePartnerIsPushedAnOctaveAway) {
    hostSets(pidTiltRangeHigh, GetParameter(pidTiltRangeHigh)->reverseCastValue(1000));
    frames(1);
    delegate_.calls.clear();
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    dragTo({at.x + scale().xOf(800) - scale().xOf(20), at.y});
    frames(0.1);
    EXPECT_NEAR(memoized(pidTiltRangeLow), 800, 2);
    EXPECT_EQ(memoized(pidTiltRangeHigh), 2 * memoized(pidTiltRangeLow));
    EXPECT_NEAR(middleOf(corner(pidTiltRangeHigh)).x, scale().xOf(double{memoized(pidTiltRangeHigh)}), 1);
    release(at);
    EXPECT_THAT(delegate_.calls, ElementsAre("began 2", "updated 2", "updated 3", "ended 2"));
}

TEST_F(CurveNumbersGestures, AValueOfTheHostsDoesNotTakeACornerOutOfTheHand) {
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    dragTo({at.x + 20, at.y});
    const float held = handle(pidTiltRangeLow).floatValue();
    hostSets(pidTiltRangeLow, GetParameter(pidTiltRangeLow)->reverseCastValue(30));
    EXPECT_EQ(handle(pidTiltRangeLow).floatValue(), held);
    release({at.x + 20, at.y});
    frames(0.1);
    EXPECT_EQ(handle(pidTiltRangeLow).floatValue(), 30) << "but then it shows what is";
}

TEST_F(CurveNumbersGestures, APressThatIsTakenAwayEndsTheGestureAndLeavesTheCurve) {
    const Point at = middleOf(corner(pidTiltRangeLow));
    press(at);
    dragTo({at.x + 20, at.y});
    window_.cancelPress();
    EXPECT_EQ(delegate_.calls.back(), "ended 2");
    EXPECT_TRUE(ui_->sketch()->vizVisible());
    press({100, 150});
    window_.cancelPress();
    EXPECT_TRUE(ui_->sketch()->vizVisible());
}

TEST_F(CurveNumbersGestures, AClickBesideTheCornersHidesTheCurveWithAllOfThemAndAnotherShowsThem) {
    click({100, 150});
    EXPECT_FALSE(ui_->sketch()->vizVisible());
    EXPECT_TRUE(numbers().isHidden());
    EXPECT_EQ(window_.hitTest(middleOf(corner(pidTiltRangeLow))), ui_->sketch()) << "no corner is in the way";
    click(middleOf(corner(pidTiltRangeLow)));
    EXPECT_TRUE(ui_->sketch()->vizVisible());
    EXPECT_FALSE(numbers().isHidden());
}

TEST_F(CurveNumbersGestures, ADragThatMissesTheCornersLeavesTheCurveAsItIs) {
    const Point disc = middleOf(corner(pidTiltRangeLow));
    for (const Point missed : {Point{disc.x + CurveCorner::hitSize, disc.y}, Point{100, 150}}) {
        press(missed);
        for (int i = 1; i <= 10; ++i)
            dragTo({missed.x + i, missed.y});
        release({missed.x + 10, missed.y});
        EXPECT_TRUE(ui_->sketch()->vizVisible()) << missed.x;
        press(missed);
        dragTo({missed.x + 30, missed.y});
        dragTo(missed);
        release(missed);
        EXPECT_TRUE(ui_->sketch()->vizVisible()) << "there and back, " << missed.x;
    }
    EXPECT_EQ(memoized(pidTiltRangeLow), 20);
    press({100, 150});
    dragTo({101, 151});
    release({101, 151});
    EXPECT_FALSE(ui_->sketch()->vizVisible()) << "a hand that trembles still clicks";
}

TEST_F(CurveNumbersGestures, ACornerIsTakenFromTwelvePointsAwayWhereNothingElseIs) {
    hostSets(pidTiltRangeLow, GetParameter(pidTiltRangeLow)->reverseCastValue(200));
    frames(1);
    const Point middle = middleOf(corner(pidTiltRangeLow));
    for (const std::uint32_t other : {pidTiltRangeHigh, pidFilterRangeLow, pidFilterRangeHigh})
        ASSERT_GT(std::abs(middleOf(corner(other)).x - middle.x), 24) << other;
    for (const Point off : {Point{-11.5, 0}, Point{11.5, 0}, Point{0, -11.5}, Point{0, 11.5}, Point{8, 8}})
        EXPECT_EQ(window_.hitTest(middle + off), &handle(pidTiltRangeLow)) << off.x << ", " << off.y;
    EXPECT_NE(window_.hitTest(middle + Point{13, 0}), &handle(pidTiltRangeLow));
}

TEST_F(CurveNumbersGestures, ADoubleClickBesideTheCornersLeadsBackAndOneOnACornerDoesNot) {
    Event second = mouseEvent(EventType::mouseDown, middleOf(corner(pidTiltRangeLow)));
    second.clickCount = 2;
    window_.sendEvent(second);
    window_.sendEvent(mouseEvent(EventType::mouseUp, second.locationInWindow));
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameCompact);
    EXPECT_EQ(readout().content().frequency, "|") << "it opens an empty field, as on a slider";
    second.locationInWindow = {100, 150};
    window_.sendEvent(second);
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal);
}

TEST_F(CurveNumbersGestures, ADoubleClickThatLeadsBackHidesNothingHoweverItsFirstClickTrembled) {
    for (const double tremble : {0.0, 3.0, 6.0}) {
        ui_->requestFrame(QVMAltFrameCompact);
        press({100, 150});
        dragTo({100 + tremble, 150});
        release({100 + tremble, 150});
        Event second = mouseEvent(EventType::mouseDown, {100, 150});
        second.clickCount = 2;
        window_.sendEvent(second);
        release({100, 150});
        EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal) << tremble;
        EXPECT_TRUE(ui_->sketch()->vizVisible()) << tremble;
    }
}

TEST_F(CurveNumbersGestures, AContextMenuOnACornerIsAboutItsParameter) {
    Event event = mouseEvent(EventType::rightMouseDown, middleOf(corner(pidTiltRangeHigh)));
    const auto menu = ui_->menuForEvent(event);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(ui_->lastRightClickedControl(), &corner(pidTiltRangeHigh));
}

TEST_F(CurveNumbersGestures, AFilterThatIsOffWaitsAtTheEdgeAndSaysSo) {
    const Point at = middleOf(corner(pidFilterRangeLow));
    EXPECT_LT(at.x, 10);
    EXPECT_TRUE(handle(pidFilterRangeLow).isOff());
    pointTo(at);
    EXPECT_EQ(readout().content().frequency, "Off");
    EXPECT_EQ(readout().content().level, "");
    press(at);
    dragTo({at.x + 60, at.y});
    frames(0.2);
    release({at.x + 60, at.y});
    EXPECT_NEAR(memoized(pidFilterRangeLow), scale().hertzAt(60), 1);
    EXPECT_FALSE(handle(pidFilterRangeLow).isOff());
}

} // namespace
} // namespace QVM_NAMESPACE
