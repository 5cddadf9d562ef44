// Arithmetic over whole arrays, on whatever vector unit the machine turns out to have.
//
// The one place with vector instructions. Each function does the same to elements 0 to n - 1; `out` may be one of the
// inputs. Exactly rounded where the processor is (add, multiply, divide, sqrt); log and exp are within 4 units in the
// last place, power within 2e-5 of its result in float and 1e-13 in double while that is a normal number. Zero,
// infinity and not-a-number give what the C library gives. T is float or double. Any thread, nothing allocates.
#pragma once

#include "description/BuildNamespace.h"

#include <cstddef>

namespace QVM_NAMESPACE::vectors {

// out = a
template <class T>
void copy(const T* a, T* out, std::size_t n);
// out = a + b
template <class T>
void add(const T* a, const T* b, T* out, std::size_t n);
// out = a * b
template <class T>
void multiply(const T* a, const T* b, T* out, std::size_t n);
// out = a / b
template <class T>
void divide(const T* a, const T* b, T* out, std::size_t n);
// out = numerator / b
template <class T>
void divideScalarBy(T numerator, const T* b, T* out, std::size_t n);
// out = a * scale + offset
template <class T>
void scaleAndOffset(const T* a, T scale, T offset, T* out, std::size_t n);
// out = a * scale + b
template <class T>
void multiplyAdd(const T* a, T scale, const T* b, T* out, std::size_t n);
// out = base ^ exponent; not-a-number for a negative base. A double result beyond e^706 is infinite.
template <class T>
void power(const T* base, T exponent, T* out, std::size_t n);
// Natural logarithm.
template <class T>
void log(const T* a, T* out, std::size_t n);
// e ^ a. A double result beyond e^706 is infinite.
template <class T>
void exp(const T* a, T* out, std::size_t n);
template <class T>
void sqrt(const T* a, T* out, std::size_t n);
// out = a, no less than `low` and no more than `high`
template <class T>
void clip(const T* a, T low, T high, T* out, std::size_t n);
// Square root of the mean of the squares; 0 when n is 0.
template <class T>
T rms(const T* a, std::size_t n);
// out[i] = the sum over j of padded[i + j] * kernel[j]. `padded` has n + kernelLength - 1 elements, apart from `out`.
template <class T>
void convolve(const T* padded, const T* kernel, std::size_t kernelLength, T* out, std::size_t n);

} // namespace QVM_NAMESPACE::vectors
