// The area that a fan of triangles covers, all of which share one corner (the hub), as triangles that do not overlap.
//
// Triangles with a common corner add up to a shape in which every point can be seen from that corner. So it is enough
// to know how far one sees in each direction: along evenly spread rays, and at the outermost point between two of them.
// Main thread only.
#pragma once

#include "platform/surface/StrokeGeometry.h"

#include <array>
#include <vector>

namespace QVM_NAMESPACE {

class FanOutline {
public:
    static constexpr int kRays = 256;

    // Forgets all triangles.
    void begin(Vertex hub);
    // Adds the triangle between the hub and two points.
    void add(Vertex a, Vertex b);
    // The area in triples of corners; valid until the next call. What is narrower than the space between two rays is
    // left out.
    const std::vector<Vertex>& triangles();

private:
    struct Direction {
        float reach = 0;    // along the ray
        Vertex tip;         // the farthest point between this ray and the next, from the hub
        float tipReach = 0; // squared
    };
    void addTip(Vertex point, float angle);
    void addEdge(Vertex a, float angleA, Vertex b, float angleB);

    Vertex hub_;
    std::array<Direction, kRays> directions_;
    std::vector<Vertex> outline_, triangles_;
};

} // namespace QVM_NAMESPACE
