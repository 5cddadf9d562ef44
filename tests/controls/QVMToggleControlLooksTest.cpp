// What a toggle looks like.
#include "controls/QVMFocusBorder.h"
#include "controls/ToggleFixture.h"
#include "platform/renderer/LayerRenderer.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using QVMToggleControlLooksOfASwitch = ToggleSwitch;
using QVMToggleControlLooksOfARow = ToggleRow;

TEST_F(QVMToggleControlLooksOfARow, ShowsEveryValueByNameAndWhichIsTaken) {
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

TEST_F(QVMToggleControlLooksOfARow, TheSelectionIsRoundAtItsEnds) {
    control.setFloatValue(2);
    const Rect frame = control.selection()->frame();
    EXPECT_EQ(control.selection()->look().cornerRadius(), std::min(frame.width, frame.height) / 2);
}

TEST_F(QVMToggleControlLooksOfARow, TheSelectionGlidesToItsSegment) {
    control.setFloatValue(3);
    const double start = control.selection()->presentation().position.x;
    time.advance(0.05);
    EXPECT_GT(control.selection()->presentation().position.x, start);
    EXPECT_LT(control.selection()->presentation().position.x, control.selection()->position().x);
    time.advance(0.06);
    EXPECT_EQ(control.selection()->presentation().position.x, control.selection()->position().x);
}

TEST_F(QVMToggleControlLooksOfARow, AValueWithoutASegmentShowsNoSelection) {
    control.setFloatValue(9);
    EXPECT_EQ(control.selected(), -1);
    EXPECT_TRUE(control.selection()->isHidden());
    control.setFloatValue(1);
    EXPECT_FALSE(control.selection()->isHidden());
}

TEST_F(QVMToggleControlLooksOfARow, LinesSeparateSegmentsThatTheSelectionDoesNotTouch) {
    control.setFloatValue(0);
    std::vector<bool> separated;
    for (const QVMToggleSegment* segment : control.values())
        separated.push_back(segment->isSeparated());
    EXPECT_THAT(separated, ElementsAre(false, false, true, true));
}

TEST_F(QVMToggleControlLooksOfARow, SegmentsFillTheWidthInWholePoints) {
    control.setFrame({0, 0, 161, 26});
    double x = 0;
    for (const Rect& segment : control.rValuesOriginal()) {
        EXPECT_EQ(segment.x, x);
        EXPECT_EQ(segment.x, std::round(segment.x));
        x = segment.maxX();
    }
    EXPECT_EQ(x, 161);
}

TEST_F(QVMToggleControlLooksOfARow, FocusStandsAroundTheRow) {
    control.setHighlit(true);
    EXPECT_EQ(control.highlight()->frame(), (Rect{-4, -3, 168, 32}));
    EXPECT_EQ(control.highlight()->opacity(), 1);
    control.setHighlit(false);
    EXPECT_EQ(control.highlight()->opacity(), 0);
}

TEST_F(QVMToggleControlLooksOfARow, TextsAreLegibleInBothThemes) {
    const auto check = [this] {
        for (const QVMToggleSegment* segment : control.values()) {
            const Color below = segment->isSelected() ? control.selection()->look().backgroundColor()
                                                      : control.bg()->look().backgroundColor();
            EXPECT_GE(contrastRatio(segment->label()->string().runs.at(0).color, below), minimumTextContrast)
                << segment->text();
        }
    };
    check();
    const DarkTheme dark;
    EXPECT_EQ(control.bg()->look().backgroundColor(), QVMUITheme::dark().palette.boxFill);
    check();
}

TEST_F(QVMToggleControlLooksOfARow, HoveringShowsOnTheSegmentUnderThePointerOnlyAndRasterisesNoText) {
    const auto before = control.values()[2]->label()->look().version();
    control.mouseMoved(eventAt(EventType::mouseMoved, control, {90, 13}));
    const Layer& hover = *control.layer()->tree().sublayers()[1];
    EXPECT_EQ(hover.opacity(), 1);
    EXPECT_TRUE(control.rValuesOriginal()[2].contains(hover.frame()));
    control.mouseMoved(eventAt(EventType::mouseMoved, control, {5, 13}));
    EXPECT_EQ(hover.opacity(), 0) << "the one that is taken has nothing to offer";
    control.mouseMoved(eventAt(EventType::mouseMoved, control, {50, 13}));
    EXPECT_EQ(hover.opacity(), 1);
    pointAway(control);
    EXPECT_EQ(hover.opacity(), 0);
    EXPECT_EQ(control.values()[2]->label()->look().version(), before);
}

TEST_F(QVMToggleControlLooksOfASwitch, ShowsIconsWhereTheValuesHaveThem) {
    ASSERT_EQ(control.values().size(), 2u);
    EXPECT_EQ(control.values()[0]->label()->string().string(), "\uE219");
}

} // namespace
} // namespace QVM_NAMESPACE
