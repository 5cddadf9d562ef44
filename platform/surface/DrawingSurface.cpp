#include "platform/surface/DrawingSurface.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

int wholePixels(double points, double scale) {
    constexpr double noise = 1e-6; // pixels
    return std::max(1, static_cast<int>(std::ceil(points * scale - noise)));
}

} // namespace

void DrawingSurface::begin(Size size, double scale) {
    size_ = size;
    scale_ = scale;
    pixelWidth_ = wholePixels(size.width, scale);
    pixelHeight_ = wholePixels(size.height, scale);
    setProjection(0, size.width, 0, size.height);
    clear();
}

void DrawingSurface::clear() {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    lowest_ = {infinity, infinity};
    highest_ = {-infinity, -infinity};
    clearPixels();
}

void DrawingSurface::touch(Vertex v, float reach) {
    lowest_ = {std::min(lowest_.x, v.x - reach), std::min(lowest_.y, v.y - reach)};
    highest_ = {std::max(highest_.x, v.x + reach), std::max(highest_.y, v.y + reach)};
}

Rect DrawingSurface::painted() const {
    if (!(lowest_.x < highest_.x && lowest_.y < highest_.y)) return {};
    const Rect drawn{lowest_.x, lowest_.y, double{highest_.x} - lowest_.x, double{highest_.y} - lowest_.y};
    return drawn.integral().intersectionWith({0, 0, double(pixelWidth_), double(pixelHeight_)});
}

void DrawingSurface::setProjection(double left, double right, double bottom, double top) {
    left_ = left, right_ = right, bottom_ = bottom, top_ = top;
}

Vertex DrawingSurface::toPixels(Vertex v) const {
    return {static_cast<float>((v.x - left_) / (right_ - left_) * size_.width * scale_),
            static_cast<float>((top_ - v.y) / (top_ - bottom_) * size_.height * scale_)};
}

void DrawingSurface::drawLineStrip(std::span<const Vertex> points, const LineStyle& style, Color color) {
    drawLineStrip(points, style, std::span(&color, 1));
}

void DrawingSurface::drawLineStrip(std::span<const Vertex> points, const LineStyle& style,
                                   std::span<const Color> colors) {
    const auto scale = static_cast<float>(scale_);
    pixels_.clear();
    for (const Vertex v : points)
        pixels_.push_back(toPixels(v));
    segments_.clear();
    appendStroke(segments_, pixels_, colors, {style.width * scale / 2, style.dashOn * scale, style.dashOff * scale});
    constexpr float edge = 1; // pixels that a line's soft edge reaches beyond its width
    for (const StrokeSegment& s : segments_) {
        touch(s.from, s.halfWidth + edge);
        touch(s.to, s.halfWidth + edge);
    }
    if (!segments_.empty()) strokeSegments(segments_);
}

void DrawingSurface::fillTriangles(std::span<const Vertex> points, TriangleMode mode, Color color) {
    fillTriangles(points, mode, std::span(&color, 1));
}

void DrawingSurface::fillTriangles(std::span<const Vertex> points, TriangleMode mode, std::span<const Color> colors) {
    triangles_.clear();
    const std::size_t step = mode == TriangleMode::list ? 3 : 1;
    const bool isPlain = colors.size() == 1;
    for (std::size_t i = 0; i + 3 <= points.size(); i += step) {
        FilledTriangle triangle;
        triangle.isPlain = isPlain;
        bool isFinite = true;
        for (std::size_t k = 0; k < 3; ++k) {
            const Vertex pixel = triangle.corners[k] = toPixels(points[i + k]);
            triangle.colors[k] = colors[isPlain ? 0 : i + k];
            isFinite = isFinite && std::isfinite(pixel.x) && std::isfinite(pixel.y);
        }
        if (isFinite) triangles_.push_back(triangle);
    }
    for (const FilledTriangle& triangle : triangles_)
        for (const Vertex corner : triangle.corners)
            touch(corner, 0);
    if (!triangles_.empty()) fillPixels(triangles_);
}

} // namespace QVM_NAMESPACE
