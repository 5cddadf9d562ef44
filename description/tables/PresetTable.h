// The factory presets of this product.
//
// A row holds only what presets differ in; every other parameter is at its initial value in all of them.
#pragma once

#include "BuildNamespace.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace QVM_NAMESPACE {
namespace tables {

// The parameters that a preset row has values for, in the order of its values.
inline constexpr std::array<std::uint32_t, 9> kPresetPids = {1, 2, 3, 9, 10, 14, 15, 21, 22};

struct PresetRow {
    std::string_view name;
    std::string_view section;
    std::string_view note; // empty: none
    std::array<float, kPresetPids.size()> values;
};

// In index order; presets of one section stand together. The table lives as long as the process.
std::span<const PresetRow> Presets();

} // namespace tables
} // namespace QVM_NAMESPACE
