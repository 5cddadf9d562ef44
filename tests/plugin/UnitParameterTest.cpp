#include "plugin/UnitParameter.h"

#include "description/Description.h"
#include "support/FakeAudioUnit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace QVM_NAMESPACE {
namespace {

// A value that the unit can hold, whether or not the way to the host and back leads to it.
float anyValue(const HostRange& range, float between) {
    const float value = range.minimum * (1 - between) + range.maximum * between;
    return range.steps > 0 ? std::round(value) : value;
}

class UnitParameterOfEach : public testing::TestWithParam<std::uint32_t> {
protected:
    float unitValue() const { return unit_.values[GetParam()]; }
    void setUnitValue(float value) { unit_.values[GetParam()] = value; }
    const QVMParameter& description() const { return *GetParameter(GetParam()); }

    FakeAudioUnit unit_;
    UnitParameter parameter_{description(), unit_};
};
std::string nameOf(const testing::TestParamInfo<std::uint32_t>& info) {
    return GetParameter(info.param)->codesafeName;
}
INSTANTIATE_TEST_SUITE_P(Parameters, UnitParameterOfEach, testing::Range(0u, QVMParameterCount), nameOf);

TEST_P(UnitParameterOfEach, HasTheDescriptionsNames) {
    EXPECT_EQ(parameter_.getParameterID().toStdString(), description().codesafeName);
    EXPECT_EQ(parameter_.getName(100).toStdString(), description().name);
    EXPECT_EQ(parameter_.getLabel().toStdString(), description().unitSymbol);
}

TEST_P(UnitParameterOfEach, DefaultIsTheInitialValue) {
    setUnitValue(description().reverseCastValue(description().initialValue));
    EXPECT_EQ(parameter_.getDefaultValue(), parameter_.getValue());
}

TEST_P(UnitParameterOfEach, BothEndsAreReachedExactly) {
    const HostRange range(description());
    for (const float start : {0.3f, 1e-8f, 1.0f, 0.0f}) {
        setUnitValue(range.hostValue(start));
        parameter_.setValue(1);
        EXPECT_EQ(unitValue(), range.maximum);
        parameter_.setValue(0);
        EXPECT_EQ(unitValue(), range.minimum);
    }
}

TEST_P(UnitParameterOfEach, NoNumberChangesNothing) {
    setUnitValue(description().reverseCastValue(description().initialValue));
    const float before = unitValue();
    parameter_.setValue(std::numeric_limits<float>::quiet_NaN());
    parameter_.setValue(std::numeric_limits<float>::infinity());
    EXPECT_EQ(unitValue(), before);
}

// A host that stores the value in its own range, as LV2 hosts do, sends it back rounded.
TEST_P(UnitParameterOfEach, AnEchoLeavesTheUnitsBitsAlone) {
    const HostRange range(description());
    std::minstd_rand random(1); // as far as that is any value: the editor's are no multiples of anything here
    for (int i = 0; i <= 1000; ++i) {
        const float position = static_cast<float>(i) / 1000;
        const float between = static_cast<float>(random()) / static_cast<float>(std::minstd_rand::max());
        for (const float value : {range.hostValue(position), anyValue(range, between)}) {
            setUnitValue(value);
            const float normalised = parameter_.getValue();
            for (const float echoed : {normalised, parameter_.convertTo0to1(parameter_.convertFrom0to1(normalised))}) {
                parameter_.setValue(echoed);
                ASSERT_EQ(unitValue(), value) << i;
            }
        }
    }
}

// Otherwise the test above could not fail: the arithmetic alone does not give every value back.
TEST(UnitParameter, TheHostsNumberIsNotAlwaysTheUnits) {
    const HostRange range(*GetParameter(pidTiltRangeLow));
    int changed = 0;
    std::minstd_rand random(1);
    for (int i = 0; i < 1000; ++i) {
        const float between = static_cast<float>(random()) / static_cast<float>(std::minstd_rand::max());
        const float value = anyValue(range, between);
        changed += range.hostValue(range.normalised(value)) != value;
    }
    EXPECT_GT(changed, 10);
}

TEST_P(UnitParameterOfEach, EveryOtherValueArrives) {
    const HostRange range(description());
    const int steps = range.steps > 0 ? range.steps - 1 : 64;
    setUnitValue(range.maximum);
    for (int i = 0; i <= steps; ++i) {
        const float position = static_cast<float>(i) / static_cast<float>(steps);
        parameter_.setValue(position);
        EXPECT_NEAR(parameter_.getValue(), position, 1e-6);
        EXPECT_EQ(unitValue(), range.hostValue(position));
    }
}

TEST_P(UnitParameterOfEach, TextRoundTripsThroughTheHost) {
    for (int i = 0; i <= 40; ++i) {
        const juce::String text =
            parameter_.getText(parameter_.getValueForText(parameter_.getText(static_cast<float>(i) / 40, 0)), 0);
        EXPECT_EQ(parameter_.getText(parameter_.getValueForText(text), 0), text);
    }
}

TEST_P(UnitParameterOfEach, TextKeepsToTheLengthAskedFor) {
    for (const int length : {1, 3, 8})
        EXPECT_LE(parameter_.getText(0.4f, length).length(), length);
}

TEST_P(UnitParameterOfEach, RangeForTheHostIsTheHostDomains) {
    const HostRange range(description());
    EXPECT_EQ(parameter_.getNormalisableRange().start, range.minimum);
    EXPECT_EQ(parameter_.getNormalisableRange().end, range.maximum);
    EXPECT_NEAR(parameter_.convertFrom0to1(0.5f), (range.minimum + range.maximum) / 2, 1e-3);
}

TEST(UnitParameter, StepsFollowTheNames) {
    FakeAudioUnit unit;
    const UnitParameter loudness(*GetParameter(pidTiltLoudnessMode), unit), power(*GetParameter(pidMasterOnOff), unit),
        gain(*GetParameter(pidTiltGain), unit);
    EXPECT_TRUE(loudness.isDiscrete() && !loudness.isBoolean());
    EXPECT_EQ(loudness.getNumSteps(), 4);
    EXPECT_TRUE(power.isDiscrete() && power.isBoolean());
    EXPECT_FALSE(gain.isDiscrete() || gain.isBoolean());
}

TEST(UnitParameter, AFailedReadIsTheLowEnd) {
    FakeAudioUnit unit;
    unit.parameterErrors[1] = kAudioUnitErr_InvalidParameter;
    const UnitParameter gain(*GetParameter(pidTiltGain), unit);
    EXPECT_TRUE(std::isfinite(gain.getValue()));
}

} // namespace
} // namespace QVM_NAMESPACE
