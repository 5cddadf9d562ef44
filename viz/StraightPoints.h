// Thins out a line's points, so that what is straight is drawn as one piece.
#pragma once

#include "description/BuildNamespace.h"

#include <cstddef>
#include <vector>

namespace QVM_NAMESPACE {

// Leaves out, in place, the points that lie on the straight line between their neighbours and returns how many of the
// first `count` are left. The first two and the last always are. `straightness` is twice the area, times `count`, that
// a point may span with its neighbours to be left out. Any thread that owns the points.
std::size_t dropStraightPoints(std::vector<float>& xs, std::vector<float>& ys, std::size_t count, float straightness);

} // namespace QVM_NAMESPACE
