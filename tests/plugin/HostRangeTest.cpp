#include "plugin/HostRange.h"

#include "description/Description.h"
#include "description/ParameterTypes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

class HostRangeOfEach : public testing::TestWithParam<std::uint32_t> {
protected:
    const QVMParameter& parameter() const { return *GetParameter(GetParam()); }
};
std::string nameOf(const testing::TestParamInfo<std::uint32_t>& info) {
    return GetParameter(info.param)->codesafeName;
}
INSTANTIATE_TEST_SUITE_P(Parameters, HostRangeOfEach, testing::Range(0u, QVMParameterCount), nameOf);

TEST_P(HostRangeOfEach, InitialValueSurvivesTheWayToTheHostAndBack) {
    const HostRange range(parameter());
    const float initial = parameter().reverseCastValue(parameter().initialValue);
    const float back = range.hostValue(range.normalised(initial));
    EXPECT_NEAR(back, initial, (range.maximum - range.minimum) * HostRange::echoTolerance);
}

TEST_P(HostRangeOfEach, EndsAreExact) {
    const HostRange range(parameter());
    EXPECT_EQ(range.normalised(range.minimum), 0);
    EXPECT_EQ(range.normalised(range.maximum), 1);
    EXPECT_EQ(range.hostValue(0), range.minimum);
    EXPECT_EQ(range.hostValue(1), range.maximum);
}

TEST_P(HostRangeOfEach, ValuesOutsideAndNaNStayInside) {
    const HostRange range(parameter());
    EXPECT_EQ(range.normalised(1e30f), 1);
    EXPECT_EQ(range.normalised(-1e30f), 0);
    EXPECT_EQ(range.normalised(nan), 0);
    EXPECT_EQ(range.hostValue(7), range.maximum);
    EXPECT_EQ(range.hostValue(-7), range.minimum);
    EXPECT_EQ(range.hostValue(nan), range.minimum);
}

TEST_P(HostRangeOfEach, RisesWithThePosition) {
    const HostRange range(parameter());
    for (int i = 1; i <= 100; ++i)
        EXPECT_GE(range.hostValue(static_cast<float>(i) / 100), range.hostValue(static_cast<float>(i - 1) / 100));
}

// What a text shows of a value: half a step of its last place, which is coarser in kilohertz, beyond the half of a
// tenth that the fine step rounds first.
float resolutionOf(const QVMParameter& parameter, float shown) {
    if (parameter.unit == QVMUnitPercent) return 0.51f;
    if (parameter.unit != QVMUnitHertz) return 0.051f;
    return std::max(0.551f, 0.0051f * shown);
}

TEST_P(HostRangeOfEach, TextGivesTheValueBackAsFarAsItShowsIt) {
    const HostRange range(parameter());
    const int positions = range.steps > 0 ? range.steps - 1 : 400;
    for (int i = 0; i <= positions; ++i) {
        const float value = range.hostValue(static_cast<float>(i) / static_cast<float>(positions));
        const float back = hostValueForText(parameter(), hostTextForValue(parameter(), value));
        const float shown = parameter().castValue(value);
        EXPECT_NEAR(parameter().castValue(back), shown, resolutionOf(parameter(), shown)) << value;
        // Typed in twice it shows the same.
        const std::string text = hostTextForValue(parameter(), back);
        EXPECT_EQ(hostTextForValue(parameter(), hostValueForText(parameter(), text)), text) << value;
    }
}

TEST_P(HostRangeOfEach, TextIsPlain) {
    const HostRange range(parameter());
    for (int i = 0; i <= 50; ++i) {
        for (const unsigned char c : hostTextForValue(parameter(), range.hostValue(static_cast<float>(i) / 50)))
            EXPECT_TRUE(c >= 0x20 && c < 0x7F) << "position " << i << " of 50, byte " << int(c);
    }
}

TEST_P(HostRangeOfEach, UnreadableTextGivesTheInitialValue) {
    const float initial = parameter().reverseCastValue(parameter().initialValue);
    for (const char* text : {"", " ", "nonsense", "nan", "inf", "--1", "\xff\xfe", "e5"})
        EXPECT_EQ(hostValueForText(parameter(), text), initial) << text;
}

