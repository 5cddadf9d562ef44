// The mappings between the host's number, the shown number and a slider's position, for every parameter identifier.
//
// Which curve follows from the parameter's unit and scale. The constants are 32-bit and rounded as they stand,
// and the arithmetic is 32-bit throughout, so that values agree to the bit wherever they are computed.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>

namespace QVM_NAMESPACE {

// Host domain to shown domain and back. A pid without a mapping keeps the value.
float HostValueToShownValue(std::uint32_t pid, float hostValue);
float ShownValueToHostValue(std::uint32_t pid, float shownValue);

// Shown value to slider position, with no parameter record at hand. A pid that does not exist keeps the value.
float ParameterFloatValueToPercentage(std::uint32_t pid, float shownValue);

// Shown value to slider position and back, neither clamped nor rounded. A pid that does not exist gives 0.
float ShownValueToPosition(std::uint32_t pid, float shownValue);
float PositionToShownValue(std::uint32_t pid, float position);

// The whole part of a number, toward zero. NaN is 0, and numbers that no 32-bit integer holds become its nearest one.
std::int32_t IntegerPart(float value);

} // namespace QVM_NAMESPACE
