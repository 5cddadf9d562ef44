#include "unit/UnitPresets.h"

#include "description/Description.h"
#include "description/Presets.h"
#include "unit/QVM0015_AudioUnit.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(UnitPresets, HasTheFactoryPresetsInTheHostDomain) {
    const UnitPresets presets;
    for (std::int32_t index = 0; index < static_cast<std::int32_t>(QVMPresetCount); ++index) {
        const UnitPresets::Values* values = presets.values(index);
        ASSERT_TRUE(values) << index;
        const auto shown = PresetIndexToPresetValues(index);
        for (std::uint32_t pid = 0; pid < 23; ++pid)
            EXPECT_EQ((*values)[pid], GetParameter(pid)->reverseCastValue(shown->at(pid))) << index << " " << pid;
        EXPECT_FALSE((*values)[23]) << "the quality mode is left alone";
    }
    EXPECT_EQ(presets.values(-1), nullptr);
    EXPECT_EQ(presets.values(23), nullptr);
}

TEST(UnitPresets, TheUnitNamesWhatWasChosenByNumberUntilItIsNamedAnew) {
    QVM0015_AudioUnit unit;
    const auto name = [&unit] {
        const std::string* text = nullptr;
        std::uint32_t size = sizeof text;
        AudioUnitGetProperty(&unit, kQVMProperty_PresetName, kAudioUnitScope_Global, 0, &text, &size);
        return *text;
    };
    EXPECT_EQ(name(), "Default");
    EXPECT_EQ(unit.presetIndex(), 0);
    EXPECT_TRUE(unit.choosePreset(8));
    EXPECT_EQ(name(), "Air");
    EXPECT_FALSE(unit.choosePreset(23));
    EXPECT_EQ(unit.presetIndex(), 8);
    const std::string other = "Something of my own";
    const std::string* reference = &other;
    AudioUnitSetProperty(&unit, kQVMProperty_PresetName, kAudioUnitScope_Global, 0, &reference, sizeof reference);
    EXPECT_EQ(name(), other);
    EXPECT_EQ(unit.presetIndex(), -1);
}

TEST(UnitPresets, WhatWasChosenByNumberIsSaved) {
    QVM0015_AudioUnit from, to;
    from.choosePreset(22);
    ASSERT_EQ(to.restoreState(from.saveState()), UnitStateResult::ok);
    EXPECT_EQ(to.presetIndex(), 22);
    EXPECT_EQ(to.saveState(), from.saveState());
}

} // namespace
} // namespace QVM_NAMESPACE
