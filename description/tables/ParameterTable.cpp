#include "description/tables/ParameterTable.h"

#include "description/ParameterIDs.h"
#include "description/ParameterTypes.h"

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

// The link switches and ratios of the two frequency ranges carry the range of the frequencies beside them.
// pid, name, codesafeName, minimalName, clump, unit and symbol, minimum, maximum, initial
// clang-format off
constexpr std::array<ParameterIdentity, QVMParameterCount> kIdentities = {{
    {0, "Master On/Off", "MasterOnOff", "power", kMaster, QVMUnitSwitch, "", 0, 1, 1},
    {1, "Tilt Gain", "TiltGain", "tg", kTilt, QVMUnitDecibels, "dB", -18, 18, 0},
    {2, "Tilt Range Low", "TiltRangeLow", "trl", kTilt, QVMUnitHertz, "Hz", 10, 24000, 20},
    {3, "Tilt Range High", "TiltRangeHigh", "trh", kTilt, QVMUnitHertz, "Hz", 10, 24000, 20000},
    {4, "Tilt Range Link", "TiltRangeLink", "trlnk", kTilt, QVMUnitSwitch, "", 10, 24000, 0},
    {5, "Tilt Range Link Ratio", "TiltRangeLinkRatio", "trrto", kTilt, QVMUnitPercent, "%", 10, 24000, 0},
    {6, "Tilt Loudness Mode", "TiltLoudnessMode", "tal", kOutput, QVMUnitIndexed, "", 0, 3, 0},
    {7, "Output Gain", "OutputGain", "out", kOutput, QVMUnitDecibels, "dB", -96, 12, 0},
    {8, "Meter Mode", "MeterMode", "mm", kOutput, QVMUnitIndexed, "", 0, 2, 0},
    {9, "Filter Range Low", "FilterRangeLow", "frl", kFilter, QVMUnitHertz, "Hz", 4, 24000, 4},
    {10, "Filter Range High", "FilterRangeHigh", "frh", kFilter, QVMUnitHertz, "Hz", 4, 24000, 24000},
    {11, "Filter Range Link", "FilterRangeLink", "frlnk", kFilter, QVMUnitSwitch, "", 4, 24000, 0},
    {12, "Filter Range Link Ratio", "FilterRangeLinkRatio", "frrto", kFilter, QVMUnitPercent, "%", 4, 24000, 0},
    {13, "Filter Listen Low", "FilterListenLow", "fll", kFilter, QVMUnitSwitch, "", 0, 1, 0},
    {14, "Filter Slope Low", "FilterSlopeLow", "fsl", kAdv, QVMUnitDecibelsPerOctave, "dB/Oct", 6, 48, 12},
    {15, "Filter Resonance Low", "FilterResonanceLow", "frsl", kAdv, QVMUnitDecibels, "dB", 0, 18, 0},
    {16, "Filter Slope Link", "FilterSlopeLink", "fslnk", kAdv, QVMUnitSwitch, "", 0, 1, 0},
    {17, "Filter Slope Link Ratio", "FilterSlopeLinkRatio", "fsrto", kAdv, QVMUnitPercent, "%", 0, 100, 0},
    {18, "Filter Resonance Link", "FilterResonanceLink", "frelnk", kAdv, QVMUnitSwitch, "", 0, 1, 0},
    {19, "Filter Resonance Link Ratio", "FilterResonanceLinkRatio", "frelnkr", kAdv, QVMUnitPercent, "%", 0, 100, 0},
    {20, "Filter Listen High", "FilterListenHigh", "flh", kFilter, QVMUnitSwitch, "", 0, 1, 0},
    {21, "Filter Slope High", "FilterSlopeHigh", "fsh", kAdv, QVMUnitDecibelsPerOctave, "dB/Oct", 6, 48, 12},
    {22, "Filter Resonance High", "FilterResonanceHigh", "frsh", kAdv, QVMUnitDecibels, "dB", 0, 18, 0},
    {23, "HQ Mode", "HQMode", "hq", kAdv, QVMUnitIndexed, "", 0, 1, 0},
}};

