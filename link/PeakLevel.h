// The level of a peak in decibels.
#pragma once

#include "description/Types.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

// `peak` is an amplitude, not negative; silence is the lower end of the range. Computed in the precision of the sample.
// Any thread.
template <class Sample>
float peakLevel(Sample peak, QVMFloat32Range decibels) {
    constexpr float decibelsPerNeper = 8.685889f;
    const auto level = static_cast<float>(std::log(peak) * Sample{decibelsPerNeper});
    return std::clamp(level, decibels.min, decibels.max);
}

} // namespace QVM_NAMESPACE
