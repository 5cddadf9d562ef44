#include "description/Description.h"
#include "description/QVMParameter.h"

#include <gtest/gtest.h>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

QVMParameter Mode(float highest) {
    QVMParameter parameter;
    parameter.pid = 24; // no mapping of its own
    parameter.unit = QVMUnitIndexed;
    parameter.maxValue = highest;
    parameter.granularity = 1;
    parameter.chanIn = 2;
    parameter.chanOut = 2;
    return parameter;
}

TEST(QVMParameterCycling, ForwardFromTheTopWrapsToTheBottomAndBackwardTheOtherWay) {
    const QVMParameter mode = Mode(3);
    EXPECT_EQ(mode.floatValueAfter(3, true), 0);
    EXPECT_EQ(mode.floatValueAfter(0, false), 3);
    EXPECT_EQ(mode.floatValueAfter(1, true), 2);
    EXPECT_EQ(mode.floatValueAfter(1, false), 0);
}

TEST(QVMParameterCycling, PercentagesStepByTheirGranularity) {
    const QVMParameter* ratio = GetParameter(pidFilterSlopeLinkRatio);
    EXPECT_EQ(ratio->floatValueAfter(99, true), 100);
    EXPECT_EQ(ratio->floatValueAfter(100, true), 0);
    EXPECT_EQ(ratio->floatValueAfter(0, false), 100);
}

TEST(QVMParameterCycling, SwitchesToggleOnTheirWholePart) {
    const QVMParameter* power = GetParameter(pidMasterOnOff);
    for (const bool forward : {true, false}) {
        EXPECT_EQ(power->floatValueAfter(0, forward), 1);
        EXPECT_EQ(power->floatValueAfter(0.9f, forward), 1);
        EXPECT_EQ(power->floatValueAfter(1, forward), 0);
        EXPECT_EQ(GetParameter(pidTiltRangeLink)->floatValueAfter(24000, forward), 0);
    }
}

TEST(QVMParameterCycling, OtherUnitsStayWhereTheyAre) {
    EXPECT_EQ(GetParameter(pidTiltGain)->floatValueAfter(4.5f, true), 4.5f);
    EXPECT_EQ(GetParameter(pidTiltRangeLow)->floatValueAfter(440, false), 440);
}

TEST(QVMParameterCycling, AValueAllowedInNoConfigurationIsSkipped) {
    QVMParameter mode = Mode(3);
    mode.channelRestrictions["2"] = {};
    EXPECT_EQ(mode.floatValueAfter(1, true), 3);
    EXPECT_EQ(mode.floatValueAfter(3, false), 1);
}

TEST(QVMParameterCycling, AValueOfAnotherChannelConfigurationIsSkippedAndOneOfThisIsNot) {
    QVMParameter mode = Mode(3);
    mode.channelRestrictions["1"] = {{1, 1}, {1, 2}};
    mode.channelRestrictions["3"] = {{1, 1}, {2, 2}};
    EXPECT_EQ(mode.floatValueAfter(0, true), 2);
    EXPECT_EQ(mode.floatValueAfter(2, true), 3);
    mode.chanIn = 1;
    EXPECT_EQ(mode.floatValueAfter(0, true), 1);
}

TEST(QVMParameterCycling, SkippingWrapsAroundTheEnds) {
    QVMParameter mode = Mode(3);
    mode.channelRestrictions["0"] = {};
    mode.channelRestrictions["3"] = {};
    EXPECT_EQ(mode.floatValueAfter(2, true), 1);
    EXPECT_EQ(mode.floatValueAfter(1, false), 2);
}

TEST(QVMParameterCycling, NoParameterOfTheProductRestrictsItsValuesByChannels) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        EXPECT_TRUE(GetParameter(pid)->channelRestrictions.empty());
    }
}

// A configuration in which the modes 1 and 2 both mean 2.
class RestrictedMode : public QVMParameter {
public:
    RestrictedMode() : QVMParameter(Mode(3)) {}
    float restrictValue(float value) const override { return value == 1 ? 2 : value; }
};

TEST(QVMParameterCycling, AValueThatTheConfigurationMovesIsSteppedOnFrom) {
    const RestrictedMode mode;
    EXPECT_EQ(mode.floatValueAfter(0, true), 3); // 1 is moved to 2, and 3 comes after that
    EXPECT_EQ(mode.floatValueAfter(3, false), 2);
}

TEST(QVMParameterCycling, NaNCyclesFromTheBottom) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(Mode(3).floatValueAfter(nan, true), 1);
    EXPECT_EQ(GetParameter(pidTiltGain)->floatValueAfter(nan, true), -18);
}

TEST(QVMParameterCycling, EveryModeOfTheProductIsVisitedOnceAround) {
    for (const std::uint32_t pid : {pidTiltLoudnessMode, pidMeterMode, pidHQMode}) {
        const QVMParameter* mode = GetParameter(pid);
        float value = mode->minValue;
        for (float expected = 1; expected <= mode->maxValue; ++expected) {
            value = mode->floatValueAfter(value, true);
            EXPECT_EQ(value, expected);
        }
        EXPECT_EQ(mode->floatValueAfter(value, true), mode->minValue);
    }
}

TEST(QVMParameterCycling, PresetsCycleThroughAllOfThem) {
    EXPECT_EQ(GetPresets()->floatValueAfter(22, true), 0);
    EXPECT_EQ(GetPresets()->floatValueAfter(0, false), 22);
}

} // namespace
} // namespace QVM_NAMESPACE
