#include "description/tables/ParameterTable.h"

#include "description/Description.h"
#include "description/tables/Artwork.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

using Names = std::vector<std::string>;

// The pids whose record answers yes.
template <typename Predicate>
std::vector<std::uint32_t> Pids(Predicate predicate) {
    std::vector<std::uint32_t> pids;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        if (predicate(*GetParameter(pid))) pids.push_back(pid);
    }
    return pids;
}

TEST(ParameterTableValues, LabelTexts) {
    EXPECT_EQ(GetParameter(pidMasterOnOff)->labelString, "Power");
    EXPECT_EQ(GetParameter(pidMasterOnOff)->label, "Power");
    EXPECT_EQ(GetParameter(pidTiltLoudnessMode)->labelString, "Loudness");
    EXPECT_EQ(GetParameter(pidOutputGain)->label, "Output Gain");
    for (const std::uint32_t pid : {pidFilterSlopeLow, pidFilterSlopeHigh})
        EXPECT_EQ(GetParameter(pid)->labelString, "Slope");
    for (const std::uint32_t pid : {pidFilterResonanceLow, pidFilterResonanceHigh})
        EXPECT_EQ(GetParameter(pid)->labelString, "Reso");
    EXPECT_THAT(Pids([](const auto& p) { return !p.labelString.empty(); }), ElementsAre(0, 6, 14, 15, 21, 22));
    EXPECT_THAT(Pids([](const auto& p) { return !p.label.empty(); }), ElementsAre(0, 7, 14, 15, 21, 22));
}

TEST(ParameterTableValues, LabelImages) {
    const std::string prefix = "base64,";
    for (const std::uint32_t pid : {pidFilterSlopeLow, pidFilterSlopeHigh})
        EXPECT_EQ(GetParameter(pid)->label, prefix + artwork::labelSlope);
    for (const std::uint32_t pid : {pidFilterResonanceLow, pidFilterResonanceHigh})
        EXPECT_EQ(GetParameter(pid)->label, prefix + artwork::labelReso);
    EXPECT_TRUE(GetParameter(pidFilterSlopeLow)->label.starts_with("base64,iVBOR")); // how every PNG begins
}

TEST(ParameterTableValues, NamedValues) {
    EXPECT_THAT(GetParameter(pidTiltLoudnessMode)->stringValues, ElementsAre("Auto", "Norm", "Treble", "Bass"));
    EXPECT_THAT(GetParameter(pidMeterMode)->stringValues, ElementsAre("Pre", "Post", "Diff"));
    for (const std::uint32_t pid : {pidMasterOnOff, pidFilterListenLow, pidFilterListenHigh, pidHQMode}) {
        EXPECT_THAT(GetParameter(pid)->stringValues, ElementsAre("Off", "On"));
    }
    EXPECT_THAT(Pids([](const auto& p) { return !p.stringValues.empty(); }), ElementsAre(0, 6, 8, 13, 20, 23));
}

TEST(ParameterTableValues, CueSymbols) {
    EXPECT_THAT(GetParameter(pidMasterOnOff)->cueSymbols, ElementsAre("\uE101", "\uE101"));
    EXPECT_THAT(GetParameter(pidFilterListenLow)->cueSymbols, ElementsAre("\uE219", "\uE219"));
    EXPECT_THAT(GetParameter(pidFilterListenHigh)->cueSymbols, ElementsAre("\uE20B", "\uE20B"));
    EXPECT_THAT(GetParameter(pidHQMode)->cueSymbols, ElementsAre("\uE205", "\uE206"));
    EXPECT_EQ(GetParameter(pidTiltGain)->cueSymbols.size(), 3u);
    EXPECT_THAT(GetParameter(pidTiltGain)->cueSymbols, testing::Contains("_").Times(1));
    EXPECT_THAT(GetParameter(pidTiltGain)->cueSymbolValues, ElementsAre(-18, 0, 18));
    EXPECT_THAT(Pids([](const auto& p) { return !p.cueSymbols.empty(); }), ElementsAre(0, 1, 13, 20, 23));
}

TEST(ParameterTableValues, CuePositionsLieOnTheScale) {
    for (const float position : GetParameter(pidTiltGain)->cueSymbolPositions) {
        EXPECT_GE(position, -18);
        EXPECT_LE(position, 18);
    }
    EXPECT_FALSE(GetParameter(pidTiltGain)->cueSymbolPositions.empty());
}

TEST(ParameterTableValues, ScaleMarks) {
    EXPECT_THAT(GetParameter(pidTiltGain)->tickmarks, ElementsAre(0));
    EXPECT_THAT(GetParameter(pidOutputGain)->tickmarks, ElementsAre(0));
    EXPECT_THAT(GetParameter(pidOutputGain)->displayTickmarks,
                ElementsAre(-96, -84, -72, -60, -48, -36, -24, -12, 6, 12));
    EXPECT_THAT(GetParameter(pidOutputGain)->minorTickmarks, ElementsAre(-24, -12, 6));
    EXPECT_THAT(Pids([](const auto& p) { return !p.tickmarks.empty(); }), ElementsAre(1, 7));
    EXPECT_THAT(Pids([](const auto& p) { return !p.displayTickmarks.empty(); }), ElementsAre(7));
}

