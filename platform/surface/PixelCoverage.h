// How much of a pixel a shape covers: the definition of every picture that a DrawingSurface makes.
//
// Lines: the overlap of the line's width with one pixel's width, measured at right angles to the line (and along it, at
// ends that are cut off); so a line looks the same in every direction. Triangles: the exact area (PolygonCoverage.h).
// The fragment shaders in GlShaders.cpp compute the same; a change here is a change there.
#pragma once

#include "platform/surface/StrokeGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

// A segment made ready for many pixels.
struct SegmentCoverage {
    explicit SegmentCoverage(const StrokeSegment& s) : origin(s.from), halfWidth(s.halfWidth) {
        constexpr float endless = 1e9f;
        const float dx = s.to.x - s.from.x, dy = s.to.y - s.from.y;
        length = std::sqrt(dx * dx + dy * dy);
        direction = {dx / length, dy / length};
        roundAtFrom = s.isCutAtFrom ? 0.0f : 1.0f;
        roundAtTo = s.isCutAtTo ? 0.0f : 1.0f;
        low = s.isCutAtFrom ? 0 : -endless;
        high = s.isCutAtTo ? length : endless;
    }

    // How far along the segment the point lies, in pixels from its start.
    float along(float x, float y) const { return (x - origin.x) * direction.x + (y - origin.y) * direction.y; }
    // Coverage, 0 to 1, of the pixel whose centre the point is.
    float at(float x, float y) const {
        const float t = along(x, y);
        const float side = (x - origin.x) * direction.y - (y - origin.y) * direction.x;
        const float beyond = std::max(-t, 0.0f) * roundAtFrom + std::max(t - length, 0.0f) * roundAtTo;
        const float distance = std::sqrt(side * side + beyond * beyond);
        const float across = std::min(distance + 0.5f, halfWidth) - std::max(distance - 0.5f, -halfWidth);
        const float lengthwise = std::min(t + 0.5f, high) - std::max(t - 0.5f, low);
        return std::max(across, 0.0f) * std::min(std::max(lengthwise, 0.0f), 1.0f);
    }

    Vertex origin, direction;
    float halfWidth, length, roundAtFrom, roundAtTo, low, high;
};

// Shares of the three corners in the point, none below 0. Zero for a triangle without area.
inline std::array<float, 3> cornerShares(const std::array<Vertex, 3>& c, float x, float y) {
    const auto cross = [](Vertex a, Vertex b, float px, float py) {
        return (b.x - a.x) * (py - a.y) - (b.y - a.y) * (px - a.x);
    };
    const float whole = cross(c[0], c[1], c[2].x, c[2].y);
    if (whole == 0) return {};
    std::array<float, 3> shares{cross(c[1], c[2], x, y) / whole, cross(c[2], c[0], x, y) / whole,
                                cross(c[0], c[1], x, y) / whole};
    float sum = 0;
    for (float& share : shares)
        sum += share = std::max(share, 0.0f);
    for (float& share : shares)
        share /= sum;
    return shares;
}

} // namespace QVM_NAMESPACE
