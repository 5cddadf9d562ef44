#include "description/Presets.h"

#include "description/Description.h"
#include "description/NumberText.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ExpectedPreset {
    const char* name;
    const char* section;
    const char* note;
    const char* values; // pids 1, 2, 3, 9, 10, 14, 15, 21, 22
};

// clang-format off
constexpr ExpectedPreset kPresets[] = {
    {"Default", "General", "", "0 20 20000 4 24000 12 0 12 0"},
    {"Brighter", "General", "", "6 20 20000 4 24000 12 0 12 0"},
    {"Darker", "General", "", "-6 20 20000 4 24000 12 0 12 0"},
    {"Thinner", "General", "", "6 10 1000 4 24000 12 0 12 0"},
    {"Warmer", "General", "", "-6 20 500 4 24000 12 0 12 0"},
    {"Dull", "General", "", "-7.5 4000 24000 4 24000 12 0 12 0"},
    {"Sharp", "General", "", "4.5 2000 24000 4 24000 12 0 12 0"},
    {"Sub Love", "General", "", "-6 50 130 4 24000 12 0 12 0"},
    {"Air", "General", "", "7.5 10000 24000 4 24000 12 0 12 0"},
    {"White Noise -> Pink", "General", "", "-16.5 10 24000 4 24000 12 0 12 0"},
    {"Pink Noise -> White", "General", "", "16.5 10 24000 4 24000 12 0 12 0"},
    {"Vox Rumble Filter (M)", "Filter Only", "", "0 20 20000 60 24000 24 0 12 0"},
    {"Vox Rumble Filter (F)", "Filter Only", "", "0 20 20000 80 24000 24 0 12 0"},
    {"DC Blocker", "Filter Only", "", "0 20 20000 5 24000 6 0 12 0"},
    {"Berlin Condenser", "Mics", "Typical large diaphragm condenser", "2.5 1600 3200 30 15000 12 0 12 0"},
    {"Pasadena Ribbon", "Mics", "Ribbon mic with a large diaphragm", "-7.5 125 24000 20 24000 12 0 12 0"},
    {"Burbank Ribbon", "Mics", "Ribbon mic with a smaller diaphragm", "4 400 4500 4 6300 6 0 9 0"},
    {"Chicago Dynamic", "Mics", "Cheap dynamic microphone", "4 2000 5000 130 9000 6 0 6 0"},
    {"Guitar Cab", "Speakers", "Vintage 12” guitar cab", "4.5 1250 3150 100 3150 12 0 12 0"},
    {"Bass Cab (Ported)", "Speakers", "Vented 15” bass guitar cab", "-4.5 75 500 75 1800 18 3 12 9"},
    {"Bass Cab (Sealed)", "Speakers", "Sealed 15” bass guitar cab", "-4.5 75 500 94 1800 12 0 12 9"},
    {"Grotbox", "Speakers", "Small, low-quality “studio monitor”", "2.5 20 3150 200 10000 18 0 12 0"},
    {"Cellphone", "Speakers", "Tiny, modern cellphone loudspeaker", "7 2750 5500 850 5500 12 9 9 3"},
};
// clang-format on

constexpr std::size_t kShownPids[] = {1, 2, 3, 9, 10, 14, 15, 21, 22};

std::string ShownValues(const std::vector<float>& values) {
    std::string text;
    for (const std::size_t pid : kShownPids)
        text += (text.empty() ? "" : " ") + SignificantText(values[pid], 6);
    return text;
}

// The current settings as a preset would list them.
std::vector<float> InitialValues() {
    std::vector<float> values;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        if (!GetParameter(pid)->presetWildcard) values.push_back(GetParameter(pid)->initialValue);
    }
    return values;
}

