#include "controls/QVMNoteSlider.h"

#include "controls/Gestures.h"
#include "controls/QVMFocusBorder.h"
#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QVMNoteSliderTest : public testing::Test {
protected:
    VirtualTime time;
    QVMParameter parameter = parameterLike(pidTiltLoudnessMode, [](QVMParameter& p) {
        p.cueSymbols = {"\uE10B", "\uE10C", "\uE10D", "\uE10E"};
        p.coarseGranularity = 2;
    });
    QVMNoteSlider control{{0, 0, 180, 38}, parameter};
    GestureRecord record{control};

    Point middleOf(std::size_t i) const { return control.symbols()[i]->frame().center(); }
};

TEST_F(QVMNoteSliderTest, OneSymbolAnEntryInCellsOf28By32WithinTheAvailableRectangle) {
    ASSERT_EQ(control.symbols().size(), 4u);
    for (const auto& symbol : control.symbols()) {
        EXPECT_EQ(symbol->frame().size(), (Size{28, 32}));
        EXPECT_TRUE(control.availableRect().contains(symbol->frame()));
        EXPECT_EQ(symbol->alignment(), TextAlignment::center);
        EXPECT_EQ(symbol->string().runs.at(0).font.face, QVMUITheme::iconFontOfSize(12).face);
    }
    EXPECT_EQ(control.symbols()[2]->string().string(), "\uE10D");
    EXPECT_LT(control.symbols()[0]->frame().maxX(), control.symbols()[1]->frame().x + 0.5);
}

TEST_F(QVMNoteSliderTest, PressingAndSweepingTakeTheSymbolUnderThePointer) {
    press(control, middleOf(2));
    EXPECT_EQ(control.floatValue(), 2);
    drag(control, middleOf(3));
    EXPECT_EQ(control.floatValue(), 3);
    drag(control, {500, 10});
    EXPECT_EQ(control.floatValue(), 3) << "beside the row nothing changes";
    release(control, {500, 10});
    EXPECT_THAT(record.lines, ElementsAre("action 2", "began", "action 3", "ended"));
}

TEST_F(QVMNoteSliderTest, ACoarseStepThatWouldLeaveTheRangeIsRefused) {
    control.setFloatValue(2);
    EXPECT_EQ(control.incrementedValueForArrowGranularity(Key::right, QVMGranularityCoarse), 0);
    control.incrementWithArrowGranularity(Key::right, QVMGranularityCoarse);
    EXPECT_EQ(control.floatValue(), 2);
    EXPECT_EQ(control.incrementedValueForArrowGranularity(Key::left, QVMGranularityCoarse), -2);
    control.incrementWithArrowGranularity(Key::left, QVMGranularityCoarse);
    EXPECT_EQ(control.floatValue(), 0);
    control.incrementWithArrowGranularity(Key::down, QVMGranularityCoarse);
    EXPECT_EQ(control.floatValue(), 0);
}

TEST_F(QVMNoteSliderTest, OtherStepsStopAtTheEnds) {
    control.setFloatValue(3);
    EXPECT_EQ(control.incrementedValueForArrowGranularity(Key::right, QVMGranularityNormal), 1);
    control.incrementWithArrowGranularity(Key::right, QVMGranularityNormal);
    EXPECT_EQ(control.floatValue(), 3);
    control.incrementWithArrowGranularity(Key::left, QVMGranularityFine);
    EXPECT_EQ(control.floatValue(), 2);
}

TEST_F(QVMNoteSliderTest, TheSelectionGlidesBehindTheSymbolThatIsTaken) {
    EXPECT_TRUE(control.symbols()[0]->frame().contains(control.selection()->frame()));
    control.setFloatValue(3);
    EXPECT_TRUE(control.selection()->animations().isRunning());
    time.advance(0.11);
    EXPECT_TRUE(control.symbols()[3]->frame().contains(control.selection()->frame()));
    EXPECT_EQ(control.selection()->presentation().position, control.symbols()[3]->position());
    EXPECT_THAT(record.lines, IsEmpty());
    EXPECT_GT(control.selection()->look().cornerRadius(), 0);
    EXPECT_GT(control.selection()->look().borderWidth(), 0);
}

TEST_F(QVMNoteSliderTest, AValueWithoutASymbolShowsNoSelection) {
    control.setFloatValue(11);
    EXPECT_TRUE(control.selection()->isHidden());
    const QVMParameter bare = parameterLike(pidTiltLoudnessMode);
    QVMNoteSlider empty({0, 0, 180, 38}, bare);
    press(empty, {20, 20});
    EXPECT_EQ(empty.floatValue(), 0);
    EXPECT_TRUE(empty.selection()->isHidden());
}

TEST_F(QVMNoteSliderTest, WithTooLittleRoomTheCellsStayInside) {
    control.setFrame({0, 0, 80, 38});
    for (const auto& symbol : control.symbols())
        EXPECT_TRUE(control.availableRect().contains(symbol->frame()));
}

TEST_F(QVMNoteSliderTest, FocusStandsAroundTheRow) {
    control.setHighlit(true);
    EXPECT_EQ(control.highlight()->frame(), (Rect{-4, -3, 188, 44}));
    EXPECT_EQ(control.highlight()->opacity(), 1);
}

TEST_F(QVMNoteSliderTest, ADisabledRowIsFaintAndIgnoresThePointer) {
    control.setPreventInteraction(true);
    press(control, middleOf(2));
    EXPECT_EQ(control.floatValue(), 0);
    EXPECT_LT(control.alpha(), 1);
}

TEST_F(QVMNoteSliderTest, SymbolsAreLegibleInBothThemes) {
    const auto check = [this] {
        for (std::size_t i = 0; i < control.symbols().size(); ++i) {
            const Color below =
                i == 0 ? control.selection()->look().backgroundColor() : control.bg()->look().backgroundColor();
            EXPECT_GE(contrastRatio(control.symbols()[i]->string().runs.at(0).color, below), minimumTextContrast);
        }
    };
    check();
    const DarkTheme dark;
    EXPECT_EQ(control.bg()->look().backgroundColor(), QVMUITheme::dark().backgroundColor);
    check();
}

TEST_F(QVMNoteSliderTest, HoveringShowsOnAnotherSymbolOnlyAndRasterisesNone) {
    const auto& hover = control.layer()->tree().sublayers()[1];
    const auto before = control.symbols()[2]->look().version();
    control.mouseMoved(eventAt(EventType::mouseMoved, control, middleOf(2)));
    EXPECT_EQ(hover->opacity(), 1);
    control.mouseMoved(eventAt(EventType::mouseMoved, control, middleOf(0)));
    EXPECT_EQ(hover->opacity(), 0);
    pointAway(control);
    EXPECT_EQ(control.symbols()[2]->look().version(), before);
}

} // namespace
} // namespace QVM_NAMESPACE
