#include "platform/vector/VectorMath.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

// The library includes this file again for each kind of vector unit.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/vector/VectorMath.cpp"
#include <hwy/foreach_target.h> // before the others

#include <hwy/highway.h>

#include <hwy/contrib/math/math-inl.h>

HWY_BEFORE_NAMESPACE();
namespace QVM_NAMESPACE::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using D = hn::ScalableTag<float>;
using V = hn::Vec<D>;
constexpr D d{};
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kGreatestExponent = 104; // that the library's exponential takes

// out = f(a, b), a vector at a time. The last vector overlaps the one before it, so it is computed first, from what
// is there before `out` is written. What is shorter than a vector goes through arrays of a vector's length.
template <class F>
HWY_INLINE void map(const float* a, const float* b, float* out, std::size_t n, F&& f) {
    const std::size_t lanes = hn::Lanes(d);
    if (n >= lanes) {
        const std::size_t last = n - lanes;
        const V end = f(hn::LoadU(d, a + last), hn::LoadU(d, b + last));
        for (std::size_t i = 0; i < last; i += lanes)
            hn::StoreU(f(hn::LoadU(d, a + i), hn::LoadU(d, b + i)), d, out + i);
        hn::StoreU(end, d, out + last);
        return;
    }
    HWY_ALIGN float restA[hn::MaxLanes(d)] = {};
    HWY_ALIGN float restB[hn::MaxLanes(d)] = {};
    std::copy(a, a + n, restA);
    std::copy(b, b + n, restB);
    hn::Store(f(hn::Load(d, restA), hn::Load(d, restB)), d, restA);
    std::copy(restA, restA + n, out);
}
template <class F>
HWY_INLINE void map(const float* a, float* out, std::size_t n, F&& f) {
    map(a, a, out, n, [&f](V x, V) HWY_ATTR { return f(x); });
}

HWY_INLINE V logOf(V x) {
    const V zero = hn::Zero(d), infinite = hn::Set(d, kInfinity);
    V y = hn::Log(d, x);
    y = hn::IfThenElse(hn::Eq(x, zero), hn::Set(d, -kInfinity), y);
    y = hn::IfThenElse(hn::Eq(x, infinite), infinite, y);
    return hn::IfThenElse(hn::Ge(x, zero), y, hn::Set(d, std::numeric_limits<float>::quiet_NaN()));
}
HWY_INLINE V expOf(V x) {
    const V most = hn::Set(d, kGreatestExponent);
    V y = hn::Exp(d, hn::Min(x, most));
    y = hn::IfThenElse(hn::Gt(x, most), hn::Set(d, kInfinity), y);
    return hn::IfThenElse(hn::Eq(x, x), y, x);
}

