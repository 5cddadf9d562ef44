// What a sketch draws on: lines and triangles in a projection of its choice, pixels out.
//
// One picture at a time: begin(), draw, finish(). Shapes are drawn over what is there. The picture is defined by the
// share of each pixel that a shape covers (PixelCoverage.h), so that every back end gives the same one. Main thread.
#pragma once

#include "geometry/Geometry.h"
#include "platform/surface/Color.h"
#include "platform/surface/Image.h"
#include "platform/surface/StrokeGeometry.h"

#include <array>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

enum class TriangleMode : unsigned char { list, strip };

struct LineStyle {
    float width = 1;  // points
    float dashOn = 0; // points along the strip, from its start; 0: solid
    float dashOff = 0;
};

// In pixels, y down. Each corner has a colour.
struct FilledTriangle {
    std::array<Vertex, 3> corners;
    std::array<Color, 3> colors;
    bool isPlain = false; // the three colours are the same
};

class DrawingSurface {
public:
    virtual ~DrawingSurface() = default;
    DrawingSurface(const DrawingSurface&) = delete;
    DrawingSurface& operator=(const DrawingSurface&) = delete;

    // Starts a picture: transparent, `size` points at `scale` pixels a point (rounded up to whole pixels, at least
    // one), with a projection in points whose y grows upwards.
    void begin(Size size, double scale);
    int pixelWidth() const { return pixelWidth_; }
    int pixelHeight() const { return pixelHeight_; }
    double scale() const { return scale_; }

    // From now on `left`..`right` spans the picture's width and `bottom`..`top` its height.
    void setProjection(double left, double right, double bottom, double top);
    // Takes everything back that was drawn: transparent black.
    void clear();
    // In pixels, whole, y down: outside of it the picture is transparent. Read it before the next begin().
    Rect painted() const;

    // A line through the points, with round joints and cut-off ends; where it crosses itself it is not drawn twice. It
    // is interrupted at points that are not finite.
    void drawLineStrip(std::span<const Vertex> points, const LineStyle& style, Color color);
    // With a colour for each point, blended in between.
    void drawLineStrip(std::span<const Vertex> points, const LineStyle& style, std::span<const Color> colors);
    // Triangles that may touch but must not overlap one another: three points each, or a strip in which each point
    // makes one with the two before it. Those with points that are not finite are left out.
    void fillTriangles(std::span<const Vertex> points, TriangleMode mode, Color color);
    void fillTriangles(std::span<const Vertex> points, TriangleMode mode, std::span<const Color> colors);

    // Ends the picture and hands its pixels over, rows from the top. What `picture` held may be taken for the next one.
    // False when the back end broke down: then it can't be used any more. Nothing may be drawn until the next begin().
    virtual bool finish(Image& picture) = 0;

protected:
    DrawingSurface() = default;
    virtual void clearPixels() = 0;
    virtual void strokeSegments(std::span<const StrokeSegment> segments) = 0;
    virtual void fillPixels(std::span<const FilledTriangle> triangles) = 0;

private:
    Vertex toPixels(Vertex v) const;
    void touch(Vertex v, float reach);

    int pixelWidth_ = 1, pixelHeight_ = 1;
    double scale_ = 1;
    Size size_; // points
    double left_ = 0, right_ = 1, bottom_ = 0, top_ = 1;
    Vertex lowest_, highest_; // corners of what was drawn, in pixels
    // Kept from call to call for their memory alone.
    std::vector<Vertex> pixels_;
    std::vector<StrokeSegment> segments_;
    std::vector<FilledTriangle> triangles_;
};

} // namespace QVM_NAMESPACE
