// Filters over stretches of stereo samples, and what their design takes most time for, on whatever vector unit the
// machine has.
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
// out[i] = the sum over j of taps[j] * samples[i - j], in pairs. `samples` is preceded by tapCount - 1 pairs and does
// not overlap `out`; the number of taps is even.
void firStereo(const double* samples, const double* taps, std::size_t tapCount, double* out, std::size_t frames);

using Quadratic = std::array<double, 3>; // c[0] + c[1] x + c[2] x^2
// values[i] *= all the quadratics of x[i]. `n` is a multiple of 8.
void multiplyByQuadratics(const Quadratic* quadratics, std::size_t count, const double* x, double* values,
                          std::size_t n);
// out[k] = the sum over i of matrix[i][k] values[i]. There are an even number of rows, and a row has `columns`, a
// multiple of 8.
void multiplyRows(const double* matrix, const double* values, std::size_t rows, double* out, std::size_t columns);

} // namespace QVM_NAMESPACE::vectors
