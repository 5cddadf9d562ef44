// Sums and products over stretches of numbers: a filter of taps, and what the design of the filters takes most time
// for, on whatever vector unit the machine has.
//
// Samples are interleaved pairs in double precision; both channels go through the same filter. Any thread, nothing
// allocates.
#pragma once

#include "BuildNamespace.h"

#include <array>
#include <cstddef>

namespace QVM_NAMESPACE::vectors {

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
