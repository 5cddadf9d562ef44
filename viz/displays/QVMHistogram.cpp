#include "viz/displays/QVMHistogram.h"

#include "platform/surface/DrawingSurface.h"
#include "platform/vector/VectorMath.h"

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

constexpr QVMFloat32Range kRange = {-60, 0}; // dB
constexpr float kHalfRange = 30;             // dB
constexpr float kGapShare = 0.18f;           // of a bar's place, in whole pixels and at least one
constexpr double kLeastPlace = 3;            // pixels of a bar that leaves a gap
constexpr float kFootAlpha = 0.4f, kTopAlpha = 0.95f;
constexpr int kGridSpaces = 5;                        // of 12 dB
constexpr float kGridAlpha = 0.2f, kGridWidth = 0.5f; // points

} // namespace

void QVMHistogram::init(float, unsigned) {
    for (std::size_t i = 0; i < kBins; ++i)
        xs_[i] = 2 * static_cast<float>(i + 1) / static_cast<float>(kBins) - 1;
    heights_.fill(-1);
}

Redraw QVMHistogram::prepareForDrawing(float, const float* values) {
    const std::array<float, kBins> before = heights_;
    for (std::size_t i = 0; i < kBins; ++i)
        heights_[i] = std::isnan(values[i]) ? kRange.min : values[i];
    vectors::clip(heights_.data(), kRange.min, kRange.max, heights_.data(), kBins);
    vectors::scaleAndOffset(heights_.data(), 1 / kHalfRange, 1, heights_.data(), kBins);
    return heights_ == before ? Redraw::no : Redraw::yes;
}

void QVMHistogram::drawBackground(DrawingSurface& surface) const {
    surface.setProjection(-1, 1, -1, 1);
    for (int line = 1; line < kGridSpaces; ++line) {
        const float height = 2 * static_cast<float>(line) / kGridSpaces - 1;
        const std::array<Vertex, 2> across = {{{-1, height}, {1, height}}};
        surface.drawLineStrip(across, {.width = kGridWidth}, Color{colour.r, colour.g, colour.b, kGridAlpha});
    }
}

// Edges stand on whole pixels, so that every bar and every gap is sharp; a bar is the brighter the higher it reaches.
void QVMHistogram::glDraw(DrawingSurface& surface) const {
    surface.setProjection(0, surface.pixelWidth(), -1, 1);
    const double place = surface.pixelWidth() / static_cast<double>(kBins);
    const double gap = place < kLeastPlace ? 0 : std::max(1.0, std::round(place * kGapShare));
    std::vector<Vertex> corners;
    std::vector<Color> colours;
    for (std::size_t i = 0; i < kBins; ++i) {
        const float top = (heights_[i] + 1) * scale - 1;
        if (!(top > -1)) continue;
        const auto edge = [&](double bin) { return static_cast<float>(std::round(bin * place)); };
        const float left = edge(static_cast<double>(i)),
                    right = edge(static_cast<double>(i + 1)) - static_cast<float>(gap);
        const Color foot = {colour.r, colour.g, colour.b, kFootAlpha};
        const Color head = foot.withAlpha(kFootAlpha + (kTopAlpha - kFootAlpha) * (top + 1) / 2);
        for (const Vertex v : {Vertex{left, -1}, {right, -1}, {left, top}, {right, -1}, {left, top}, {right, top}}) {
            corners.push_back(v);
            colours.push_back(v.y == -1 ? foot : head);
        }
    }
    surface.fillTriangles(corners, TriangleMode::list, colours);
}

} // namespace QVM_NAMESPACE
