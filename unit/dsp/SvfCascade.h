// Second-order sections one after the other over stretches of stereo samples, on whatever vector unit the machine has.
//
// Samples are interleaved pairs in double precision; both channels go through the same filter. Any thread, nothing
// allocates.
#pragma once

#include "BuildNamespace.h"

#include <array>
#include <cstddef>

namespace QVM_NAMESPACE::vectors {

// A second-order section as a trapezoidally integrated state-variable filter, which keeps its poise while its
// coefficients move (A. Simper, "Solving the continuous SVF equations using trapezoidal integration and equivalent
// currents", 2013; V. Zavalishin, "The Art of VA Filter Design", 2012). With what is between the input x and the second
// integrator as d = x - second, the integrators go on to a1 first + a2 d and second + a2 first + a3 d. The output is
// m0 x, m1 times the sum of what the first one was and is, and m2 times that of the second one.
struct SvfCoefficients {
    double a1 = 1, a2 = 0, a3 = 0;
    double m0 = 1, m1 = 0, m2 = 0;
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

} // namespace QVM_NAMESPACE::vectors
