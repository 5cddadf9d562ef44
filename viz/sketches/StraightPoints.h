// Thins out a line's points, so that what is straight is drawn as one piece.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>
#include <vector>

namespace QVM_NAMESPACE {

// Leaves out, in place, the points that go on in the direction of the last two that are left, and returns how many of
// the first `count` remain. The first two and the last always do. `straightness` is twice the area, times `count`, that
// a point may span with those two to be left out. Any thread that owns the points.
std::size_t dropStraightPoints(std::vector<float>& xs, std::vector<float>& ys, std::size_t count, float straightness);

} // namespace QVM_NAMESPACE
