// The part of a window that must be composed again, as a few rectangles. A plain value; any thread.
//
// Few, because each costs a walk over all placements; not one, because two changes at opposite ends would be
// everything.
#pragma once

#include "geometry/Geometry.h"

#include <cstddef>
#include <vector>

namespace QVM_NAMESPACE {

// The rectangles never overlap, and there are at most `maxRects`: past that the two that waste least become one.
class DamageRegion {
public:
    static constexpr std::size_t maxRects = 8;

    // Device pixels, whole numbers; an empty one adds nothing.
    void add(const Rect& rect);
    void clear() { rects_.clear(); }
    const std::vector<Rect>& rects() const { return rects_; }

private:
    void addMerging(Rect rect);
    void mergeBestPair();

    std::vector<Rect> rects_;
};

} // namespace QVM_NAMESPACE
