// The numbers of this product's parameters, which are the audio unit's own.
//
// Hosts keep them in projects and automation, and states and snapshots are kept by them: a number is never given to
// another parameter, nor taken from one that no control shows any more. Tables by pid are as long as the count, so they
// have no gaps.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>

namespace QVM_NAMESPACE {

enum ParameterID : std::uint32_t {
    pidMasterOnOff = 0,
    pidTiltGain = 1,
    pidTiltRangeLow = 2,
    pidTiltRangeHigh = 3,
    pidTiltRangeLink = 4,
    pidTiltRangeLinkRatio = 5,
    pidTiltLoudnessMode = 6,
    pidOutputGain = 7,
    pidMeterMode = 8,
    pidFilterRangeLow = 9,
    pidFilterRangeHigh = 10,
    pidFilterRangeLink = 11,
    pidFilterRangeLinkRatio = 12,
    pidFilterListenLow = 13,
    pidFilterSlopeLow = 14,
    pidFilterResonanceLow = 15,
    pidFilterSlopeLink = 16,
    pidFilterSlopeLinkRatio = 17,
    pidFilterResonanceLink = 18,
    pidFilterResonanceLinkRatio = 19,
    pidFilterListenHigh = 20,
    pidFilterSlopeHigh = 21,
    pidFilterResonanceHigh = 22,
    pidHQMode = 23,
    pidBehindTheLast // of no parameter
};
inline constexpr std::uint32_t QVMParameterCount = pidBehindTheLast;

} // namespace QVM_NAMESPACE
