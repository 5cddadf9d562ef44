#include "description/tables/ParameterTable.h"

#include "description/tables/Artwork.h"
#include "description/tables/Frames.h"
#include "description/tables/ValueNames.h"

#include <array>

namespace QVM_NAMESPACE {
namespace tables {

namespace {

// The clumps, by cid.
constexpr std::uint32_t kMaster = 0;
constexpr std::uint32_t kTilt = 1;
constexpr std::uint32_t kOutput = 2;
constexpr std::uint32_t kFilter = 3;
constexpr std::uint32_t kAdv = 4;

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

constexpr std::array<Exception, 1> kSilence = {{{-96, "-Inf"}}};
constexpr std::array<Exception, 1> kLowestFilter = {{{4, "Off"}}};
constexpr std::array<Exception, 1> kHighestFilter = {{{24000, "Off"}}};

constexpr ValueNames<2> kLowFilterControls = {"FilterSlopeLow", "FilterResonanceLow"};
constexpr ValueNames<2> kHighFilterControls = {"FilterSlopeHigh", "FilterResonanceHigh"};
constexpr std::array<Dimming, 1> kLowFilterOff = {{{4, kLowFilterControls}}};
constexpr std::array<Dimming, 1> kHighFilterOff = {{{24000, kHighFilterControls}}};
constexpr std::array<std::string_view, 1> kLowResonance = {"FilterResonanceLow"};
constexpr std::array<std::string_view, 1> kHighResonance = {"FilterResonanceHigh"};
constexpr std::array<Dimming, 1> kListeningLow = {{{1, kLowResonance}}};
constexpr std::array<Dimming, 1> kListeningHigh = {{{1, kHighResonance}}};

// Points of drag for the whole range: fine, normal, coarse. A drag of one and a half times the number sweeps it.
constexpr std::array<double, 3> kNumberPoints = {240, 120, 90};

// The two ends of a range: one row above the band that joins them and one below, each with room for a handle.
constexpr double kBandRow = 36;
constexpr QVMRect kBandSlider = {30, 0, 260, kBandRow};
constexpr QVMRect bandRowAt(double y) {
    return {0, y, kTiltPanel.width, kBandRow};
}
static_assert(kTiltPanel.width == kFilterPanel.width);
constexpr QVMRect kNumberControl = {0, 16, 80, 44};
constexpr QVMRect kNumberLabel = {0, 0, 80, 13};

} // namespace

// The link switches and ratios of the two frequency ranges carry the range of the frequencies beside them.
// clang-format off
constexpr std::array<ParameterRow, QVMParameterCount> kParameters = {{
    {.pid = pidMasterOnOff, .name = "Master On/Off", .codesafeName = "MasterOnOff", .minimalName = "power", .cid = kMaster,
     .purpose = "Switches the effect on; off, the audio passes unchanged.",
     .unit = QVMUnitSwitch, .minValue = 0, .maxValue = 1, .initialValue = 1,
     .controlType = QVMControlTypeToggle, .labelDisplay = 2, .cueSymbolDisplay = 2, .color = "#FFFFFF", .label = "Power", .labelString = "Power",
     .stringValues = kOffOn, .cueSymbols = kPowerGlyphs, .scope = 1,
     .frame = kPowerSwitch, .controlFrame = {0, 0, kPowerSwitch.width, kPowerSwitch.height}},
    {.pid = pidTiltGain, .name = "Tilt Gain", .codesafeName = "TiltGain", .minimalName = "tg", .cid = kTilt,
     .purpose = "How much the spectrum leans between the two ends of the tilt range.",
     .unit = QVMUnitDecibels, .unitSymbol = "dB", .minValue = -18, .maxValue = 18, .initialValue = 0,
     .steps = {0.5f, 0.1f, 1.5f}, .decimals = 1,
     .controlType = QVMControlTypeSlider, .labelDisplay = 2, .horizontal = true, .color = "#A54D55",
     .cueSymbols = kTiltCues, .cueSymbolPositions = kTiltCuePositions, .cueSymbolValues = kTiltCueValues, .tickmarks = kZeroMark,
     .frame = {0, 20, kTiltPanel.width, 56}, .controlFrame = {30, 2, 260, 54}},
    {.pid = pidTiltRangeLow, .name = "Tilt Range Low", .codesafeName = "TiltRangeLow", .minimalName = "trl", .cid = kTilt,
     .purpose = "Where the tilt begins; at least an octave below its high end in the editor.",
     .unit = QVMUnitHertz, .unitSymbol = "Hz", .minValue = 10, .maxValue = 24000, .initialValue = 20,
     .steps = {1, 0.1f, 10}, .scale = Scale::tiltFrequency, .coarseGranularityOptions = kThirdOctaves, .end = RangeEnd::low, .partner = pidTiltRangeHigh,
     .controlType = QVMControlTypeSlider, .labelDisplay = 2, .horizontal = true, .color = "#B25962",
     .frame = bandRowAt(96), .controlFrame = kBandSlider},
    {.pid = pidTiltRangeHigh, .name = "Tilt Range High", .codesafeName = "TiltRangeHigh", .minimalName = "trh", .cid = kTilt,
     .purpose = "Where the tilt ends; at least an octave above its low end in the editor.",
     .unit = QVMUnitHertz, .unitSymbol = "Hz", .minValue = 10, .maxValue = 24000, .initialValue = 20000,
     .steps = {1, 0.1f, 10}, .scale = Scale::tiltFrequency, .coarseGranularityOptions = kThirdOctaves, .end = RangeEnd::high, .partner = pidTiltRangeLow,
     .controlType = QVMControlTypeSlider, .labelDisplay = 2, .horizontal = true, .color = "#B25962",
     .frame = bandRowAt(96 + kBandRow), .controlFrame = kBandSlider},
    {.pid = pidTiltRangeLink, .name = "Tilt Range Link", .codesafeName = "TiltRangeLink", .minimalName = "trlnk", .cid = kTilt,
     .purpose = "Links the two ends of the tilt range in an editor; no effect on the sound.",
     .unit = QVMUnitSwitch, .minValue = 10, .maxValue = 24000, .initialValue = 0,
     .controlType = QVMControlTypeToggle, .controlStyle = 1, .labelDisplay = 2, .cueSymbolDisplay = 2, .hasEffect = false, .color = "#B25962"},
    {.pid = pidTiltRangeLinkRatio, .name = "Tilt Range Link Ratio", .codesafeName = "TiltRangeLinkRatio", .minimalName = "trrto", .cid = kTilt,
     .purpose = "How an editor moves the linked end of the tilt range; no effect on the sound.",
     .unit = QVMUnitPercent, .unitSymbol = "%", .minValue = 10, .maxValue = 24000, .initialValue = 0,
     .steps = {1, 1, 10},
     .controlType = QVMControlTypeSlider, .hasEffect = false, .color = "#B25962"},
    {.pid = pidTiltLoudnessMode, .name = "Tilt Loudness Mode", .codesafeName = "TiltLoudnessMode", .minimalName = "tal", .cid = kOutput,
     .purpose = "What keeps its loudness while the spectrum leans.",
     .unit = QVMUnitIndexed, .minValue = 0, .maxValue = 3, .initialValue = 0,
     .controlType = QVMControlTypeCycle, .controlStyle = 1, .horizontal = true, .includeCrementers = true, .color = "#71343A", .labelString = "Loudness",
     .stringValues = kLoudnessModes,
     .frame = {12, 232, 73, 44}, .controlFrame = {0, 16, 73, 26}, .labelFrame = {0, 0, 73, 13}},
    {.pid = pidOutputGain, .name = "Output Gain", .codesafeName = "OutputGain", .minimalName = "out", .cid = kOutput,
     .purpose = "The gain behind everything; silence at the bottom.",
     .unit = QVMUnitDecibels, .unitSymbol = "dB", .minValue = -96, .maxValue = 12, .initialValue = 0,
     .steps = {0.5f, 0.1f, 3}, .decimals = 1, .scale = Scale::fader,
     .controlType = QVMControlTypeSlider, .labelDisplay = 2, .color = "#938586", .label = "Output Gain",
     .exceptions = kSilence, .tickmarks = kZeroMark, .minorTickmarks = kOutputMinorMarks, .displayTickmarks = kOutputMarks,
     .frame = kOutputSlider, .controlFrame = kOutputSlider},
    {.pid = pidMeterMode, .name = "Meter Mode", .codesafeName = "MeterMode", .minimalName = "mm", .cid = kOutput,
     .purpose = "What the editor's level meter shows; no effect on the sound.",
     .unit = QVMUnitIndexed, .minValue = 0, .maxValue = 2, .initialValue = 0,
     .controlType = QVMControlTypeCycle, .controlStyle = 1, .horizontal = true, .includeCrementers = true, .hidden = true, .color = "#938586",
     .stringValues = kMeterModes},
    {.pid = pidFilterRangeLow, .name = "Filter Range Low", .codesafeName = "FilterRangeLow", .minimalName = "frl", .cid = kFilter,
     .purpose = "Cuts what lies below; off at the bottom.",
     .unit = QVMUnitHertz, .unitSymbol = "Hz", .minValue = 4, .maxValue = 24000, .initialValue = 4,
     .steps = {1, 0.1f, 10}, .scale = Scale::filterFrequency, .coarseGranularityOptions = kThirdOctaves, .end = RangeEnd::low, .partner = pidFilterRangeHigh,
     .controlType = QVMControlTypeSlider, .labelDisplay = 2, .horizontal = true, .color = "#877879",
     .exceptions = kLowestFilter, .dims = kLowFilterOff,
     .frame = bandRowAt(34), .controlFrame = kBandSlider},
    {.pid = pidFilterRangeHigh, .name = "Filter Range High", .codesafeName = "FilterRangeHigh", .minimalName = "frh", .cid = kFilter,
     .purpose = "Cuts what lies above; off at the top.",
     .unit = QVMUnitHertz, .unitSymbol = "Hz", .minValue = 4, .maxValue = 24000, .initialValue = 24000,
     .steps = {1, 0.1f, 10}, .scale = Scale::filterFrequency, .coarseGranularityOptions = kThirdOctaves, .end = RangeEnd::high, .partner = pidFilterRangeLow,
     .controlType = QVMControlTypeSlider, .labelDisplay = 2, .horizontal = true, .color = "#877879",
     .exceptions = kHighestFilter, .dims = kHighFilterOff,
     .frame = bandRowAt(34 + kBandRow), .controlFrame = kBandSlider},
    {.pid = pidFilterRangeLink, .name = "Filter Range Link", .codesafeName = "FilterRangeLink", .minimalName = "frlnk", .cid = kFilter,
     .purpose = "Links the two filters' frequencies in an editor; no effect on the sound.",
     .unit = QVMUnitSwitch, .minValue = 4, .maxValue = 24000, .initialValue = 0,
     .controlType = QVMControlTypeToggle, .controlStyle = 1, .labelDisplay = 2, .cueSymbolDisplay = 2, .hasEffect = false, .color = "#877879"},
    {.pid = pidFilterRangeLinkRatio, .name = "Filter Range Link Ratio", .codesafeName = "FilterRangeLinkRatio", .minimalName = "frrto", .cid = kFilter,
     .purpose = "How an editor moves the linked filter's frequency; no effect on the sound.",
     .unit = QVMUnitPercent, .unitSymbol = "%", .minValue = 4, .maxValue = 24000, .initialValue = 0,
     .steps = {1, 1, 10},
     .controlType = QVMControlTypeSlider, .hasEffect = false, .color = "#877879"},
    {.pid = pidFilterListenLow, .name = "Filter Listen Low", .codesafeName = "FilterListenLow", .minimalName = "fll", .cid = kFilter,
     .purpose = "Lets only what the low filter takes away be heard.",
     .unit = QVMUnitSwitch, .minValue = 0, .maxValue = 1, .initialValue = 0,
     .controlType = QVMControlTypeToggle, .controlStyle = 4, .labelDisplay = 2, .cueSymbolDisplay = 2, .isDisplaced = true, .color = "#5E5454",
     .stringValues = kOffOn, .cueSymbols = kListenLowGlyphs, .dims = kListeningLow,
     .frame = {245, 179, 29, 21}, .controlFrame = {0, 0, 29, 21}},
    {.pid = pidFilterSlopeLow, .name = "Filter Slope Low", .codesafeName = "FilterSlopeLow", .minimalName = "fsl", .cid = kAdv,
     .purpose = "How steeply the low filter cuts.",
     .unit = QVMUnitDecibelsPerOctave, .unitSymbol = "dB/Oct", .minValue = 6, .maxValue = 48, .initialValue = 12,
     .steps = {1, 0.1f, 6}, .decimals = 1,
     .controlType = QVMControlTypeNumber, .color = "#796C6D", .labelArtwork = &artwork::labelSlope, .labelString = "Slope",
     .frame = {10, 64, 80, 60}, .controlFrame = kNumberControl, .labelFrame = kNumberLabel, .numberOnlyPixelConstants = kNumberPoints},
    {.pid = pidFilterResonanceLow, .name = "Filter Resonance Low", .codesafeName = "FilterResonanceLow", .minimalName = "frsl", .cid = kAdv,
     .purpose = "How far the low filter rises at its frequency.",
     .unit = QVMUnitDecibels, .unitSymbol = "dB", .minValue = 0, .maxValue = 18, .initialValue = 0,
     .steps = {0.5f, 0.1f, 3}, .decimals = 1,
     .controlType = QVMControlTypeNumber, .color = "#796C6D", .labelArtwork = &artwork::labelReso, .labelString = "Reso",
     .frame = {10, 150, 80, 60}, .controlFrame = kNumberControl, .labelFrame = kNumberLabel, .numberOnlyPixelConstants = kNumberPoints},
    {.pid = pidFilterSlopeLink, .name = "Filter Slope Link", .codesafeName = "FilterSlopeLink", .minimalName = "fslnk", .cid = kAdv,
     .purpose = "Links the two filters' slopes in an editor; no effect on the sound.",
     .unit = QVMUnitSwitch, .minValue = 0, .maxValue = 1, .initialValue = 0,
     .controlType = QVMControlTypeToggle, .controlStyle = 1, .labelDisplay = 2, .cueSymbolDisplay = 2, .hasEffect = false, .color = "#FF69B4"},
    {.pid = pidFilterSlopeLinkRatio, .name = "Filter Slope Link Ratio", .codesafeName = "FilterSlopeLinkRatio", .minimalName = "fsrto", .cid = kAdv,
     .purpose = "How an editor moves the linked slope; no effect on the sound.",
     .unit = QVMUnitPercent, .unitSymbol = "%", .minValue = 0, .maxValue = 100, .initialValue = 0,
     .steps = {1, 1, 10},
     .controlType = QVMControlTypeSlider, .hasEffect = false, .color = "#FF69B4"},
    {.pid = pidFilterResonanceLink, .name = "Filter Resonance Link", .codesafeName = "FilterResonanceLink", .minimalName = "frelnk", .cid = kAdv,
     .purpose = "Links the two filters' resonances in an editor; no effect on the sound.",
     .unit = QVMUnitSwitch, .minValue = 0, .maxValue = 1, .initialValue = 0,
     .controlType = QVMControlTypeToggle, .controlStyle = 1, .labelDisplay = 2, .cueSymbolDisplay = 2, .hasEffect = false, .color = "#FF69B4"},
    {.pid = pidFilterResonanceLinkRatio, .name = "Filter Resonance Link Ratio", .codesafeName = "FilterResonanceLinkRatio", .minimalName = "frelnkr", .cid = kAdv,
     .purpose = "How an editor moves the linked resonance; no effect on the sound.",
     .unit = QVMUnitPercent, .unitSymbol = "%", .minValue = 0, .maxValue = 100, .initialValue = 0,
     .steps = {1, 1, 10},
     .controlType = QVMControlTypeSlider, .hasEffect = false, .color = "#FF69B4"},
    {.pid = pidFilterListenHigh, .name = "Filter Listen High", .codesafeName = "FilterListenHigh", .minimalName = "flh", .cid = kFilter,
     .purpose = "Lets only what the high filter takes away be heard.",
     .unit = QVMUnitSwitch, .minValue = 0, .maxValue = 1, .initialValue = 0,
     .controlType = QVMControlTypeToggle, .controlStyle = 4, .labelDisplay = 2, .cueSymbolDisplay = 2, .isDisplaced = true, .color = "#5E5454",
     .stringValues = kOffOn, .cueSymbols = kListenHighGlyphs, .dims = kListeningHigh,
     .frame = {281, 179, 29, 21}, .controlFrame = {0, 0, 29, 21}},
    {.pid = pidFilterSlopeHigh, .name = "Filter Slope High", .codesafeName = "FilterSlopeHigh", .minimalName = "fsh", .cid = kAdv,
     .purpose = "How steeply the high filter cuts.",
     .unit = QVMUnitDecibelsPerOctave, .unitSymbol = "dB/Oct", .minValue = 6, .maxValue = 48, .initialValue = 12,
     .steps = {1, 0.1f, 6}, .decimals = 1,
     .controlType = QVMControlTypeNumber, .color = "#796C6D", .labelArtwork = &artwork::labelSlope, .labelString = "Slope",
     .frame = {110, 64, 80, 60}, .controlFrame = kNumberControl, .labelFrame = kNumberLabel, .numberOnlyPixelConstants = kNumberPoints},
    {.pid = pidFilterResonanceHigh, .name = "Filter Resonance High", .codesafeName = "FilterResonanceHigh", .minimalName = "frsh", .cid = kAdv,
     .purpose = "How far the high filter rises at its frequency.",
     .unit = QVMUnitDecibels, .unitSymbol = "dB", .minValue = 0, .maxValue = 18, .initialValue = 0,
     .steps = {0.5f, 0.1f, 3}, .decimals = 1,
     .controlType = QVMControlTypeNumber, .color = "#796C6D", .labelArtwork = &artwork::labelReso, .labelString = "Reso",
     .frame = {110, 150, 80, 60}, .controlFrame = kNumberControl, .labelFrame = kNumberLabel, .numberOnlyPixelConstants = kNumberPoints},
    {.pid = pidHQMode, .name = "HQ Mode", .codesafeName = "HQMode", .minimalName = "hq", .cid = kAdv,
     .purpose = "Holds the sound to the curve up to 20 kHz in place of 16 kHz.",
     .unit = QVMUnitIndexed, .minValue = 0, .maxValue = 1, .initialValue = 0,
     .controlType = QVMControlTypeToggle, .controlStyle = 3, .controlScale = 1.3f, .labelDisplay = 2, .horizontal = true, .isDisplaced = true, .presetWildcard = true, .color = "#B8868B",
     .stringValues = kOffOn, .cueSymbols = kQualityGlyphs,
     .frame = {65, 258, 70, 36}, .controlFrame = {0, 0, 70, 36}},
}};
// clang-format on

namespace {

constexpr bool rowsAreCompleteAndAtTheirPids() {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        if (kParameters[pid].pid != pid || *kParameters[pid].purpose == 0) return false;
    return true;
}
static_assert(rowsAreCompleteAndAtTheirPids());

} // namespace

} // namespace tables
} // namespace QVM_NAMESPACE