void Add(const float* a, const float* b, float* out, std::size_t n) {
    map(a, b, out, n, [](V x, V y) HWY_ATTR { return hn::Add(x, y); });
}
void Multiply(const float* a, const float* b, float* out, std::size_t n) {
    map(a, b, out, n, [](V x, V y) HWY_ATTR { return hn::Mul(x, y); });
}
void Divide(const float* a, const float* b, float* out, std::size_t n) {
    map(a, b, out, n, [](V x, V y) HWY_ATTR { return hn::Div(x, y); });
}
void DivideScalarBy(float numerator, const float* b, float* out, std::size_t n) {
    const V k = hn::Set(d, numerator);
    map(b, out, n, [k](V x) HWY_ATTR { return hn::Div(k, x); });
}
void ScaleAndOffset(const float* a, float scale, float offset, float* out, std::size_t n) {
    const V k = hn::Set(d, scale), o = hn::Set(d, offset);
    map(a, out, n, [k, o](V x) HWY_ATTR { return hn::MulAdd(x, k, o); });
}
void MultiplyAdd(const float* a, float scale, const float* b, float* out, std::size_t n) {
    const V k = hn::Set(d, scale);
    map(a, b, out, n, [k](V x, V y) HWY_ATTR { return hn::MulAdd(x, k, y); });
}
void Power(const float* base, float exponent, float* out, std::size_t n) {
    if (exponent == 0) return void(std::fill_n(out, n, static_cast<float>(1)));
    const V k = hn::Set(d, exponent);
    map(base, out, n, [k](V x) HWY_ATTR { return expOf(hn::Mul(k, logOf(x))); });
}
void Log(const float* a, float* out, std::size_t n) {
    map(a, out, n, [](V x) HWY_ATTR { return logOf(x); });
}
void Exp(const float* a, float* out, std::size_t n) {
    map(a, out, n, [](V x) HWY_ATTR { return expOf(x); });
}
void Sqrt(const float* a, float* out, std::size_t n) {
    map(a, out, n, [](V x) HWY_ATTR { return hn::Sqrt(x); });
}
void Clip(const float* a, float low, float high, float* out, std::size_t n) {
    const V least = hn::Set(d, low), most = hn::Set(d, high);
    map(a, out, n, [least, most](V x) HWY_ATTR { return hn::Min(hn::Max(x, least), most); });
}
void Magnitude(const float* re, const float* im, float* out, std::size_t n) {
    map(re, im, out, n, [](V x, V y) HWY_ATTR { return hn::Sqrt(hn::MulAdd(x, x, hn::Mul(y, y))); });
}
// Of the smaller one over the greater one, turned round where y is the greater.
void Angle(const float* y, const float* x, float* out, std::size_t n) {
    const V right = hn::Set(d, std::numbers::pi_v<float> / 2);
    map(y, x, out, n, [right](V up, V across) HWY_ATTR {
        const V greater = hn::Max(up, across), zero = hn::Zero(d);
        const V turned = hn::Atan(d, hn::Div(hn::Min(up, across), greater));
        const V whole = hn::IfThenElse(hn::Gt(up, across), hn::Sub(right, turned), turned);
        return hn::IfThenElse(hn::Eq(greater, zero), zero, whole);
    });
}
void Interleave(const float* even, const float* odd, float* out, std::size_t n) {
    const std::size_t lanes = hn::Lanes(d);
    std::size_t i = 0;
    for (; i + lanes <= n; i += lanes)
        hn::StoreInterleaved2(hn::LoadU(d, even + i), hn::LoadU(d, odd + i), d, out + 2 * i);
    for (; i < n; ++i) {
        out[2 * i] = even[i];
        out[2 * i + 1] = odd[i];
    }
}
void Deinterleave(const float* in, float scale, float* even, float* odd, std::size_t n) {
    const std::size_t lanes = hn::Lanes(d);
    const V k = hn::Set(d, scale);
    std::size_t i = 0;
    for (; i + lanes <= n; i += lanes) {
        V first, second;
        hn::LoadInterleaved2(d, in + 2 * i, first, second);
        hn::StoreU(hn::Mul(first, k), d, even + i);
        hn::StoreU(hn::Mul(second, k), d, odd + i);
    }
    for (; i < n; ++i) {
        even[i] = in[2 * i] * scale;
        odd[i] = in[2 * i + 1] * scale;
    }
}
float SumOfSquares(const float* a, std::size_t n) {
    const std::size_t lanes = hn::Lanes(d);
    V sum = hn::Zero(d);
    std::size_t i = 0;
    for (; i + lanes <= n; i += lanes) {
        const V x = hn::LoadU(d, a + i);
        sum = hn::MulAdd(x, x, sum);
    }
    float total = hn::GetLane(hn::SumOfLanes(d, sum));
    for (; i < n; ++i)
        total += a[i] * a[i];
    return total;
}
float Dot(const float* a, const float* b, std::size_t n) {
    const std::size_t lanes = hn::Lanes(d);
    V sum = hn::Zero(d);
    std::size_t i = 0;
    for (; i + lanes <= n; i += lanes)
        sum = hn::MulAdd(hn::LoadU(d, a + i), hn::LoadU(d, b + i), sum);
    float total = hn::GetLane(hn::SumOfLanes(d, sum));
    for (; i < n; ++i)
        total += a[i] * b[i];
    return total;
}
void Convolve(const float* padded, const float* kernel, std::size_t kernelLength, float* out, std::size_t n) {
    const std::size_t lanes = hn::Lanes(d);
    std::size_t i = 0;
    for (; i + lanes <= n; i += lanes) {
        V sum = hn::Zero(d);
        for (std::size_t j = 0; j < kernelLength; ++j)
            sum = hn::MulAdd(hn::LoadU(d, padded + i + j), hn::Set(d, kernel[j]), sum);
        hn::StoreU(sum, d, out + i);
    }
    for (; i < n; ++i) {
        float sum = 0;
        for (std::size_t j = 0; j < kernelLength; ++j)
            sum += padded[i + j] * kernel[j];
        out[i] = sum;
    }
}

} // namespace QVM_NAMESPACE::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace QVM_NAMESPACE {

