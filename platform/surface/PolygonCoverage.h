// The exact area that triangles cover in a pixel. All lengths are pixels, y downwards; plain values, any thread.
#pragma once

#include "platform/surface/StrokeGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace QVM_NAMESPACE {

// A triangle, or two that share an edge, made ready for the pixels of one row after the other.
//
// The area that a polygon covers in a pixel is the sum, over the polygon's edges, of the area at the right of the edge
// there, counted positive for an edge that leads to larger y. The edge that two triangles share cancels out.
struct PolygonCoverage {
    struct Edge {
        Edge() = default;
        Edge(Vertex a, Vertex b) : from(a), to(b), slope(a.y == b.y ? 0 : (b.x - a.x) / (b.y - a.y)) {}
        Vertex from, to;
        float slope = 0; // x for each y
    };

    explicit PolygonCoverage(const std::array<Vertex, 3>& triangle) {
        const auto [a, b, c] = turnedOneWay(triangle);
        edges = {Edge(a, b), Edge(b, c), Edge(c, a), Edge()};
    }
    // Takes the neighbour of a triangle in; false, with nothing done, when they share no edge.
    bool join(const std::array<Vertex, 3>& triangle) {
        if (count != 3) return false;
        const auto other = turnedOneWay(triangle);
        for (std::size_t i = 0; i < 9; ++i) {
            Edge& own = edges[i / 3];
            const Vertex a = other[i % 3], b = other[(i + 1) % 3], c = other[(i + 2) % 3];
            if (own.from != b || own.to != a) continue;
            own = Edge(b, c);
            edges[count++] = Edge(c, a);
            return true;
        }
        return false;
    }
    // The same corners so that all triangles run round alike: a shared edge then leads to and fro.
    static std::array<Vertex, 3> turnedOneWay(std::array<Vertex, 3> t) {
        const float turn = (t[1].x - t[0].x) * (t[2].y - t[0].y) - (t[1].y - t[0].y) * (t[2].x - t[0].x);
        if (turn < 0) std::swap(t[1], t[2]);
        return t;
    }

    // The part of an edge within the row: how far it leads down, and where it begins and ends.
    struct EdgeInRow {
        float height = 0, x0 = 0, x1 = 0;
    };
    // To be called when all triangles are in. From now on `at` is about the row of pixels between `y` and `y + 1`.
    // Returns the x that it spans there.
    std::array<float, 2> setRow(float y) {
        std::array<float, 2> spanned{1e9f, -1e9f};
        rowCount = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const Edge& e = edges[i];
            const float a = e.from.y - y, b = e.to.y - y;
            const float from = std::min(std::max(a, 0.0f), 1.0f), to = std::min(std::max(b, 0.0f), 1.0f);
            if (from == to) continue;
            const EdgeInRow part{to - from, e.from.x + (from - a) * e.slope, e.from.x + (to - a) * e.slope};
            row[rowCount++] = part;
            spanned[0] = std::min({spanned[0], part.x0, part.x1});
            spanned[1] = std::max({spanned[1], part.x0, part.x1});
        }
        return spanned;
    }
    // Coverage, 0 to 1, of the row's pixel between `x` and `x + 1`.
    float at(float x) const {
        float area = 0;
        for (std::size_t i = 0; i < rowCount; ++i)
            area += areaAtTheRight({row[i].height, row[i].x0 - x, row[i].x1 - x});
        return std::min(std::abs(area), 1.0f);
    }
    // The first pixel right of the one at `x` whose coverage may be another.
    float nextChange(float x) const {
        float next = 1e9f;
        for (std::size_t i = 0; i < rowCount; ++i) {
            const float least = std::min(row[i].x0, row[i].x1), most = std::max(row[i].x0, row[i].x1);
            if (most <= x) continue;
            next = std::min(next, least < x + 1 ? x + 1 : least);
        }
        return next;
    }
    // The area at the right of a part of an edge, within the pixel from 0 to 1.
    static float areaAtTheRight(const EdgeInRow& e) {
        const float least = std::min(e.x0, e.x1), most = std::max(e.x0, e.x1);
        if (least >= 1) return 0;
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

    std::array<Edge, 4> edges; // the first `count` of them
    std::size_t count = 3;     // of edges
    std::array<EdgeInRow, 4> row;
    std::size_t rowCount = 0; // of the parts in `row`
};

} // namespace QVM_NAMESPACE
