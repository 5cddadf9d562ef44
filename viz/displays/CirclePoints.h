// The points of a circle, for a line through them. In whatever unit the radius has; any thread.
#pragma once

#include "platform/surface/StrokeGeometry.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace QVM_NAMESPACE {

// Around the origin, from the right and back to it: one point more than segments.
inline std::vector<Vertex> circlePoints(float radius, int segments) {
    std::vector<Vertex> points;
    for (int i = 0; i <= segments; ++i) {
        const float angle = 2 * std::numbers::pi_v<float> * static_cast<float>(i) / static_cast<float>(segments);
        points.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return points;
}

} // namespace QVM_NAMESPACE
