// The corners of everything that is drawn with round ones: a short scale, so that what stands side by side agrees.
#pragma once

#include "geometry/Geometry.h"

#include <algorithm>

namespace QVM_NAMESPACE::radii {

inline constexpr double box = 8;  // points: what holds something, such as a menu or a number's box
inline constexpr double mark = 4; // points: what marks a place in one, such as a row under the pointer

// Of what has no straight side, such as a switch or a handle.
constexpr double capsule(const Rect& frame) {
    return std::min(frame.width, frame.height) / 2;
}

} // namespace QVM_NAMESPACE::radii
