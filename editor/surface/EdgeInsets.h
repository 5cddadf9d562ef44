// Insets as the description gives them: points by edge, where an edge that is not named has none.
#pragma once

#include "geometry/Geometry.h"

#include <map>
#include <string>

namespace QVM_NAMESPACE {

// `rect` without what the insets take at "left", "top", "right" and "bottom"; y grows downwards. Insets that are
// together larger than the rectangle make it one of negative size. Any thread.
inline Rect insetByEdges(const Rect& rect, const std::map<std::string, double>& insets) {
    const auto edge = [&insets](const char* name) {
        const auto found = insets.find(name);
        return found == insets.end() ? 0 : found->second;
    };
    const double left = edge("left"), top = edge("top");
    return {rect.x + left, rect.y + top, rect.width - left - edge("right"), rect.height - top - edge("bottom")};
}

} // namespace QVM_NAMESPACE
