// What only some parameters have: labels, named values, scale marks, ranges, and what is special about the switches.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace QVM_NAMESPACE {
namespace tables {

// A value text that stands in for a number; the key is the number with one decimal.
struct Substitution {
    std::string_view number;
    std::string_view text;
};

// The parameters that are dimmed while this one has a value.
struct Dimming {
    float value = 0;
    std::span<const std::string_view> codesafeNames;
};

struct ParameterExtras {
    std::uint32_t pid = 0;
    std::string_view label = {};
    const char* const* labelArtwork = nullptr; // a picture in place of the label text
    std::string_view labelString = {};
    std::span<const std::string_view> stringValues = {};
    std::span<const Substitution> substitutions = {};
    std::span<const float> coarseGranularityOptions = {};
    std::span<const float> tickmarks = {};
    std::span<const float> minorTickmarks = {};
    std::span<const float> displayTickmarks = {};
    std::span<const std::string_view> cueSymbols = {};
    std::span<const float> cueSymbolPositions = {};
    std::span<const float> cueSymbolValues = {};
    std::span<const Dimming> dims = {};
    std::int32_t scope = 0;
    bool hidden = false;
    bool presetWildcard = false;
    float controlScale = 1;
};

enum class RangeEnd { low, high };

// One end of a low and high pair: how far it keeps from its partner (as a factor) and where it must stop (`limit`).
struct RangeRow {
    std::uint32_t pid;
    RangeEnd end;
    float factor;
    float limit;
    std::string_view partner; // `codesafeName`
};

// At most one row a pid. The tables live as long as the process.
std::span<const ParameterExtras> ParameterExtrasRows();
std::span<const RangeRow> RangeRows();

} // namespace tables
} // namespace QVM_NAMESPACE
