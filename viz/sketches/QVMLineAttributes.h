// A line to be drawn into a canvas: its points, its look, and whether it is dashed.
//
// A record that is filled and drawn at once; points and colours are borrowed. Main thread only.
#pragma once

#include "platform/surface/Color.h"
#include "viz/sketches/PBGLCanvas.h"

#include <optional>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

class DrawingSurface;

struct QVMDashPattern {
    float on = 0;  // points
    float off = 0; // points
    bool operator==(const QVMDashPattern&) const = default;
};

class QVMLineAttributes {
public:
    // A piece of a line, in the line's own coordinates.
    struct Segment {
        float x0 = 0, y0 = 0, x1 = 0, y1 = 0;
        bool operator==(const Segment&) const = default;
    };

    explicit QVMLineAttributes(const PBGLCanvas& lineCanvas) : canvas(lineCanvas) {}

    // Gives the vertex `index` a colour of its own; the line runs smoothly from one vertex's colour to the next's.
    // Those that are not given one keep `colour` as it is at the first call.
    void setColor(std::size_t index, Color vertexColour);
    // Draws a line through all points or, with a dash pattern, the dashes between the first two.
    void draw(DrawingSurface& surface) const;
    void drawLineStrip(DrawingSurface& surface) const;
    // The dashes of the segment from the first point to the second, each of the pattern's length, on and off measured
    // in points; the last one may be cut short by the segment's end.
    std::vector<Segment> dashesOfSegment() const;

    PBGLCanvas canvas; // for its size
    Color colour;      // of the whole line
    float widthPoints = 1;
    std::span<const float> xs; // -1 to +1 across the canvas
    std::span<const float> ys; // -1 to +1 up the canvas; as many as xs
    std::optional<QVMDashPattern> dashes;

private:
    std::vector<Color> vertexColours_; // empty, or one a point
};

} // namespace QVM_NAMESPACE