// pid, steps (normal, fine, coarse), format, logarithmic, control type and style, label and cue symbol display,
// horizontal, displaced, crementers, colour
constexpr bool yes = true;
constexpr bool no = false;
constexpr std::array<ParameterControlRow, QVMParameterCount> kControls = {{
    {0, 1, 1, 1, "%1.0f", no, QVMControlTypeToggle, 0, 2, 2, no, no, no, "#FFFFFF"},
    {1, 0.5f, 0.1f, 1.5f, "%0.1f", no, QVMControlTypeSlider, 0, 2, 0, yes, no, no, "#A54D55"},
    {2, 1, 0.1f, 10, "%1.0f", yes, QVMControlTypeSlider, 0, 2, 0, yes, no, no, "#B25962"},
    {3, 1, 0.1f, 10, "%1.0f", yes, QVMControlTypeSlider, 0, 2, 0, yes, no, no, "#B25962"},
    {4, 1, 1, 1, "%1.0f", no, QVMControlTypeToggle, 1, 2, 2, no, no, no, "#B25962"},
    {5, 1, 1, 10, "%1.0f", no, QVMControlTypeSlider, 0, 0, 0, no, no, no, "#B25962"},
    {6, 1, 1, 1, "%1.0f", no, QVMControlTypeCycle, 1, 0, 0, yes, no, yes, "#71343A"},
    {7, 0.5f, 0.1f, 3, "%0.1f", no, QVMControlTypeSlider, 0, 2, 0, no, no, no, "#938586"},
    {8, 1, 1, 1, "%1.0f", no, QVMControlTypeCycle, 1, 0, 0, yes, no, yes, "#938586"},
    {9, 1, 0.1f, 10, "%1.0f", yes, QVMControlTypeSlider, 0, 2, 0, yes, no, no, "#877879"},
    {10, 1, 0.1f, 10, "%1.0f", yes, QVMControlTypeSlider, 0, 2, 0, yes, no, no, "#877879"},
    {11, 1, 1, 1, "%1.0f", no, QVMControlTypeToggle, 1, 2, 2, no, no, no, "#877879"},
    {12, 1, 1, 10, "%1.0f", no, QVMControlTypeSlider, 0, 0, 0, no, no, no, "#877879"},
    {13, 1, 1, 1, "%1.0f", no, QVMControlTypeToggle, 4, 2, 2, no, yes, no, "#5E5454"},
    {14, 1, 0.1f, 6, "%0.1f", no, QVMControlTypeNumber, 0, 0, 0, no, no, no, "#796C6D"},
    {15, 0.5f, 0.1f, 3, "%0.1f", no, QVMControlTypeNumber, 0, 0, 0, no, no, no, "#796C6D"},
    {16, 1, 1, 1, "%1.0f", no, QVMControlTypeToggle, 1, 2, 2, no, no, no, "#FF69B4"},
    {17, 1, 1, 10, "%1.0f", no, QVMControlTypeSlider, 0, 0, 0, no, no, no, "#FF69B4"},
    {18, 1, 1, 1, "%1.0f", no, QVMControlTypeToggle, 1, 2, 2, no, no, no, "#FF69B4"},
    {19, 1, 1, 10, "%1.0f", no, QVMControlTypeSlider, 0, 0, 0, no, no, no, "#FF69B4"},
    {20, 1, 1, 1, "%1.0f", no, QVMControlTypeToggle, 4, 2, 2, no, yes, no, "#5E5454"},
    {21, 1, 0.1f, 6, "%0.1f", no, QVMControlTypeNumber, 0, 0, 0, no, no, no, "#796C6D"},
    {22, 0.5f, 0.1f, 3, "%0.1f", no, QVMControlTypeNumber, 0, 0, 0, no, no, no, "#796C6D"},
    {23, 1, 1, 1, "%1.0f", no, QVMControlTypeToggle, 3, 2, 0, yes, yes, no, "#B8868B"},
}};
// clang-format on

} // namespace

std::span<const ParameterIdentity> ParameterIdentities() {
    return kIdentities;
}

std::span<const ParameterControlRow> ParameterControls() {
    return kControls;
}

} // namespace tables
} // namespace QVM_NAMESPACE
