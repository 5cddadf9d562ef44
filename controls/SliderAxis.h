// The way that the centre of a slider's handle can go. A plain value.
#pragma once

#include "geometry/Geometry.h"

namespace QVM_NAMESPACE {

// Positions are points along the axis in the slider's coordinates; fractions are of the way, 0 at its lowest end.
struct SliderAxis {
    bool horizontal = false;
    double lowest = 0, highest = 0;

    double range() const { return highest - lowest; }
    // Of a point of the slider, what lies along the axis; and the point at a position, beside or above the slider's
    // edge by `across` points.
    double coordinateOf(Point point) const { return horizontal ? point.x : point.y; }
    Point pointAt(double position, double across = 0) const {
        return horizontal ? Point{position, across} : Point{across, position};
    }
    // Not limited to the way. Not a number, or infinite, where there is no way at all.
    double fractionAt(double position) const { return (position - lowest) / range(); }
    double positionAt(double fraction) const { return range() * fraction + lowest; }
};

} // namespace QVM_NAMESPACE
