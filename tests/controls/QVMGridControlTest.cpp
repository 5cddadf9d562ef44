#include "controls/QVMGridControl.h"

#include "controls/Gestures.h"
#include "controls/QVMFocusBorder.h"
#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kWholeNumber = 4; // its text is "%1.0f"

// Sixteen values in a field as wide as high: rows of four.
class QVMGridControlTest : public testing::Test {
protected:
    VirtualTime time;
    QVMParameter parameter = parameterLike(kWholeNumber, [](QVMParameter& p) {
        p.unit = QVMUnitIndexed;
        p.minValue = 0;
        p.maxValue = 15;
    });
    QVMGridControl control{{0, 0, 120, 140}, parameter};
    GestureRecord record{control};
};

TEST_F(QVMGridControlTest, TheSquaresStandAboveAStripForTheText) {
    EXPECT_EQ(control.calculatedSquares(), (Rect{0, 28, 120, 108}));
    EXPECT_EQ(control.strValueRect(), (Rect{0, 4, 120, 24}));
    ASSERT_EQ(control.squares().size(), 16u);
    for (const Rect& square : control.squares())
        EXPECT_TRUE(control.calculatedSquares().contains(square));
    control.setFrame({0, 0, 120, 20});
    EXPECT_EQ(control.strValueRect(), (Rect{0, 4, 120, 12})) << "at most 24 points";
    EXPECT_EQ(control.calculatedSquares().height, 0);
}

