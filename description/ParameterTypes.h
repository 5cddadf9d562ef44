// The small records that a parameter's lists are made of.
#pragma once

#include "BuildNamespace.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// Which of a parameter's three step sizes is meant. Arithmetic takes the plain number, so that a code from elsewhere
// needs no conversion.
enum QVMGranularityCode : std::uint32_t {
    QVMGranularityNormal = 0,
    QVMGranularityFine = 1,
    QVMGranularityCoarse = 2,
};

// What a parameter's number counts. The codes are those of the product line's description; unused ones are left out.
enum QVMUnitCode : std::int32_t {
    QVMUnitIndexed = 0,
    QVMUnitPercent = 1,
    QVMUnitSwitch = 2,
    QVMUnitDecibels = 4,
    QVMUnitHertz = 5,
    QVMUnitDecibelsPerOctave = 11,
};

// The control that edits a parameter.
enum QVMControlTypeCode : std::int32_t {
    QVMControlTypeSlider = 0,
    QVMControlTypeToggle = 1,
    QVMControlTypeCycle = 3,
    QVMControlTypeNumber = 4,
    QVMControlTypePresets = 8,
};

// How the tilt's change of level is compensated.
enum QVMTiltEQ_LoudnessMode {
    QVMTiltEQ_LoudnessWeighted = 0, // equal energy behind a loudness weighting
    QVMTiltEQ_LoudnessHalfGain = 1, // half of the gain between the two ends
    QVMTiltEQ_LoudnessNone = 2,
    QVMTiltEQ_LoudnessTreble = 3, // equal level at 20 kHz
};

// Input and output channel counts.
using QVMChannelPair = std::array<std::uint32_t, 2>;

// A fixed conversion that the context menu offers for one value, under this text.
struct QVMStaticConversion {
    std::string text;
};

// What changes about a control in one channel configuration: `map` selects the configuration, `disabled` dims the
// control and `immutable` pins it to a value of the shown domain.
struct QVMChannelLayoutRule {
    std::optional<QVMChannelPair> map;
    bool disabled = false;
    std::optional<float> immutable;
};

// An entry of a nested menu of value names; an entry without children is a value.
struct QVMHierarchyItem {
    std::string name;
    std::vector<QVMHierarchyItem> children;
};

} // namespace QVM_NAMESPACE
