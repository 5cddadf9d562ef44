#include "viz/sketches/QVMLineAttributes.h"

#include "platform/surface/DrawingSurface.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

void QVMLineAttributes::setColor(std::size_t index, Color vertexColour) {
    if (vertexColours_.size() != xs.size()) vertexColours_.resize(xs.size(), colour);
    if (index < vertexColours_.size()) vertexColours_[index] = vertexColour;
}

void QVMLineAttributes::draw(DrawingSurface& surface) const {
    if (!dashes) return drawLineStrip(surface);
    for (const Segment& dash : dashesOfSegment()) {
        const std::array<float, 2> dashXs = {dash.x0, dash.x1}, dashYs = {dash.y0, dash.y1};
        QVMLineAttributes line(canvas);
        line.colour = colour;
        line.widthPoints = widthPoints;
        line.xs = dashXs;
        line.ys = dashYs;
        line.drawLineStrip(surface);
    }
}

void QVMLineAttributes::drawLineStrip(DrawingSurface& surface) const {
    surface.setProjection(-1, 1, -1, 1);
    std::vector<Vertex> points(std::min(xs.size(), ys.size()));
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i] = {xs[i], ys[i]};
    const LineStyle style = {.width = widthPoints};
    if (vertexColours_.size() == points.size() && !points.empty()) {
        surface.drawLineStrip(points, style, vertexColours_);
    } else {
        surface.drawLineStrip(points, style, colour);
    }
}

std::vector<QVMLineAttributes::Segment> QVMLineAttributes::dashesOfSegment() const {
    std::vector<Segment> result;
    if (!dashes || xs.size() < 2) return result;
    const float width = (xs[1] - xs[0]) * canvas.width / 2, height = (ys[1] - ys[0]) * canvas.height / 2;
    const float length = std::hypot(width, height), period = dashes->on + dashes->off;
    if (!(length > 0) || !(period > 0) || !std::isfinite(length)) return result;
    const auto count = static_cast<int>(std::ceil(length / period));
    const auto at = [&](float distance) {
        const float fraction = std::min(distance / length, 1.0f);
        return std::array{xs[0] + (xs[1] - xs[0]) * fraction, ys[0] + (ys[1] - ys[0]) * fraction};
    };
    for (int i = 0; i < count; ++i) {
        const float start = static_cast<float>(i) * period;
        const auto from = at(start), to = at(start + dashes->on);
        result.push_back({from[0], from[1], to[0], to[1]});
    }
    return result;
}

} // namespace QVM_NAMESPACE
