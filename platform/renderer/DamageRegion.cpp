#include "platform/renderer/DamageRegion.h"

#include <limits>

namespace QVM_NAMESPACE {

namespace {

double area(const Rect& r) {
    return r.width * r.height;
}

// Pixels that the union of two rectangles holds and neither of them does.
double wasteOf(const Rect& a, const Rect& b) {
    return area(a.unionWith(b)) - area(a) - area(b) + area(a.intersectionWith(b));
}

} // namespace

void DamageRegion::add(const Rect& rect) {
    if (rect.isEmpty()) return;
    addMerging(rect);
    while (rects_.size() > maxRects)
        mergeBestPair();
}

void DamageRegion::addMerging(Rect rect) {
    for (std::size_t i = 0; i < rects_.size();) {
        if (rects_[i].contains(rect)) return;
        if (!rects_[i].intersects(rect) && wasteOf(rects_[i], rect) > 0) {
            ++i;
            continue;
        }
        rect = rect.unionWith(rects_[i]);
        rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(i));
        i = 0; // the union may reach what was passed
    }
    rects_.push_back(rect);
}

void DamageRegion::mergeBestPair() {
    std::size_t first = 0, second = 1;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < rects_.size(); ++i) {
        for (std::size_t j = i + 1; j < rects_.size(); ++j) {
            const double waste = wasteOf(rects_[i], rects_[j]);
            if (waste < least) least = waste, first = i, second = j;
        }
    }
    const Rect merged = rects_[first].unionWith(rects_[second]);
    rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(second));
    rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(first));
    addMerging(merged);
}

} // namespace QVM_NAMESPACE
