#include "viz/sketches/StraightPoints.h"

#include <cmath>

namespace QVM_NAMESPACE {

std::size_t dropStraightPoints(std::vector<float>& xs, std::vector<float>& ys, std::size_t count, float straightness) {
    if (count < 3) return count;
    const float straight = straightness / static_cast<float>(count);
    std::size_t kept = 2;
    for (std::size_t i = 2; i < count; ++i) {
        const float dx1 = xs[kept - 1] - xs[kept - 2], dy1 = ys[kept - 1] - ys[kept - 2];
        const float dx2 = xs[i] - xs[kept - 1], dy2 = ys[i] - ys[kept - 1];
        if (i + 1 < count && std::abs(dx1 * dy2 - dy1 * dx2) <= straight) continue;
        xs[kept] = xs[i];
        ys[kept] = ys[i];
        ++kept;
    }
    return kept;
}

} // namespace QVM_NAMESPACE
