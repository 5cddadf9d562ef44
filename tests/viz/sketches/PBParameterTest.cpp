#include "viz/sketches/PBParameter.h"

#include "controls/QVMVerticalSlider.h"
#include "description/Description.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(PBSketches, AreTheCurveInThePowerBoxAndTheMeterOverTheGainSlider) {
    ASSERT_EQ(PB_Sketches.size(), 2u);
    EXPECT_EQ(PB_Sketches[0], (PBSketch{0, -1, {4, 196, 54, 62}, true, {1, 1, 1}, false}));
    EXPECT_EQ(PB_Sketches[1], (PBSketch{1, 7, {321, 0, 97, 217}, false, {0.5764706f, 0.5215687f, 0.5254902f}, false}));
    // The meter's colour is that of its parameter.
    EXPECT_EQ(HexTextFromColor({PB_Sketches[1].color.r, PB_Sketches[1].color.g, PB_Sketches[1].color.b, 1}), "#938586");
}

TEST(PBParameters, RepeatTheDescription) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        const PBParameter& row = PB_Parameters[pid];
        EXPECT_EQ(row.defaultValue, parameter.initialValue) << pid;
        EXPECT_EQ(row.minValue, parameter.minValue) << pid;
        EXPECT_EQ(row.maxValue, parameter.maxValue) << pid;
        EXPECT_EQ(row.unit, parameter.unit) << pid;
        EXPECT_EQ(row.controlType, parameter.controlType) << pid;
        EXPECT_EQ(row.color, parameter.color.rgb()) << pid;
        EXPECT_EQ((row.flags & PBParameterHorizontal) != 0, parameter.horizontal) << pid;
        EXPECT_EQ((row.flags & PBParameterLogarithmic) != 0, parameter.logarithmic) << pid;
        EXPECT_EQ(row.frame.w, parameter.frame.width) << pid;
        EXPECT_EQ(row.frame.y, parameter.frame.y) << pid;
    }
}

class MeterTrack : public testing::Test {
protected:
    const QVMParameter& parameter = *GetParameter(pidOutputGain);
    QVMVerticalSlider slider{{0, 0, parameter.controlFrame.width, parameter.controlFrame.height}, parameter};
    const PBRect& track = PB_Parameters[pidOutputGain].track;
};

TEST_F(MeterTrack, AValueStandsAtTheSameHeightOnMeterAndSlider) {
    for (float value = -96; value <= 12; value += 0.5f) {
        const float fill = parameter.percentageFromFloatValue(value);
        EXPECT_NEAR(track.y + track.h * fill, slider.layers().axis().positionAt(fill), 1e-3) << value;
    }
    EXPECT_EQ(track.y, slider.lowest());
    EXPECT_EQ(track.y + track.h, slider.highest());
}

TEST_F(MeterTrack, TwoChannelsStandCentredInsideTheGroove) {
    const Rect groove = slider.layers().trackRect();
    const double left = track.x - 0.5 * track.w, right = track.x + 1.5 * track.w;
    EXPECT_EQ((left + right) / 2, groove.midX());
    EXPECT_GT(left, groove.minX());
    EXPECT_LT(right, groove.maxX());
    EXPECT_EQ(track.w, 6);
}

TEST_F(MeterTrack, TheMetersSketchCoversTheSlider) {
    const PBRect& outer = PB_Sketches[1].outer;
    EXPECT_EQ(outer.w, parameter.frame.width);
    EXPECT_EQ(outer.h, parameter.frame.height);
    EXPECT_EQ(outer.x, parameter.clump->frame.x + parameter.frame.x);
    EXPECT_EQ(outer.y, parameter.clump->frame.y + parameter.frame.y);
}

} // namespace
} // namespace QVM_NAMESPACE
