// The slider's fine drag: relative, and slower than the pointer.
#include "controls/SliderFixture.h"

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t kCommand = EventModifier::command;

using QVMVerticalSliderFineDragTest = SliderFixture;

TEST_F(QVMVerticalSliderFineDragTest, HoldingCommandInMidDragReanchorsWithoutAJump) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 0);
    press(slider, at(slider, 137 + 10));
    drag(slider, at(slider, 137 + 10 + 66));
    const float before = slider.floatValue();
    drag(slider, at(slider, 137 + 10 + 66), kCommand);
    EXPECT_NEAR(slider.floatValue(), before, 0.05);
}

TEST_F(QVMVerticalSliderFineDragTest, ReleasingCommandReturnsToAbsoluteTracking) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 0);
    press(slider, at(slider, 137 + 10));
    drag(slider, at(slider, 137 + 10), kCommand);
    drag(slider, at(slider, 137 + 10 + 60), kCommand);
    EXPECT_LT(slider.floatValue(), 2);
    drag(slider, at(slider, 137 + 10 + 60)); // to the pointer minus the grab offset
    EXPECT_FLOAT_EQ(slider.floatValue(), valueAt(slider, 137 + 60, 0));
}

TEST_F(QVMVerticalSliderFineDragTest, AFineDragMovesOneSixthOfTheWayWhereStepsAreWiderThanPoints) {
    // 360 fine steps on 238 points: min(238 / 360, 1) / 6 of the pointer's way.
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    const double expected = 238.0 / 360 / 6;
    EXPECT_NEAR(slider.diffMultForGranularityFloatValue(1, 0), expected, 1e-6);
    EXPECT_DOUBLE_EQ(slider.diffMultForGranularityFloatValue(0, 0), 1);
    EXPECT_DOUBLE_EQ(slider.diffMultForGranularityFloatValue(2, 0), 1);
    show(slider, 0);
    press(slider, at(slider, 137));
    for (int i = 0; i <= 60; ++i)
        drag(slider, at(slider, 137 + i), kCommand);
    EXPECT_NEAR(slider.floatValue(), 60.0 / 238 * expected * 36, 0.06);
    EXPECT_NEAR(slider.floatValue(), 1.0, 0.06); // one step about every 6 points
}

TEST_F(QVMVerticalSliderFineDragTest, TheFineMultiplierAboveTenKilohertzCountsStepsOfAHundred) {
    const QVMParameter parameter = parameterLike(pidFilterRangeLow, [](QVMParameter& p) {
        p.fineGranularity = 1;
        p.logarithmic = false;
    });
    const QVMVerticalSlider slider(kMember, parameter);
    const double slowed = std::min(238 / (23996 / 1.0), 1.0) / 6;
    EXPECT_NEAR(slider.diffMultForGranularityFloatValue(1, 12000), 100 * slowed, 1e-6);
    EXPECT_NEAR(slider.diffMultForGranularityFloatValue(1, 5000), 10 * slowed, 1e-6);
}

TEST_F(QVMVerticalSliderFineDragTest, TheFineMultiplierOfALogarithmicParameterIsEvenInValue) {
    const QVMVerticalSlider slider(kMember, *GetParameter(pidTiltRangeLow));
    const double span = 23990, logSpan = std::log(2400.0);
    const double step = 0.1f; // at 500 Hz; the least there is 10 Hz
    const double expected = span / (logSpan * 500) * (10 / step) * std::min(238 / (span / step), 1.0) / 6;
    EXPECT_NEAR(slider.diffMultForGranularityFloatValue(1, 500), expected, expected * 1e-5);
}

TEST_F(QVMVerticalSliderFineDragTest, ADragThatStartsWithCommandMovesByThePointersWayOnly) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 3);
    press(slider, at(slider, slider.handleValue() + 25), kCommand);
    drag(slider, at(slider, slider.handleValue() + 25), kCommand);
    EXPECT_NEAR(slider.floatValue(), 3, 0.08);
}

} // namespace
} // namespace QVM_NAMESPACE