TEST(Presets, ValuesOfEveryPreset) {
    ASSERT_EQ(std::size(kPresets), QVMPresetCount);
    for (std::int64_t index = 0; index < 23; ++index) {
        const auto values = PresetIndexToPresetValues(index);
        ASSERT_TRUE(values);
        ASSERT_EQ(values->size(), 23u);
        EXPECT_EQ(ShownValues(*values), kPresets[index].values) << index;
        EXPECT_EQ(values->at(0), 1) << "the master switch is on";
        for (const std::size_t pid :
             {pidTiltRangeLink, pidTiltRangeLinkRatio, pidTiltLoudnessMode, pidOutputGain, pidMeterMode,
              pidFilterRangeLink, pidFilterRangeLinkRatio, pidFilterListenLow, pidFilterSlopeLink,
              pidFilterSlopeLinkRatio, pidFilterResonanceLink, pidFilterResonanceLinkRatio, pidFilterListenHigh})
            EXPECT_EQ(values->at(pid), 0);
    }
}

TEST(Presets, EachOfAPresetsValuesIsOfTheNextParameterThatIsNoWildcard) {
    const std::vector<float> values = PresetIndexToPresetValues(22).value();
    std::vector<std::uint32_t> pids;
    for (const auto& [pid, value] : ValuesThatPresetSets(values)) {
        EXPECT_EQ(value, values[pids.size()]);
        EXPECT_FALSE(GetParameter(pid)->presetWildcard);
        pids.push_back(pid);
    }
    EXPECT_TRUE(std::ranges::equal(pids, PresetPids()));
    EXPECT_TRUE(std::ranges::is_sorted(pids));
    EXPECT_EQ(pids.size(), QVMParameterCount - 1u);
}

TEST(Presets, WhatIsNoNumberSetsNothing) {
    std::vector<float> values = InitialValues();
    values[0] = std::numeric_limits<float>::quiet_NaN();
    values.push_back(1); // beyond the parameters
    const auto set = ValuesThatPresetSets(values);
    ASSERT_EQ(set.size(), PresetPids().size() - 1);
    EXPECT_EQ(set.front().pid, PresetPids()[1]);
    EXPECT_EQ(set.back().pid, PresetPids().back());
    EXPECT_EQ(ValuesThatPresetSets(std::span(values).first(2)).size(), 1U);
}

TEST(Presets, AnIndexThatNoPresetHasGivesNone) {
    EXPECT_EQ(PresetIndexToPresetValues(23), std::nullopt);
    EXPECT_EQ(PresetIndexToPresetValues(-1), std::nullopt);
}

TEST(Presets, TheDefaultPresetEqualsTheInitialValues) {
    EXPECT_EQ(PresetIndexToPresetValues(0), InitialValues());
}

TEST(Presets, CellphoneSets23ParametersAndLeavesTheQualityModeAlone) {
    const auto values = PresetIndexToPresetValues(22);
    std::size_t cursor = 0;
    std::vector<std::string> leftAlone;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter* parameter = GetParameter(pid);
        if (parameter->presetWildcard) {
            leftAlone.push_back(parameter->codesafeName);
        } else {
            ++cursor;
        }
    }
    EXPECT_THAT(leftAlone, ElementsAre("HQMode"));
    EXPECT_EQ(cursor, values->size());
}

TEST(Presets, WhiteNoiseToPinkTiltsTheWholeBandAndItsMirrorTheOtherWay) {
    const auto pink = PresetIndexToPresetValues(9).value();
    EXPECT_EQ(pink[1], -16.5f);
    EXPECT_EQ(pink[2], 10);
    EXPECT_EQ(pink[3], 24000);
    auto white = PresetIndexToPresetValues(10).value();
    EXPECT_EQ(white[1], 16.5f);
    white[1] = -white[1];
    EXPECT_EQ(white, pink);
}

TEST(Presets, NudgingTheTiltGainByAFineStepAndBackRestoresEveryPresetExactly) {
    const QVMParameter* gain = GetParameter(pidTiltGain);
    for (std::int64_t index = 0; index < 23; ++index) {
        const float chosen = PresetIndexToPresetValues(index).value()[1];
        const float nudged = gain->normalizeFloatValue(chosen + gain->fineGranularity, QVMGranularityFine);
        EXPECT_NE(nudged, chosen);
        EXPECT_EQ(gain->normalizeFloatValue(nudged - gain->fineGranularity, QVMGranularityFine), chosen);
    }
}

