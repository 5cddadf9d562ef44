// The numbers of this product's parameters, which are the audio unit's own.
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
};
inline constexpr std::uint32_t QVMParameterCount = 24;

} // namespace QVM_NAMESPACE