TEST(HostRange, LinksSpanWhatTheirSwitchesAndInitialValuesNeed) {
    EXPECT_EQ(HostRange(*GetParameter(pidTiltRangeLink)).minimum, 0);
    EXPECT_EQ(HostRange(*GetParameter(pidTiltRangeLink)).maximum, 1);
    EXPECT_EQ(HostRange(*GetParameter(pidTiltRangeLink)).steps, 2);
    EXPECT_EQ(HostRange(*GetParameter(pidTiltRangeLinkRatio)).minimum, 0);
    EXPECT_EQ(HostRange(*GetParameter(pidTiltRangeLinkRatio)).maximum, 24000);
}

TEST(HostRange, ModesHaveAStepForEachName) {
    EXPECT_EQ(HostRange(*GetParameter(pidTiltLoudnessMode)).steps, 4);
    EXPECT_EQ(HostRange(*GetParameter(pidMeterMode)).steps, 3);
    EXPECT_EQ(HostRange(*GetParameter(pidHQMode)).steps, 2);
    EXPECT_EQ(HostRange(*GetParameter(pidTiltGain)).steps, 0);
}

TEST(HostRange, FrequencyAutomationIsLinearInTheHostsValueAndExponentialInHertz) {
    const QVMParameter& low = *GetParameter(pidTiltRangeLow);
    const HostRange range(low);
    const float quarter = low.castValue(range.hostValue(0.25f)), half = low.castValue(range.hostValue(0.5f)),
                threeQuarters = low.castValue(range.hostValue(0.75f));
    EXPECT_FLOAT_EQ(range.hostValue(0.5f), 12005);
    EXPECT_NEAR(half / quarter, threeQuarters / half, 0.01f * half / quarter);
}

TEST(HostText, HasNumberAndUnit) {
    EXPECT_EQ(hostTextForValue(*GetParameter(pidTiltGain), -3), "-3.0 dB");
    EXPECT_EQ(hostTextForValue(*GetParameter(pidTiltRangeLow), 12005), "490 Hz");
    EXPECT_EQ(hostTextForValue(*GetParameter(pidFilterSlopeLow), 12), "12.0 dB/Oct");
}

TEST(HostText, HasNamesInPlaceOfGlyphs) {
    EXPECT_EQ(hostTextForValue(*GetParameter(pidMasterOnOff), 1), "On");
    EXPECT_EQ(hostTextForValue(*GetParameter(pidFilterListenLow), 0), "Off");
    EXPECT_EQ(hostTextForValue(*GetParameter(pidTiltLoudnessMode), 2), "Treble");
    EXPECT_EQ(hostTextForValue(*GetParameter(pidOutputGain), -96), "-Inf");
    EXPECT_EQ(hostTextForValue(*GetParameter(pidFilterRangeLow), 4), "Off");
    EXPECT_EQ(hostTextForValue(*GetParameter(pidFilterRangeHigh), 24000), "Off");
}

TEST(HostText, TypedFrequenciesTakeKiloAndEitherDecimalMark) {
    const QVMParameter& low = *GetParameter(pidTiltRangeLow);
    for (const char* text : {"1.5k", "1.5 kHz", "1,5K", "+1500", "1500 Hz", " 1500 "})
        EXPECT_NEAR(low.castValue(hostValueForText(low, text)), 1500, 0.5f) << text;
}

TEST(HostText, TypedNamesTakeAnyCase) {
    EXPECT_EQ(hostValueForText(*GetParameter(pidOutputGain), "-inf"), -96);
    EXPECT_EQ(hostValueForText(*GetParameter(pidFilterRangeLow), "off"), 4);
    EXPECT_EQ(hostValueForText(*GetParameter(pidTiltLoudnessMode), " BASS"), 3);
    EXPECT_EQ(hostValueForText(*GetParameter(pidMasterOnOff), "Off"), 0);
}

TEST(HostText, TypedNumbersBeyondTheRangeEndAtItsEnds) {
    EXPECT_EQ(hostValueForText(*GetParameter(pidTiltGain), "99"), 18);
    EXPECT_EQ(hostValueForText(*GetParameter(pidTiltGain), "-99 dB"), -18);
}

} // namespace
} // namespace QVM_NAMESPACE
