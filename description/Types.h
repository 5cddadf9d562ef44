// Plain value types that the description and everything built from it share: ranges and colours, and geometry under the
// description's names. Frames are in points with y growing downwards, in the space that the field holding them names.
#pragma once

#include "geometry/Geometry.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

using QVMPoint = Point;
using QVMSize = Size;
using QVMRect = Rect;

struct QVMLineSegment {
    QVMPoint from;
    QVMPoint to;
    bool operator==(const QVMLineSegment&) const = default;
};

// A closed interval of a parameter or a display scale.
struct QVMFloat32Range {
    float min = 0;
    float max = 0;
    bool contains(float value) const { return value >= min && value <= max; } // NaN is nowhere
    bool operator==(const QVMFloat32Range&) const = default;
};

// An opaque colour, components 0 to 1: what the drawing code passes around.
struct QVMRGBColor {
    float r = 0;
    float g = 0;
    float b = 0;
    bool operator==(const QVMRGBColor&) const = default;
};

// A colour of the description, components 0 to 1. An unset colour is fully transparent.
struct QVMColor {
    float r = 0;
    float g = 0;
    float b = 0;
    float a = 0;

    QVMRGBColor rgb() const { return {r, g, b}; }
    bool operator==(const QVMColor&) const = default;
};

// Where a label stands inside its frame.
enum class QVMLabelAlignment { left, center, right };

// The opaque colour that "#A5666C" names; the "#" may be missing. Text that is no hexadecimal number is black, and of a
// longer number the lowest 24 bits count.
QVMColor ColorFromHexText(std::string_view text);

// The inverse, "#" and six capital hexadecimal digits; alpha is left out.
std::string HexTextFromColor(const QVMColor& color);

} // namespace QVM_NAMESPACE
