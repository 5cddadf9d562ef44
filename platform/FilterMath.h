// Filters over stretches of stereo samples, on whatever vector unit the machine has.
//
// Samples are interleaved pairs in double precision; both channels go through the same filter. Any thread, nothing
// allocates.
#pragma once

#include "description/BuildNamespace.h"

#include <array>
#include <cstddef>

namespace QVM_NAMESPACE::vectors {

// A second-order section as a trapezoidally integrated state-variable filter, which keeps its poise while its
// coefficients move (A. Simper, "Solving the continuous SVF equations using trapezoidal integration and equivalent
// currents", 2013; V. Zavalishin, "The Art of VA Filter Design", 2012). The a-s move the two integrators, the m-s mix
// the input, the band-pass and the low-pass output.
struct SvfCoefficients {
    double a1 = 1, a2 = 0, a3 = 0;
    double m0 = 1, m1 = 0, m2 = 0;
    std::array<double, 2> unused{}; // a section is a whole number of vectors
};

struct SvfState {
    std::array<double, 2> first{}, second{}; // by channel
};

// Sends `frames` pairs at `samples` through the sections, one after the other, in place.
void svfCascade(const SvfCoefficients* sections, SvfState* states, std::size_t count, double* samples,
                std::size_t frames);
// The same while the coefficients move: `steps` is added to them before each sample.
void svfGlide(SvfCoefficients* sections, const SvfCoefficients* steps, SvfState* states, std::size_t count,
              double* samples, std::size_t frames);
// out[i] = the sum over j of taps[j] * samples[i - j], in pairs. `samples` is preceded by tapCount - 1 pairs and does
// not overlap `out`; the number of taps is even.
void firStereo(const double* samples, const double* taps, std::size_t tapCount, double* out, std::size_t frames);

} // namespace QVM_NAMESPACE::vectors
