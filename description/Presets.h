// The factory presets: their values, and the titled sections in which they are listed.
#pragma once

#include "description/ParameterTypes.h"

#include <cstdint>
#include <optional>
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

// The values of one preset in the shown domain: one for each parameter that is no preset wildcard, in pid order.
// None for an index that no preset has.
std::optional<std::vector<float>> PresetIndexToPresetValues(std::int64_t index);

// All presets by section, in index order. Built on first use, lives as long as the process; main thread only.
const QVMPresetStructure& GetPresetStructure();

} // namespace QVM_NAMESPACE
