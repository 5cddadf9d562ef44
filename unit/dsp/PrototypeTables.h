// Second-order sections in the analog domain, fitted to the tilt and to filters of any order; written by
// tools/prototypes.
//
// A section is four values: logarithms of corner and damping of its zeros, then of its poles.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>

namespace QVM_NAMESPACE::dsp {

constexpr std::size_t valuesPerSection = 4;

// The tilt by the span of its corners (from 2400 to 2, even in the logarithm of the span's logarithm), then by the gain
// between its ends in dB. Corners are 0 at the tilt's lower corner and 1 at the upper one.
constexpr std::size_t tiltSections = 3, tiltValues = tiltSections * valuesPerSection;
constexpr std::size_t tiltSpanNodes = 16, tiltGainNodes = 9;
constexpr double widestSpan = 2400, narrowestSpan = 2;
extern const float tiltGains[tiltGainNodes];
extern const float tiltTable[tiltSpanNodes * tiltGainNodes * tiltValues];

// Low-pass filters with their corner at 1 by order, from 1 to 8 and even on a logarithmic scale, and what high-pass
// filters remove. The first section has one zero only; its damping means nothing.
constexpr std::size_t filterSections = 4, filterValues = filterSections * valuesPerSection;
constexpr std::size_t filterNodes = 33;
constexpr double highestOrder = 8;
extern const float filterTable[filterNodes * filterValues];
extern const float removedTable[filterNodes * filterValues];
extern const float removedRootTable[filterNodes * filterValues]; // the square root of that magnitude

} // namespace QVM_NAMESPACE::dsp
