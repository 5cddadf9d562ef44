// Where the corners of the response curve stand: on the curve at their frequencies, as far as the edges, the buttons in
// the editor's corners and each other leave them room.
#pragma once

#include "editor/surface/CurveCorner.h"

#include <functional>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

struct CornerSpot {
    double hertz = 0;
    CurveCorner::Shape shape = CurveCorner::Shape::disc;
};

// What there is beside the corners.
struct CornerSite {
    CurveScale scale;                        // not empty
    std::function<double(double hertz)> yAt; // of the curve, points
    Rect button;                             // in a corner of the curve, points
    double pixels = 1;                       // a point
};

// The middle of each, in points of the curve's view and on whole pixels; a filter's makes room for a tilt's. Main
// thread.
std::vector<Point> cornerPlaces(std::span<const CornerSpot> spots, const CornerSite& site);

} // namespace QVM_NAMESPACE
