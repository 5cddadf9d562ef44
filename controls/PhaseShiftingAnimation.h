// The march of dashes around an outline.
#pragma once

#include "platform/layer/Animation.h"

namespace QVM_NAMESPACE {

// Moves a shape's dashes from where they are drawn by `phase` points along its path, again and again. The march is seen
// without a seam where that is a whole number of dash periods. Any thread.
inline BasicAnimation PhaseShiftingAnimationToValue(double phase) {
    BasicAnimation march;
    march.keyPath = "lineDashPhase";
    march.fromValue = 0.0;
    march.toValue = phase;
    march.duration = 2;
    march.timing = TimingFunction::linear; // anything else would falter at every repetition
    march.repeatCount = BasicAnimation::forever;
    return march;
}

} // namespace QVM_NAMESPACE
