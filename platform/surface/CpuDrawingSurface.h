// Draws on the processor: analytic coverage, one pass over the pixels that a shape touches.
//
// A shape is collected on its own, the greatest or the summed coverage of its parts in each pixel, and laid over the
// picture as one: so a translucent line is not darker where it crosses itself. One thread at a time.
#pragma once

#include "platform/surface/DrawingSurface.h"
#include "platform/surface/PolygonCoverage.h"

#include <cstdint>
#include <vector>

namespace QVM_NAMESPACE {

class CpuDrawingSurface final : public DrawingSurface {
public:
    bool finish(Image& picture) override;

protected:
    void clearPixels() override;
    void strokeSegments(std::span<const StrokeSegment> segments) override;
    void fillPixels(std::span<const FilledTriangle> triangles) override;

private:
    // Half-open, in pixels.
    struct Area {
        int left = 0, top = 0, right = 0, bottom = 0;
        bool isEmpty() const { return left >= right || top >= bottom; }
    };
    Area clipped(float left, float top, float right, float bottom) const;
    void touch(const Area& area);
    void stroke(const StrokeSegment& segment, bool isPlain);
    void fill(PolygonCoverage coverage, const FilledTriangle& paint);
    // Blends what was collected in `shape_` over the picture and empties it.
    void composite();
    std::uint32_t* shapeRow(int y) { return shape_.data() + static_cast<std::size_t>(y) * pixelWidth(); }

    std::vector<std::uint32_t> picture_; // premultiplied, rows from the top
    std::vector<std::uint32_t> shape_;   // the shape being drawn, transparent in between
    Area touched_;                       // where shape_ may not be transparent
};

} // namespace QVM_NAMESPACE
