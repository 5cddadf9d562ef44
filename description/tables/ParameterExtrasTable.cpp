#include "description/tables/ParameterExtrasTable.h"

#include "description/tables/Artwork.h"
#include "description/tables/ValueNames.h"

#include <array>

namespace QVM_NAMESPACE {
namespace tables {

namespace {

constexpr ValueNames<2> kOffOn = {"Off", "On"};

// Third-octave centre frequencies in Hz.
constexpr std::array<float, 32> kThirdOctaves = {16,   20,   25,   31,   40,   50,   63,    80,    100,   125,  160,
                                                 200,  250,  315,  400,  500,  630,  800,   1000,  1250,  1600, 2000,
                                                 2500, 3150, 4000, 5000, 6300, 8000, 10000, 12500, 16000, 20000};

constexpr std::array<float, 1> kZeroMark = {0};
constexpr std::array<float, 3> kTiltCueValues = {-18, 0, 18};
constexpr std::array<std::string_view, 3> kTiltCues = {"-", "_", "+"};
constexpr std::array<float, 7> kTiltCuePositions = {-18, -12, -6, 0, 6, 12, 18};
constexpr std::array<float, 10> kOutputMarks = {-96, -84, -72, -60, -48, -36, -24, -12, 6, 12};
constexpr std::array<float, 3> kOutputMinorMarks = {-24, -12, 6};

constexpr std::array<Substitution, 1> kSilence = {{{"-96.0", "-Inf"}}};
constexpr std::array<Substitution, 1> kLowestFilter = {{{"4.0", "Off"}}};
constexpr std::array<Substitution, 1> kHighestFilter = {{{"24000.0", "Off"}}};

constexpr ValueNames<2> kLowFilterControls = {"FilterSlopeLow", "FilterResonanceLow"};
constexpr ValueNames<2> kHighFilterControls = {"FilterSlopeHigh", "FilterResonanceHigh"};
constexpr std::array<Dimming, 1> kLowFilterOff = {{{4, kLowFilterControls}}};
constexpr std::array<Dimming, 1> kHighFilterOff = {{{24000, kHighFilterControls}}};
constexpr std::array<std::string_view, 1> kLowResonance = {"FilterResonanceLow"};
constexpr std::array<std::string_view, 1> kHighResonance = {"FilterResonanceHigh"};
constexpr std::array<Dimming, 1> kListeningLow = {{{1, kLowResonance}}};
constexpr std::array<Dimming, 1> kListeningHigh = {{{1, kHighResonance}}};

constexpr std::array<ParameterExtras, 16> kExtras = {{
    {.pid = 0,
     .label = "Power",
     .labelString = "Power",
     .stringValues = kOffOn,
     .cueSymbols = kPowerGlyphs,
     .scope = 1},
    {.pid = 1,
     .tickmarks = kZeroMark,
     .cueSymbols = kTiltCues,
     .cueSymbolPositions = kTiltCuePositions,
     .cueSymbolValues = kTiltCueValues},
    {.pid = 2, .coarseGranularityOptions = kThirdOctaves},
    {.pid = 3, .coarseGranularityOptions = kThirdOctaves},
    {.pid = 6, .labelString = "Loudness", .stringValues = kLoudnessModes},
    {.pid = 7,
     .label = "Output Gain",
     .substitutions = kSilence,
     .tickmarks = kZeroMark,
     .minorTickmarks = kOutputMinorMarks,
     .displayTickmarks = kOutputMarks},
    {.pid = 8, .stringValues = kMeterModes, .hidden = true},
    {.pid = 9, .substitutions = kLowestFilter, .coarseGranularityOptions = kThirdOctaves, .dims = kLowFilterOff},
    {.pid = 10, .substitutions = kHighestFilter, .coarseGranularityOptions = kThirdOctaves, .dims = kHighFilterOff},
    {.pid = 13, .stringValues = kOffOn, .cueSymbols = kListenLowGlyphs, .dims = kListeningLow},
    {.pid = 14, .labelArtwork = &artwork::labelSlope, .labelString = "Slope"},
    {.pid = 15, .labelArtwork = &artwork::labelReso, .labelString = "Reso"},
    {.pid = 20, .stringValues = kOffOn, .cueSymbols = kListenHighGlyphs, .dims = kListeningHigh},
    {.pid = 21, .labelArtwork = &artwork::labelSlope, .labelString = "Slope"},
    {.pid = 22, .labelArtwork = &artwork::labelReso, .labelString = "Reso"},
    {.pid = 23, .stringValues = kOffOn, .cueSymbols = kQualityGlyphs, .presetWildcard = true, .controlScale = 1.3f},
}};

constexpr std::array<RangeRow, 4> kRanges = {{
    {2, RangeEnd::low, 2.0f, 12000, "TiltRangeHigh"},
    {3, RangeEnd::high, 0.5f, 20, "TiltRangeLow"},
    {9, RangeEnd::low, 2.0f, 12000, "FilterRangeHigh"},
    {10, RangeEnd::high, 0.5f, 8, "FilterRangeLow"},
}};

} // namespace

std::span<const ParameterExtras> ParameterExtrasRows() {
    return kExtras;
}

std::span<const RangeRow> RangeRows() {
    return kRanges;
}

} // namespace tables
} // namespace QVM_NAMESPACE
