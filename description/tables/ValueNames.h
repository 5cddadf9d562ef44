// What modes and switches show for their values, by whole value from 0 up: names, or glyphs of the icon font.
//
// A switch has the same glyph twice where colour alone tells its states apart.
#pragma once

#include "description/tables/Glyphs.h"

#include <array>

namespace QVM_NAMESPACE {
namespace tables {

template <std::size_t count>
using ValueNames = std::array<std::string_view, count>;

inline constexpr ValueNames<4> kLoudnessModes = {"Auto", "Norm", "Treble", "Bass"};
inline constexpr ValueNames<3> kMeterModes = {"Pre", "Post", "Diff"};
inline constexpr ValueNames<2> kPowerGlyphs = {glyphs::power, glyphs::power};
inline constexpr ValueNames<2> kListenLowGlyphs = {glyphs::listenLow, glyphs::listenLow};
inline constexpr ValueNames<2> kListenHighGlyphs = {glyphs::listenHigh, glyphs::listenHigh};
inline constexpr ValueNames<2> kQualityGlyphs = {glyphs::qualityOff, glyphs::qualityOn};

} // namespace tables
} // namespace QVM_NAMESPACE
