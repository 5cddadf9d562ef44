// The factory presets: their values, and the titled sections in which they are listed.
#pragma once

#include "description/ParameterTypes.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// One line of the preset list. With channel restrictions it is on offer only in the configurations listed.
struct QVMPresetEntry {
    std::string name;
    std::uint32_t presetID = 0; // the preset's index
    std::optional<std::string> note;
    std::vector<QVMChannelPair> channelRestrictions;
};

struct QVMPresetSection {
    std::string section; // the title
    std::vector<QVMPresetEntry> presets;
};

struct QVMPresetStructure {
    std::vector<QVMPresetSection> sections;
};

inline constexpr std::uint32_t QVMPresetCount = 23;

// The parameters that presets have a value for: those that are no preset wildcard, in pid order. Lives as long as the
// process; any thread.
std::span<const std::uint32_t> PresetPids();

// The values of one preset in the shown domain: one for each of these parameters, in their order.
// None for an index that no preset has.
std::optional<std::vector<float>> PresetIndexToPresetValues(std::int64_t index);

// One of them with its parameter.
struct QVMPresetValue {
    std::uint32_t pid = 0;
    float value = 0;
};
// Those of a list in that order that say something of their parameter: no number leaves it as it is. Any thread.
std::vector<QVMPresetValue> ValuesThatPresetSets(std::span<const float> presetValues);

// All presets by section, in index order. Built on first use, lives as long as the process; main thread only.
const QVMPresetStructure& GetPresetStructure();

} // namespace QVM_NAMESPACE
