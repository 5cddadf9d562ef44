// How a value looks on a handle or in a box: the number in one face, its unit as a glyph or small text behind it.
#pragma once

#include "platform/layer/AttributedString.h"
#include "platform/surface/Color.h"

#include <optional>
#include <string>

namespace QVM_NAMESPACE {

// Of the unit beside a value: translucent, so that what it stands on must be darker than for the value. Main thread.
Color readoutUnitColor();

// The value text and its unit, in the colour for texts on an accent. Known units become one glyph of the icon font.
// Plain text is always set at 16 points; `fontSize` (points) is for values that are glyphs themselves. Main thread.
AttributedString readoutText(const std::string& value, const std::optional<std::string>& suffix, double fontSize);

} // namespace QVM_NAMESPACE