TEST(Presets, PresetValuesSurviveTheHostExactly) {
    for (std::int64_t index = 0; index < 23; ++index) {
        const auto values = PresetIndexToPresetValues(index).value();
        for (std::uint32_t pid = 0; pid < values.size(); ++pid) {
            const QVMParameter* parameter = GetParameter(pid);
            EXPECT_EQ(parameter->coerceValue(parameter->reverseCastValue(values[pid])), values[pid])
                << "preset " << index << " pid " << pid;
        }
    }
}

TEST(Presets, SectionsListEveryPresetInOrderWithItsNote) {
    std::vector<std::string> titles;
    std::uint32_t index = 0;
    for (const QVMPresetSection& section : GetPresetStructure().sections) {
        titles.push_back(section.section);
        for (const QVMPresetEntry& preset : section.presets) {
            ASSERT_LT(index, std::size(kPresets));
            const ExpectedPreset& expected = kPresets[index];
            EXPECT_EQ(preset.presetID, index);
            EXPECT_EQ(preset.name, expected.name);
            EXPECT_EQ(section.section, expected.section);
            EXPECT_EQ(preset.note.has_value(), *expected.note != 0);
            EXPECT_EQ(preset.note.value_or(""), expected.note);
            EXPECT_THAT(preset.channelRestrictions, IsEmpty());
            ++index;
        }
    }
    EXPECT_EQ(index, QVMPresetCount);
    EXPECT_THAT(titles, ElementsAre("General", "Filter Only", "Mics", "Speakers"));
}

TEST(Presets, NotesUseTypographicMarks) {
    const auto& speakers = GetPresetStructure().sections.back().presets;
    EXPECT_EQ(speakers[0].note, "Vintage 12\u201D guitar cab");
    EXPECT_EQ(speakers[3].note, "Small, low-quality \u201Cstudio monitor\u201D");
}

TEST(Presets, ThePseudoParameterHoldsTheNamesByIndex) {
    const QVMParameter* presets = GetPresets();
    for (const std::string* text : {&presets->name, &presets->codesafeName, &presets->label, &presets->labelString}) {
        EXPECT_EQ(*text, "Presets");
    }
    EXPECT_EQ(presets->minimalName, "p");
    EXPECT_EQ(presets->unit, 0);
    EXPECT_EQ(presets->controlType, 8);
    EXPECT_EQ(presets->controlStyle, 0);
    EXPECT_EQ(presets->minValue, 0);
    EXPECT_EQ(presets->maxValue, 22);
    EXPECT_EQ(presets->initialValue, 0);
    for (const float one :
         {presets->granularity, presets->fineGranularity, presets->coarseGranularity, presets->controlScale}) {
        EXPECT_EQ(one, 1);
    }
    EXPECT_EQ(presets->formatString, "%1.0f");
    EXPECT_TRUE(presets->includeCrementers && presets->horizontal);
    EXPECT_EQ(presets->labelDisplay, 2);
    EXPECT_EQ(presets->cueSymbolDisplay, 0);
    EXPECT_TRUE(presets->automatesSmoothly && presets->coarseGranularityShouldPreround);
    EXPECT_FALSE(presets->presetWildcard || presets->logarithmic || presets->hidden || presets->meteringOnly ||
                 presets->isDisplaced);
    EXPECT_EQ(presets->scope, 0);
    EXPECT_EQ(HexTextFromColor(presets->color), "#333333");
    EXPECT_TRUE(presets->channelRestrictions.empty());
    ASSERT_EQ(presets->numberOnlyPixelConstants.size(), 3u);
    EXPECT_EQ(presets->numberOnlyPixelConstants[0], 120);
    EXPECT_EQ(presets->numberOnlyPixelConstants[1], 120);
    ASSERT_EQ(presets->stringValues.size(), 23u);
    for (std::size_t i = 0; i < 23; ++i)
        EXPECT_EQ(presets->stringValues[i], kPresets[i].name);
    EXPECT_EQ(presets->clump, nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
