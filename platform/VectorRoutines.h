// What VectorMath is made of, compiled once for each kind of vector unit; one table is chosen when first needed.
#pragma once

#include "description/BuildNamespace.h"

#include <cstddef>

namespace QVM_NAMESPACE {

// The functions of VectorMath by the same names.
template <class T>
struct VectorRoutines {
    void (*add)(const T* a, const T* b, T* out, std::size_t n);
    void (*multiply)(const T* a, const T* b, T* out, std::size_t n);
    void (*divide)(const T* a, const T* b, T* out, std::size_t n);
    void (*divideScalarBy)(T numerator, const T* b, T* out, std::size_t n);
    void (*scaleAndOffset)(const T* a, T scale, T offset, T* out, std::size_t n);
    void (*multiplyAdd)(const T* a, T scale, const T* b, T* out, std::size_t n);
    void (*power)(const T* base, T exponent, T* out, std::size_t n);
    void (*log)(const T* a, T* out, std::size_t n);
    void (*exp)(const T* a, T* out, std::size_t n);
    void (*sqrt)(const T* a, T* out, std::size_t n);
    void (*clip)(const T* a, T low, T high, T* out, std::size_t n);
    T (*sumOfSquares)(const T* a, std::size_t n);
    void (*convolve)(const T* padded, const T* kernel, std::size_t kernelLength, T* out, std::size_t n);
};

// The tables of the best vector unit that this machine has.
const VectorRoutines<float>& floatVectorRoutines();
const VectorRoutines<double>& doubleVectorRoutines();

} // namespace QVM_NAMESPACE
