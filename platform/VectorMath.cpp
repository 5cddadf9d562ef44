#include "platform/VectorMath.h"

#include "platform/VectorRoutines.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace QVM_NAMESPACE::vectors {

namespace {

template <class T>
const VectorRoutines<T>& routines() {
    if constexpr (std::is_same_v<T, float>)
        return floatVectorRoutines();
    else
        return doubleVectorRoutines();
}

} // namespace

template <class T>
void copy(const T* a, T* out, std::size_t n) {
    if (a != out) std::copy_n(a, n, out);
}

template <class T>
void add(const T* a, const T* b, T* out, std::size_t n) {
    routines<T>().add(a, b, out, n);
}

template <class T>
void multiply(const T* a, const T* b, T* out, std::size_t n) {
    routines<T>().multiply(a, b, out, n);
}

template <class T>
void divide(const T* a, const T* b, T* out, std::size_t n) {
    routines<T>().divide(a, b, out, n);
}

template <class T>
void divideScalarBy(T numerator, const T* b, T* out, std::size_t n) {
    routines<T>().divideScalarBy(numerator, b, out, n);
}

template <class T>
void scaleAndOffset(const T* a, T scale, T offset, T* out, std::size_t n) {
    routines<T>().scaleAndOffset(a, scale, offset, out, n);
}

template <class T>
void multiplyAdd(const T* a, T scale, const T* b, T* out, std::size_t n) {
    routines<T>().multiplyAdd(a, scale, b, out, n);
}

template <class T>
void power(const T* base, T exponent, T* out, std::size_t n) {
    routines<T>().power(base, exponent, out, n);
}

template <class T>
void log(const T* a, T* out, std::size_t n) {
    routines<T>().log(a, out, n);
}

template <class T>
void exp(const T* a, T* out, std::size_t n) {
    routines<T>().exp(a, out, n);
}

template <class T>
void sqrt(const T* a, T* out, std::size_t n) {
    routines<T>().sqrt(a, out, n);
}

template <class T>
void clip(const T* a, T low, T high, T* out, std::size_t n) {
    routines<T>().clip(a, low, high, out, n);
}

template <class T>
T rms(const T* a, std::size_t n) {
    return n == 0 ? T(0) : std::sqrt(routines<T>().sumOfSquares(a, n) / static_cast<T>(n));
}

template <class T>
void convolve(const T* padded, const T* kernel, std::size_t kernelLength, T* out, std::size_t n) {
    routines<T>().convolve(padded, kernel, kernelLength, out, n);
}

#define INSTANTIATE_FOR(T)                                                                                             \
    template void copy(const T*, T*, std::size_t);                                                                     \
    template void add(const T*, const T*, T*, std::size_t);                                                            \
    template void multiply(const T*, const T*, T*, std::size_t);                                                       \
    template void divide(const T*, const T*, T*, std::size_t);                                                         \
    template void divideScalarBy(T, const T*, T*, std::size_t);                                                        \
    template void scaleAndOffset(const T*, T, T, T*, std::size_t);                                                     \
    template void multiplyAdd(const T*, T, const T*, T*, std::size_t);                                                 \
    template void power(const T*, T, T*, std::size_t);                                                                 \
    template void log(const T*, T*, std::size_t);                                                                      \
    template void exp(const T*, T*, std::size_t);                                                                      \
    template void sqrt(const T*, T*, std::size_t);                                                                     \
    template void clip(const T*, T, T, T*, std::size_t);                                                               \
    template T rms(const T*, std::size_t);                                                                             \
    template void convolve(const T*, const T*, std::size_t, T*, std::size_t);

INSTANTIATE_FOR(float)
INSTANTIATE_FOR(double)
#undef INSTANTIATE_FOR

} // namespace QVM_NAMESPACE::vectors