TEST(ParameterTableValues, CoarseStepsOfFrequenciesAreThirdOctaves) {
    const std::vector<float> thirds = {16,   20,   25,   31,   40,   50,   63,    80,    100,   125,  160,
                                       200,  250,  315,  400,  500,  630,  800,   1000,  1250,  1600, 2000,
                                       2500, 3150, 4000, 5000, 6300, 8000, 10000, 12500, 16000, 20000};
    ASSERT_EQ(thirds.size(), 32u);
    for (const std::uint32_t pid : {pidTiltRangeLow, pidTiltRangeHigh, pidFilterRangeLow, pidFilterRangeHigh})
        EXPECT_EQ(GetParameter(pid)->coarseGranularityOptions, thirds);
    EXPECT_THAT(Pids([](const auto& p) { return !p.coarseGranularityOptions.empty(); }), ElementsAre(2, 3, 9, 10));
}

TEST(ParameterTableValues, SubstitutedTextsAreKeyedByTheNumberWithOneDecimal) {
    EXPECT_THAT(GetParameter(pidOutputGain)->substituteStringsForValues, UnorderedElementsAre(Pair("-96.0", "-Inf")));
    EXPECT_THAT(GetParameter(pidFilterRangeLow)->substituteStringsForValues, UnorderedElementsAre(Pair("4.0", "Off")));
    EXPECT_THAT(GetParameter(pidFilterRangeHigh)->substituteStringsForValues,
                UnorderedElementsAre(Pair("24000.0", "Off")));
    EXPECT_THAT(Pids([](const auto& p) { return !p.substituteStringsForValues.empty(); }), ElementsAre(7, 9, 10));
}

TEST(ParameterTableValues, FiltersThatAreOffDimTheirControls) {
    EXPECT_THAT(GetParameter(pidFilterRangeLow)->dims,
                ElementsAre(Pair(4, Names{"FilterSlopeLow", "FilterResonanceLow"})));
    EXPECT_THAT(GetParameter(pidFilterRangeHigh)->dims,
                ElementsAre(Pair(24000, Names{"FilterSlopeHigh", "FilterResonanceHigh"})));
    EXPECT_THAT(GetParameter(pidFilterListenLow)->dims, ElementsAre(Pair(1, Names{"FilterResonanceLow"})));
    EXPECT_THAT(GetParameter(pidFilterListenHigh)->dims, ElementsAre(Pair(1, Names{"FilterResonanceHigh"})));
    EXPECT_THAT(Pids([](const auto& p) { return !p.dims.empty(); }), ElementsAre(9, 10, 13, 20));
}

using RangeEntries = std::vector<QVMRangeSettings::Entry>;

TEST(ParameterTableValues, LowEndsOfRanges) {
    const auto expected = [](const char* name, const char* key) {
        return RangeEntries{
            {"low", true},       {"func", std::string("max")}, {"with-name", std::string(name)}, {"factor", 2.0f},
            {"limit", 12000.0f}, {"high-has-label", false},    {"with-enum", std::string(key)}};
    };
    EXPECT_EQ(GetParameter(pidTiltRangeLow)->range.entries(), expected("Tilt Range Low", "QVM0015Param_TiltRangeHigh"));
    EXPECT_EQ(GetParameter(pidFilterRangeLow)->range.entries(),
              expected("Filter Range Low", "QVM0015Param_FilterRangeHigh"));
}

TEST(ParameterTableValues, HighEndsOfRanges) {
    const auto expected = [](const char* name, float limit, const char* key) {
        return RangeEntries{
            {"high", true},   {"func", std::string("min")},   {"with-name", std::string(name)}, {"factor", 0.5f},
            {"limit", limit}, {"with-enum", std::string(key)}};
    };
    EXPECT_EQ(GetParameter(pidTiltRangeHigh)->range.entries(),
              expected("Tilt Range High", 20, "QVM0015Param_TiltRangeLow"));
    EXPECT_EQ(GetParameter(pidFilterRangeHigh)->range.entries(),
              expected("Filter Range High", 8, "QVM0015Param_FilterRangeLow"));
    EXPECT_EQ(GetParameter(pidTiltRangeHigh)->rangeWith, "TiltRangeLow");
    EXPECT_EQ(GetParameter(pidFilterRangeHigh)->rangeWith, "FilterRangeLow");
    EXPECT_THAT(Pids([](const auto& p) { return !p.range.empty(); }), ElementsAre(2, 3, 9, 10));
    EXPECT_THAT(Pids([](const auto& p) { return !p.rangeWith.empty(); }), ElementsAre(3, 10));
}

TEST(ParameterTableValues, FieldsThatTheProductDoesNotUseAreEmpty) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        EXPECT_THAT(parameter.staticConversions, IsEmpty());
        EXPECT_FALSE(parameter.textEntryNumbers.has_value());
        EXPECT_THAT(parameter.hierarchy, IsEmpty());
        EXPECT_THAT(parameter.flatHierarchy, IsEmpty());
        EXPECT_THAT(parameter.channelLayoutRules, IsEmpty());
        EXPECT_THAT(parameter.disables, IsEmpty());
        EXPECT_THAT(parameter.hides, IsEmpty());
        EXPECT_THAT(parameter.links, IsEmpty());
        EXPECT_EQ(parameter.tap, "");
    }
}

} // namespace
} // namespace QVM_NAMESPACE
