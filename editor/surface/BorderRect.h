// The lines along the edges of the editor's parts, as boxes: a filled box keeps to whole pixels where a stroke would
// lie across two of them.
#pragma once

#include "geometry/Geometry.h"

#include <cstdint>

namespace QVM_NAMESPACE {

enum class QVMEdge : std::uint8_t { left, top, right, bottom };

// A line along an edge, inside of it; all in points.
struct QVMBorderSpec {
    QVMEdge edge = QVMEdge::bottom;
    double width = 1;
    double inset = 0; // left free at both ends
};

// The box that the described line along an edge of `rect` covers; y grows downwards. Any thread.
constexpr Rect QVMBorderRectWithBorderSpec(const Rect& rect, const QVMBorderSpec& spec) {
    const double along = spec.inset, width = rect.width - 2 * spec.inset, height = rect.height - 2 * spec.inset;
    switch (spec.edge) {
    case QVMEdge::left:
        return {rect.x, rect.y + along, spec.width, height};
    case QVMEdge::top:
        return {rect.x + along, rect.y, width, spec.width};
    case QVMEdge::right:
        return {rect.x + rect.width - spec.width, rect.y + along, spec.width, height};
    case QVMEdge::bottom:
        return {rect.x + along, rect.y + rect.height - spec.width, width, spec.width};
    }
    return {};
}

} // namespace QVM_NAMESPACE