TEST_F(QVMGridControlTest, ValuesRunInRowsFromTheTopLeft) {
    EXPECT_EQ(control.square(), 4);
    const std::vector<Rect>& squares = control.squares();
    EXPECT_GT(squares[1].x, squares[0].x);
    EXPECT_EQ(squares[3].y, squares[0].y);
    EXPECT_LT(squares[4].y, squares[0].y) << "y grows upwards";
    EXPECT_EQ(squares[4].x, squares[0].x);
    for (std::size_t i = 0; i < squares.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_FALSE(squares[i].intersects(squares[k])) << i << " and " << k;
}

TEST_F(QVMGridControlTest, PressingAndSweepingTakeTheSquareUnderThePointer) {
    press(control, control.squares()[5].center());
    EXPECT_EQ(control.floatValue(), 5);
    drag(control, control.squares()[14].center());
    EXPECT_EQ(control.floatValue(), 14);
    release(control, control.squares()[14].center());
    EXPECT_THAT(record.lines, ElementsAre("action 5", "began", "action 14", "ended"));
}

TEST_F(QVMGridControlTest, APointerOutsideEverySquareKeepsTheCurrentValue) {
    control.setFloatValue(6);
    for (const Point point : {Point{-50, 60}, Point{60, 5}, Point{500, 500}}) {
        const QVMEvent event(eventAt(EventType::mouseDown, control, point), control);
        EXPECT_EQ(control.indexValueForEvent(event), 6);
        press(control, point);
        EXPECT_EQ(control.floatValue(), 6);
    }
    control.setFloatValue(6.9f);
    EXPECT_EQ(control.indexValueForEvent(QVMEvent(eventAt(EventType::mouseDown, control, {-5, 0}), control)), 6)
        << "a whole number, toward zero";
}

TEST_F(QVMGridControlTest, TheUpArrowOnTheFirstRowGivesZero) {
    control.setFloatValue(2);
    EXPECT_EQ(control.incrementedValueForArrowGranularity(Key::up, QVMGranularityNormal), -2);
    control.incrementWithArrowGranularity(Key::up, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 0);
    control.incrementWithArrowGranularity(Key::up, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 0);
}

TEST_F(QVMGridControlTest, TheArrowsUpAndDownGoByRowsTheOthersByOne) {
    control.setFloatValue(5);
    control.incrementWithArrowGranularity(Key::down, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 9);
    control.incrementWithArrowGranularity(Key::up, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 5);
    control.incrementWithArrowGranularity(Key::right, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 6);
    control.incrementWithArrowGranularity(Key::left, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 5);
    EXPECT_EQ(record.lines.size(), 8u) << "an action and a discrete interaction each";
}

TEST_F(QVMGridControlTest, TheDownArrowOnTheLastRowStopsAtTheMaximum) {
    control.setFloatValue(13);
    control.incrementWithArrowGranularity(Key::down, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 15);
}

TEST_F(QVMGridControlTest, ShowsTheValueAndGlidesToItsSquare) {
    control.setFloatValue(5);
    EXPECT_EQ(control.strValue()->string().string(), "5");
    EXPECT_EQ(control.strValue()->alignment(), QVMGridControl::centeredStyle());
    EXPECT_NE(control.current()->presentation().position, control.squares()[5].center());
    time.advance(0.11);
    EXPECT_EQ(control.current()->presentation().position, control.squares()[5].center());
    EXPECT_EQ(control.current()->frame(), control.squares()[5]);
    EXPECT_THAT(record.lines, IsEmpty());
}

TEST_F(QVMGridControlTest, AValueWithoutASquareShowsNone) {
    control.setFloatValue(40);
    EXPECT_TRUE(control.current()->isHidden());
    control.setFloatValue(3);
    EXPECT_FALSE(control.current()->isHidden());
    EXPECT_EQ(control.current()->frame(), control.squares()[3]);
}

TEST_F(QVMGridControlTest, AWideFieldHasLongRows) {
    control.setFrame({0, 0, 400, 80});
    EXPECT_GT(control.square(), 4);
    for (const Rect& square : control.squares()) {
        EXPECT_TRUE(control.calculatedSquares().contains(square));
        EXPECT_EQ(square.width, square.height);
    }
}

TEST_F(QVMGridControlTest, TheHighlightLayersOpacityFollowsTheFlag) {
    control.setHighlit(true);
    EXPECT_EQ(control.highlight()->opacity(), 1);
    EXPECT_TRUE(control.highlight()->frame().contains(control.bounds()));
    control.setHighlit(false);
    EXPECT_EQ(control.highlight()->opacity(), 0);
}

TEST_F(QVMGridControlTest, ADisabledGridIsFaintAndIgnoresThePointer) {
    control.setPreventInteraction(true);
    press(control, control.squares()[7].center());
    EXPECT_EQ(control.floatValue(), 0);
    EXPECT_LT(control.alpha(), 1);
}

TEST_F(QVMGridControlTest, FollowsTheThemeAndStaysLegible) {
    const auto contrast = [this] {
        return contrastRatio(control.strValue()->string().runs.at(0).color, control.bg()->look().backgroundColor());
    };
    EXPECT_GE(contrast(), minimumTextContrast);
    const DarkTheme dark;
    EXPECT_EQ(control.bg()->look().backgroundColor(), QVMUITheme::dark().palette.boxFill);
    EXPECT_GE(contrast(), minimumTextContrast);
    EXPECT_GE(contrastRatio(control.current()->look().backgroundColor(), QVMUITheme::dark().backgroundColor), 1.5)
        << "the square that is taken is seen among the others";
}

TEST_F(QVMGridControlTest, HoveringRasterisesTheFieldNotAgain) {
    const auto field = control.layer()->tree().sublayers()[1];
    const auto before = field->look().version();
    control.mouseMoved(eventAt(EventType::mouseMoved, control, control.squares()[3].center()));
    EXPECT_EQ(control.layer()->tree().sublayers()[3]->opacity(), 1);
    EXPECT_EQ(control.layer()->tree().sublayers()[3]->frame(), control.squares()[3]);
    pointAway(control);
    EXPECT_EQ(control.layer()->tree().sublayers()[3]->opacity(), 0);
    control.setFloatValue(9);
    EXPECT_EQ(field->look().version(), before);
}

} // namespace
} // namespace QVM_NAMESPACE
