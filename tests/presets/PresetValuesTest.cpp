#include "presets/PresetValues.h"

#include "description/Description.h"
#include "description/ParameterIDs.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

std::vector<float> valuesOf(std::vector<SettingsEntry> settings) {
    return presetValues({"One", "", std::move(settings)}, *QVMConfig::inlinedConfig());
}

float tiltGainOf(std::vector<SettingsEntry> settings) {
    std::size_t place = 0;
    for (std::uint32_t pid = 0; pid < pidTiltGain; ++pid)
        place += !GetParameter(pid)->presetWildcard;
    return valuesOf(std::move(settings)).at(place);
}

TEST(PresetValues, WhatIsNotNamedIsAtItsInitialValue) {
    const std::vector<float> values = valuesOf({});
    std::size_t at = 0;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        if (GetParameter(pid)->presetWildcard) continue;
        ASSERT_LT(at, values.size());
        EXPECT_EQ(values[at++], GetParameter(pid)->initialValue) << pid;
    }
    EXPECT_EQ(at, values.size());
}

TEST(PresetValues, WhatIsNamedIsWithinItsRange) {
    EXPECT_EQ(tiltGainOf({{"tg", 4.5f}}), 4.5f);
    EXPECT_EQ(tiltGainOf({{"tg", 4000.0f}}), GetParameter(pidTiltGain)->maxValue);
}

TEST(PresetValues, OfTwoNamesOfOneParameterTheLaterCounts) {
    EXPECT_EQ(tiltGainOf({{"tg", 1.0f}, {"TiltGain", 2.0f}}), 2.0f);
}

TEST(PresetValues, NoNumberLeavesItsParameter) {
    EXPECT_TRUE(std::isnan(tiltGainOf({{"tg", std::nullopt}})));
}

} // namespace
} // namespace QVM_NAMESPACE
