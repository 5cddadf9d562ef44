// The gallery's own colour: of the bands that some things are shown on, and of what the displays draw.
#pragma once

#include "theme/Colors.h"

namespace QVM_NAMESPACE {

inline constexpr Color galleryAccent = colorFromHex(0xA5666C);

} // namespace QVM_NAMESPACE
