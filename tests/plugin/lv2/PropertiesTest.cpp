#include "plugin/lv2/Properties.h"

#include "description/Description.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

const QVMParameter& parameter(std::uint32_t pid) {
    return *GetParameter(pid);
}

// What was told and is set again, told once more.
float again(const QVMParameter& parameter, float value) {
    return propertyValue(parameter, hostValueOfProperty(parameter, value));
}

TEST(Properties, FrequenciesInHertzHaveOtherNamesThanTheirFormerPositions) {
    for (const std::uint32_t pid : {pidTiltRangeLow, pidTiltRangeHigh, pidFilterRangeLow, pidFilterRangeHigh}) {
        EXPECT_EQ(propertyName(parameter(pid)), parameter(pid).codesafeName + "Hz");
        EXPECT_EQ(formerPropertyName(parameter(pid)), parameter(pid).codesafeName);
    }
    EXPECT_EQ(propertyName(parameter(pidTiltGain)), "TiltGain");
    EXPECT_EQ(formerPropertyName(parameter(pidTiltGain)), "");
}

TEST(Properties, SwitchesAndModesAreWhole) {
    std::string whole;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        if (isWholeProperty(parameter(pid))) whole += parameter(pid).minimalName + " ";
    EXPECT_EQ(whole, "power trlnk tal mm frlnk fll fslnk frelnk flh hq ");
}

TEST(Properties, FrequenciesAreHertz) {
    const QVMParameter& low = parameter(pidTiltRangeLow);
    EXPECT_NEAR(hostValueOfProperty(low, 1000), 14204.4, 0.1);
    EXPECT_EQ(propertyValue(low, low.reverseCastValue(1000)), 1000);
    EXPECT_EQ(hostValueOfProperty(low, 10), 10);
    EXPECT_EQ(hostValueOfProperty(low, 24000), 24000);
}

// Bit by bit: a host that writes what it was told, and is told again, for ever.
TEST(Properties, EveryValueThatTheEditorShowsGoesThereAndBackUnchanged) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& p = parameter(pid);
        if (isWholeProperty(p)) continue;
        const QVMFloat32Range range = p.heldRange();
        int drifted = 0;
        for (int step = 0; step <= 240000; ++step) {
            const float value =
                std::round(range.min / p.fineGranularity + static_cast<float>(step)) * p.fineGranularity;
            if (value > range.max) break;
            drifted += again(p, value) != value;
        }
        EXPECT_EQ(drifted, 0) << p.name;
    }
    for (const float mode : {0.0F, 1.0F, 2.0F, 3.0F})
        EXPECT_EQ(again(parameter(pidTiltLoudnessMode), mode), mode);
}

// Automation is finer than the editor's steps: its numbers are not rounded to them.
TEST(Properties, ValuesBetweenTheStepsAreNotRounded) {
    EXPECT_EQ(again(parameter(pidTiltGain), 4.53F), 4.53F);
    EXPECT_NEAR(again(parameter(pidTiltRangeLow), 63.456F), 63.456F, 63.456F * 2e-6F);
    EXPECT_NEAR(again(parameter(pidFilterRangeHigh), 12345.678F), 12345.678F, 12345.678F * 2e-6F);
}

TEST(Properties, ASwitchOrAModeIsTheNearestWholeValueAndAllStayInTheirRange) {
    EXPECT_EQ(hostValueOfProperty(parameter(pidTiltLoudnessMode), 1.6F), 2);
    EXPECT_EQ(hostValueOfProperty(parameter(pidTiltLoudnessMode), 9), 3);
    EXPECT_EQ(hostValueOfProperty(parameter(pidTiltRangeLink), 20), 1) << "a switch, whatever its row's range";
    EXPECT_EQ(propertyValue(parameter(pidTiltRangeLink), 1), 1);
    EXPECT_EQ(hostValueOfProperty(parameter(pidTiltGain), -300), -18);
    EXPECT_EQ(hostValueOfProperty(parameter(pidTiltRangeLow), 0), 10);
}

// At its end a filter is off; next to it, it is not.
TEST(Properties, AnEndIsToldOfTheEndAlone) {
    const QVMParameter& low = parameter(pidFilterRangeLow);
    EXPECT_EQ(propertyValue(low, 4), 4);
    EXPECT_GT(propertyValue(low, 4.004F), 4);
}

} // namespace
} // namespace QVM_NAMESPACE
