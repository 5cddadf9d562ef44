// One step of a composition. A layer tree is flattened to a list of these, back to front.
#pragma once

#include "platform/renderer/RasterBackend.h"

#include <memory>

namespace QVM_NAMESPACE {

struct Placement {
    enum class Step : unsigned char { draw, fill, pushClip, popClip, pushGroup, popGroup };

    Step step = Step::draw;
    const Layer* layer = nullptr; // tells the steps of two lists which belong together; never followed
    Rect bounds;         // device pixels, whole: all that this step, or what is between push and pop, can touch
    std::size_t pop = 0; // of a push: the index of its pop

    std::shared_ptr<Raster> raster; // draw
    AffineTransform transform;      // draw, pushClip
    double opacity = 1;             // draw, pushGroup
    Color color;                    // fill
    Rect rect;                      // fill, pushClip
    double cornerRadius = 0;        // pushClip

    bool isLeaf() const { return step == Step::draw || step == Step::fill; }
    bool isPush() const { return step == Step::pushClip || step == Step::pushGroup; }
    bool isSameStep(const Placement& other) const { return layer == other.layer && step == other.step; }
    // Whether this step, at the same place in the order, gives the same pixels as the other. The bounds of pushes and
    // pops do not count: what moves between them tells of itself.
    bool looksLike(const Placement& other) const;
};

} // namespace QVM_NAMESPACE
