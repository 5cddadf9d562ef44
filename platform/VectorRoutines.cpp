#include "platform/VectorRoutines.h"

#include <algorithm>
#include <cmath>
#include <limits>

// The library includes this file again for each kind of vector unit.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/VectorRoutines.cpp"
#include <hwy/foreach_target.h> // before the others

#include <hwy/highway.h>

#include <hwy/contrib/math/math-inl.h>

HWY_BEFORE_NAMESPACE();
namespace QVM_NAMESPACE::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

template <class T>
struct Routines {
    using D = hn::ScalableTag<T>;
    using V = hn::Vec<D>;
    static constexpr D d{};
    static constexpr T infinity = std::numeric_limits<T>::infinity();
    static constexpr T greatestExponent = sizeof(T) == 4 ? T(104) : T(706); // of the library's exponential

    // out = f(a, b), a vector at a time; the rest goes through arrays of one vector's length.
    template <class F>
    static HWY_INLINE void map(const T* a, const T* b, T* out, std::size_t n, F&& f) {
        const std::size_t lanes = hn::Lanes(d);
        std::size_t i = 0;
        for (; i + lanes <= n; i += lanes)
            hn::StoreU(f(hn::LoadU(d, a + i), hn::LoadU(d, b + i)), d, out + i);
        if (i == n) return;
        HWY_ALIGN T restA[hn::MaxLanes(d)] = {};
        HWY_ALIGN T restB[hn::MaxLanes(d)] = {};
        std::copy(a + i, a + n, restA);
        std::copy(b + i, b + n, restB);
        hn::Store(f(hn::Load(d, restA), hn::Load(d, restB)), d, restA);
        std::copy(restA, restA + (n - i), out + i);
    }
    template <class F>
    static HWY_INLINE void map(const T* a, T* out, std::size_t n, F&& f) {
        map(a, a, out, n, [&f](V x, V) HWY_ATTR { return f(x); });
    }

    static HWY_INLINE V logOf(V x) {
        const V zero = hn::Zero(d), infinite = hn::Set(d, infinity);
        V y = hn::Log(d, x);
        y = hn::IfThenElse(hn::Eq(x, zero), hn::Set(d, -infinity), y);
        y = hn::IfThenElse(hn::Eq(x, infinite), infinite, y);
        return hn::IfThenElse(hn::Ge(x, zero), y, hn::Set(d, std::numeric_limits<T>::quiet_NaN()));
    }
    static HWY_INLINE V expOf(V x) {
        const V most = hn::Set(d, greatestExponent);
        V y = hn::Exp(d, hn::Min(x, most));
        y = hn::IfThenElse(hn::Gt(x, most), hn::Set(d, infinity), y);
        return hn::IfThenElse(hn::Eq(x, x), y, x);
    }

    static void add(const T* a, const T* b, T* out, std::size_t n) {
        map(a, b, out, n, [](V x, V y) HWY_ATTR { return hn::Add(x, y); });
    }
    static void multiply(const T* a, const T* b, T* out, std::size_t n) {
        map(a, b, out, n, [](V x, V y) HWY_ATTR { return hn::Mul(x, y); });
    }
    static void divide(const T* a, const T* b, T* out, std::size_t n) {
        map(a, b, out, n, [](V x, V y) HWY_ATTR { return hn::Div(x, y); });
    }
    static void divideScalarBy(T numerator, const T* b, T* out, std::size_t n) {
        const V k = hn::Set(d, numerator);
        map(b, out, n, [k](V x) HWY_ATTR { return hn::Div(k, x); });
    }
    static void scaleAndOffset(const T* a, T scale, T offset, T* out, std::size_t n) {
        const V k = hn::Set(d, scale), o = hn::Set(d, offset);
        map(a, out, n, [k, o](V x) HWY_ATTR { return hn::MulAdd(x, k, o); });
    }
    static void multiplyAdd(const T* a, T scale, const T* b, T* out, std::size_t n) {
        const V k = hn::Set(d, scale);
        map(a, b, out, n, [k](V x, V y) HWY_ATTR { return hn::MulAdd(x, k, y); });
    }
    static void power(const T* base, T exponent, T* out, std::size_t n) {
        if (exponent == 0) return void(std::fill_n(out, n, T(1)));
        const V k = hn::Set(d, exponent);
        map(base, out, n, [k](V x) HWY_ATTR { return expOf(hn::Mul(k, logOf(x))); });
    }
    static void log(const T* a, T* out, std::size_t n) {
        map(a, out, n, [](V x) HWY_ATTR { return logOf(x); });
    }
    static void exp(const T* a, T* out, std::size_t n) {
        map(a, out, n, [](V x) HWY_ATTR { return expOf(x); });
    }
    static void sqrt(const T* a, T* out, std::size_t n) {
        map(a, out, n, [](V x) HWY_ATTR { return hn::Sqrt(x); });
    }
    static void clip(const T* a, T low, T high, T* out, std::size_t n) {
        const V least = hn::Set(d, low), most = hn::Set(d, high);
        map(a, out, n, [least, most](V x) HWY_ATTR { return hn::Min(hn::Max(x, least), most); });
    }
    static T sumOfSquares(const T* a, std::size_t n) {
        const std::size_t lanes = hn::Lanes(d);
        V sum = hn::Zero(d);
        std::size_t i = 0;
        for (; i + lanes <= n; i += lanes) {
            const V x = hn::LoadU(d, a + i);
            sum = hn::MulAdd(x, x, sum);
        }
        T total = hn::GetLane(hn::SumOfLanes(d, sum));
        for (; i < n; ++i)
            total += a[i] * a[i];
        return total;
    }
    static void convolve(const T* padded, const T* kernel, std::size_t kernelLength, T* out, std::size_t n) {
        const std::size_t lanes = hn::Lanes(d);
        std::size_t i = 0;
        for (; i + lanes <= n; i += lanes) {
            V sum = hn::Zero(d);
            for (std::size_t j = 0; j < kernelLength; ++j)
                sum = hn::MulAdd(hn::LoadU(d, padded + i + j), hn::Set(d, kernel[j]), sum);
            hn::StoreU(sum, d, out + i);
        }
        for (; i < n; ++i) {
            T sum = 0;
            for (std::size_t j = 0; j < kernelLength; ++j)
                sum += padded[i + j] * kernel[j];
            out[i] = sum;
        }
    }

    static constexpr VectorRoutines<T> table{add, multiply, divide, divideScalarBy, scaleAndOffset, multiplyAdd, power,
                                             log, exp,      sqrt,   clip,           sumOfSquares,   convolve};
};

const VectorRoutines<float>* FloatTable() {
    return &Routines<float>::table;
}
const VectorRoutines<double>* DoubleTable() {
    return &Routines<double>::table;
}

} // namespace QVM_NAMESPACE::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace QVM_NAMESPACE {

HWY_EXPORT(FloatTable);
HWY_EXPORT(DoubleTable);

const VectorRoutines<float>& floatVectorRoutines() {
    return *HWY_DYNAMIC_DISPATCH(FloatTable)();
}

const VectorRoutines<double>& doubleVectorRoutines() {
    return *HWY_DYNAMIC_DISPATCH(DoubleTable)();
}

} // namespace QVM_NAMESPACE
#endif
