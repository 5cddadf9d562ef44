// Arithmetic over whole arrays, on whatever vector unit the machine turns out to have.
//
// The one place with vector instructions. Each function does the same to elements 0 to n - 1; `out` may be one of the
// inputs. Exactly rounded where the processor is (add, multiply, divide, sqrt); log and exp are within 4 units in the
// last place, power within 2e-5 of its result while that is a normal number. Zero, infinity and not-a-number give what
// the C library gives. Any thread, nothing allocates.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>

namespace QVM_NAMESPACE::vectors {

// out = a
void copy(const float* a, float* out, std::size_t n);
// out = a + b
void add(const float* a, const float* b, float* out, std::size_t n);
// out = a * b
void multiply(const float* a, const float* b, float* out, std::size_t n);
// out = a / b
void divide(const float* a, const float* b, float* out, std::size_t n);
// out = numerator / b
void divideScalarBy(float numerator, const float* b, float* out, std::size_t n);
// out = a * scale + offset
void scaleAndOffset(const float* a, float scale, float offset, float* out, std::size_t n);
// out = a * scale + b
void multiplyAdd(const float* a, float scale, const float* b, float* out, std::size_t n);
// out = base ^ exponent; not-a-number for a negative base.
void power(const float* base, float exponent, float* out, std::size_t n);
// Natural logarithm.
void log(const float* a, float* out, std::size_t n);
// e ^ a.
void exp(const float* a, float* out, std::size_t n);
void sqrt(const float* a, float* out, std::size_t n);
// out = a, no less than `low` and no more than `high`
void clip(const float* a, float low, float high, float* out, std::size_t n);
// Square root of the mean of the squares; 0 when n is 0.
float rms(const float* a, std::size_t n);
// The sum of a * b, within 1e-6 of the sum of |a * b| for up to a thousand elements.
float dot(const float* a, const float* b, std::size_t n);
// out = sqrt(re ^ 2 + im ^ 2), for squares within a float's range.
void magnitude(const float* re, const float* im, float* out, std::size_t n);
// out = the angle, 0 to pi / 2, of the point (x, y) with neither negative; 0 for (0, 0). Within 4 units in the last
// place of pi / 2.
void angle(const float* y, const float* x, float* out, std::size_t n);
// out[2 i] = even[i], out[2 i + 1] = odd[i]; `out` has 2 n elements, apart from the inputs.
void interleave(const float* even, const float* odd, float* out, std::size_t n);
// even[i] = in[2 i] * scale, odd[i] = in[2 i + 1] * scale; `in` has 2 n elements, apart from the outputs.
void deinterleave(const float* in, float scale, float* even, float* odd, std::size_t n);
// out[i] = the sum over j of padded[i + j] * kernel[j]. `padded` has n + kernelLength - 1 elements, apart from `out`.
void convolve(const float* padded, const float* kernel, std::size_t kernelLength, float* out, std::size_t n);

} // namespace QVM_NAMESPACE::vectors
