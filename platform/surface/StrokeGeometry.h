// Cuts a line strip into the pieces that a back end draws. All in pixels, y down.
#pragma once

#include "platform/surface/Color.h"

#include <span>
#include <vector>

namespace QVM_NAMESPACE {

struct Vertex {
    float x = 0, y = 0;
    bool operator==(const Vertex&) const = default;
};

// One straight piece of a line. It ends in half a disc where another piece goes on, else it is cut off.
struct StrokeSegment {
    Vertex from, to; // never the same
    Color fromColor, toColor;
    float halfWidth = 0.5f;
    bool isCutAtFrom = false, isCutAtTo = false;
};

struct StrokeMeasure {
    float halfWidth = 0.5f;
    float dashOn = 0; // along the strip, from its start; 0: solid
    float dashOff = 0;
};

// Adds the pieces of a strip through `points` with one colour, or as many as there are points. Points that are not
// finite end the line; it starts again (dashes and all) behind them.
void appendStroke(std::vector<StrokeSegment>& segments, std::span<const Vertex> points, std::span<const Color> colors,
                  const StrokeMeasure& measure);

} // namespace QVM_NAMESPACE