HWY_EXPORT(Add);
HWY_EXPORT(Multiply);
HWY_EXPORT(Divide);
HWY_EXPORT(DivideScalarBy);
HWY_EXPORT(ScaleAndOffset);
HWY_EXPORT(MultiplyAdd);
HWY_EXPORT(Power);
HWY_EXPORT(Log);
HWY_EXPORT(Exp);
HWY_EXPORT(Sqrt);
HWY_EXPORT(Clip);
HWY_EXPORT(Magnitude);
HWY_EXPORT(Angle);
HWY_EXPORT(Interleave);
HWY_EXPORT(Deinterleave);
HWY_EXPORT(SumOfSquares);
HWY_EXPORT(Dot);
HWY_EXPORT(Convolve);

namespace vectors {

void copy(const float* a, float* out, std::size_t n) {
    if (a != out) std::copy_n(a, n, out);
}

void add(const float* a, const float* b, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Add)(a, b, out, n);
}

void multiply(const float* a, const float* b, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Multiply)(a, b, out, n);
}

void divide(const float* a, const float* b, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Divide)(a, b, out, n);
}

void divideScalarBy(float numerator, const float* b, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(DivideScalarBy)(numerator, b, out, n);
}

void scaleAndOffset(const float* a, float scale, float offset, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(ScaleAndOffset)(a, scale, offset, out, n);
}

void multiplyAdd(const float* a, float scale, const float* b, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(MultiplyAdd)(a, scale, b, out, n);
}

void power(const float* base, float exponent, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Power)(base, exponent, out, n);
}

void log(const float* a, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Log)(a, out, n);
}

void exp(const float* a, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Exp)(a, out, n);
}

void sqrt(const float* a, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Sqrt)(a, out, n);
}

void clip(const float* a, float low, float high, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Clip)(a, low, high, out, n);
}

void magnitude(const float* re, const float* im, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Magnitude)(re, im, out, n);
}

void angle(const float* y, const float* x, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Angle)(y, x, out, n);
}

void interleave(const float* even, const float* odd, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Interleave)(even, odd, out, n);
}

void deinterleave(const float* in, float scale, float* even, float* odd, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Deinterleave)(in, scale, even, odd, n);
}

float rms(const float* a, std::size_t n) {
    return n == 0 ? 0.0f : std::sqrt(HWY_DYNAMIC_DISPATCH(SumOfSquares)(a, n) / static_cast<float>(n));
}

float dot(const float* a, const float* b, std::size_t n) {
    return HWY_DYNAMIC_DISPATCH(Dot)(a, b, n);
}

void convolve(const float* padded, const float* kernel, std::size_t kernelLength, float* out, std::size_t n) {
    HWY_DYNAMIC_DISPATCH(Convolve)(padded, kernel, kernelLength, out, n);
}

} // namespace vectors
} // namespace QVM_NAMESPACE
#endif
