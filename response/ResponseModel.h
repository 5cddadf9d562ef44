// What the curve that is drawn and the sound that is held to it have in common, beside the tilt. Pure functions; any
// thread.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE::model {

// The band of the curve, and with it of everything that is measured over the curve. A filter whose corner is at its end
// of the band is off.
inline constexpr double lowestHertz = 4, highestHertz = 24000;

// Resonances are the peaks that a digital filter makes at this sample rate, whatever the rate of the sound is: their
// bandwidths shrink towards half of it. A corner beyond the highest one counts as that.
inline constexpr double peakRateHz = 48000, highestPeakHertz = 23760;

// How loud a frequency counts, an amplitude from 0 to 1: it falls below 500 and 63 Hz and above 5 kHz, and by 6 dB an
// octave from 20 Hz on all over the band, so that it is greatest at about 170 Hz.
double loudnessWeight(double hertz);

} // namespace QVM_NAMESPACE::model
