// How much of a pixel a shape covers: the definition of every picture that a DrawingSurface makes.
//
// Lines: the overlap of the line's width with one pixel's width, measured at right angles to the line (and along it, at
// ends that are cut off); so a line looks the same in every direction. Triangles: the exact area. The fragment shaders
// in GlShaders.cpp compute the same; a change here is a change there.
#pragma once

#include "platform/StrokeGeometry.h"

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

// A triangle made ready for the pixels of one row after the other.
//
// The area that a polygon covers in a pixel is the sum, over the polygon's edges, of the area at the right of the edge
// there, counted positive for an edge that leads to larger y.
struct TriangleCoverage {
    explicit TriangleCoverage(const std::array<Vertex, 3>& c) : corners(c) {
        for (std::size_t i = 0; i < 3; ++i) {
            const Vertex a = c[i], b = c[(i + 1) % 3];
            slopes[i] = a.y == b.y ? 0 : (b.x - a.x) / (b.y - a.y);
        }
    }

    // The part of an edge within the row: how far it leads down, 0 if it is not there, and where it begins and ends.
    struct EdgeInRow {
        float height = 0, x0 = 0, x1 = 0;
    };
    // From now on `at` is about the row of pixels between `y` and `y + 1`. Returns the x that it spans there.
    std::array<float, 2> setRow(float y) {
        std::array<float, 2> spanned{1e9f, -1e9f};
        for (std::size_t i = 0; i < 3; ++i) {
            const Vertex a = corners[i], b = corners[(i + 1) % 3];
            const float from = std::min(std::max(a.y - y, 0.0f), 1.0f), to = std::min(std::max(b.y - y, 0.0f), 1.0f);
            row[i] = {to - from, a.x + (from - (a.y - y)) * slopes[i], a.x + (to - (a.y - y)) * slopes[i]};
            if (from == to) continue;
            spanned[0] = std::min({spanned[0], row[i].x0, row[i].x1});
            spanned[1] = std::max({spanned[1], row[i].x0, row[i].x1});
        }
        return spanned;
    }
    // Coverage, 0 to 1, of the row's pixel between `x` and `x + 1`.
    float at(float x) const {
        float area = 0;
        for (const EdgeInRow& edge : row)
            area += areaAtTheRight({edge.height, edge.x0 - x, edge.x1 - x});
        return std::min(std::abs(area), 1.0f);
    }
    // The first pixel right of the one at `x` whose coverage may be another.
    float nextChange(float x) const {
        float next = 1e9f;
        for (const EdgeInRow& edge : row) {
            const float least = std::min(edge.x0, edge.x1), most = std::max(edge.x0, edge.x1);
            if (edge.height == 0 || most <= x) continue;
            next = std::min(next, least < x + 1 ? x + 1 : least);
        }
        return next;
    }
    // For the pixel between 0 and 1.
    static float areaAtTheRight(const EdgeInRow& e) {
        const float least = std::min(e.x0, e.x1), most = std::max(e.x0, e.x1);
        if (e.height == 0 || least >= 1) return 0;
        if (most <= 0) return e.height;
        // The mean over the edge of x clamped to the pixel; where the edge leaves the pixel, by the integral.
        const float low = std::max(least, 0.0f), high = std::min(most, 1.0f);
        float mean = (low + high) / 2;
        if ((low != least || high != most) && low != high) {
            mean = ((high * high - low * low) / 2 + std::max(most - 1, 0.0f)) / (most - least);
            mean = std::min(std::max(mean, low), high);
        }
        return e.height * (1 - mean);
    }

    std::array<Vertex, 3> corners;
    std::array<float, 3> slopes;
    std::array<EdgeInRow, 3> row;
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
