// The magnitudes that the prototypes stand for, in nepers over x, the logarithm of a frequency.
#pragma once

#include "Fit.h"

namespace prototypes {

// The tilt from its lower corner (x = 0): `span` is the logarithm of the ratio of its corners, `gain` in dB between
// its ends.
double tiltLevel(double x, double span, double gain);
// A low-pass filter of any real order: -ln(1 + w^(2 order)) / 2.
double filterLevel(double x, double order);
// What the high-pass filter of that order removes: ln(1 - |H|).
double removedLevel(double x, double order);

// Where the fits look, and how closely. Filters down to -60 dB and, less closely, on to -100 dB.
Target tiltTarget(double span, double gain);
Target filterTarget(double order);
Target removedTarget(double order);
Target removedRootTarget(double order);

} // namespace prototypes
