// Values that come to the slider from elsewhere, and those that wait for its handle.
#include "controls/SliderFixture.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

using testing::IsEmpty;

constexpr std::uint32_t kCommand = EventModifier::command, kOption = EventModifier::option;

using QVMVerticalSliderValuesTest = SliderFixture;

TEST_F(QVMVerticalSliderValuesTest, ValuesFromTheModelGlideAndSendNothing) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 0);
    GestureRecord record(slider);
    slider.setFloatValue(18);
    EXPECT_TRUE(slider.layers().isHandleGliding());
    EXPECT_DOUBLE_EQ(slider.handleValue(), 256);
    EXPECT_LT(slider.readoutBulb()->presentation().position.x, 256);
    time.advance(SliderLayers::glideSeconds + 0.01);
    EXPECT_FALSE(slider.layers().isHandleGliding());
    EXPECT_THAT(record.lines, IsEmpty());
}

TEST_F(QVMVerticalSliderValuesTest, TheFirstValueIsThereAtOnce) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    EXPECT_FALSE(slider.setOnce());
    slider.setFloatValue(18);
    EXPECT_TRUE(slider.setOnce());
    EXPECT_DOUBLE_EQ(slider.handleValue(), 256);
    EXPECT_FALSE(slider.layers().isHandleGliding());
}

TEST_F(QVMVerticalSliderValuesTest, AClickOnTheTrackCountsAsAFirstValueToo) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    press(slider, at(slider, 200));
    EXPECT_TRUE(slider.setOnce());
    EXPECT_FALSE(slider.layers().isHandleGliding()) << "the first";
    release(slider, at(slider, 200));
    press(slider, at(slider, 60));
    EXPECT_TRUE(slider.layers().isHandleGliding()) << "the second";
}

TEST_F(QVMVerticalSliderValuesTest, ValuesFromTheModelDuringADragAreStoredButDoNotMoveTheHandle) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    press(slider, at(slider, slider.handleValue()));
    drag(slider, at(slider, 200));
    const double handle = slider.handleValue();
    slider.setFloatValue(-18);
    EXPECT_FLOAT_EQ(slider.floatValue(), -18);
    EXPECT_DOUBLE_EQ(slider.handleValue(), handle);
}

TEST_F(QVMVerticalSliderValuesTest, AUsersValueWaitsWhileTheHandleIsHeld) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 0);
    press(slider, at(slider, slider.handleValue()));
    const double handle = slider.handleValue();
    slider.setFloatValueFromInteraction(18, ValueOrigin::interaction);
    time.advance(0.35);
    EXPECT_FLOAT_EQ(slider.floatValue(), 18);
    EXPECT_DOUBLE_EQ(slider.handleValue(), handle);
    release(slider, at(slider, handle));
    time.advance(0.1);
    EXPECT_DOUBLE_EQ(slider.handleValue(), 256);
}

TEST_F(QVMVerticalSliderValuesTest, AUsersValueWaitsWhileTheHandleIsGliding) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 0);
    slider.setFloatValue(18);
    time.advance(0.05);
    slider.setFloatValueFromInteraction(-18, ValueOrigin::interaction);
    EXPECT_DOUBLE_EQ(slider.handleValue(), 256);
    time.advance(0.09);
    EXPECT_DOUBLE_EQ(slider.handleValue(), 256);
    time.advance(0.02);
    EXPECT_DOUBLE_EQ(slider.handleValue(), 18);
}

TEST_F(QVMVerticalSliderValuesTest, ANewerValueReplacesOneThatWaits) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    show(slider, 0);
    press(slider, at(slider, 256)); // glides, so its value waits
    release(slider, at(slider, 256));
    slider.setFloatValue(-6);
    time.advance(1);
    EXPECT_FLOAT_EQ(slider.floatValue(), -6);
    EXPECT_DOUBLE_EQ(slider.handleValue(), slider.positionValueFromFloatValue(-6));
}

TEST_F(QVMVerticalSliderValuesTest, OptionClickEndsTheHoldAndReturnsToTheInitialValue) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    press(slider, at(slider, 256));
    drag(slider, at(slider, 250));
    press(slider, at(slider, 250), kOption);
    EXPECT_FALSE(slider.dragging());
    EXPECT_FALSE(slider.writeLocked());
    EXPECT_FLOAT_EQ(slider.floatValue(), 0);
    time.advance(1);
    EXPECT_DOUBLE_EQ(slider.handleValue(), 137);
}

TEST_F(QVMVerticalSliderValuesTest, ValuesThatAreNoNumbersLeaveTheHandleOnTheTrack) {
    QVMVerticalSlider slider(kMember, *GetParameter(pidTiltRangeLow));
    for (const float odd : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                            -std::numeric_limits<float>::infinity(), 0.0f, -5.0f}) {
        show(slider, odd);
        EXPECT_GE(slider.handleValue(), slider.lowest()) << odd;
        EXPECT_LE(slider.handleValue(), slider.highest()) << odd;
        press(slider, at(slider, slider.handleValue()));
        drag(slider, at(slider, slider.handleValue() + 30), kCommand);
        EXPECT_TRUE(std::isfinite(slider.floatValue())) << odd;
        release(slider, at(slider, slider.handleValue()));
    }
}

} // namespace
} // namespace QVM_NAMESPACE
