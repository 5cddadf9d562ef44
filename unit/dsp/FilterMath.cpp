#include "unit/dsp/FilterMath.h"

// The library includes this file again for each kind of vector unit.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "unit/dsp/FilterMath.cpp"
#include <hwy/foreach_target.h> // before the other

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace QVM_NAMESPACE::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Pair = hn::CappedTag<double, 2>; // both channels, or one after the other where there are no vectors
using Wide = hn::CappedTag<double, 8>;
constexpr Pair pair{};

// As many whole vectors as there are from `i` on; returns where they end. Every vector adds in the same order, so that
// a sample does not depend on where the stretch ends.
template <class D>
HWY_INLINE std::size_t firLanes(D d, const double* samples, const double* taps, std::size_t tapCount, double* out,
                                std::size_t i, std::size_t count) {
    const std::size_t width = hn::Lanes(d);
    for (; i + width <= count; i += width) {
        auto even = hn::Zero(d), odd = hn::Zero(d);
        for (std::size_t j = 0; j < tapCount; j += 2) {
            even = hn::MulAdd(hn::Set(d, taps[j]), hn::LoadU(d, samples + i - 2 * j), even);
            odd = hn::MulAdd(hn::Set(d, taps[j + 1]), hn::LoadU(d, samples + i - 2 * j - 2), odd);
        }
        hn::StoreU(hn::Add(even, odd), d, out + i);
    }
    return i;
}

void FirStereo(const double* samples, const double* taps, std::size_t tapCount, double* out, std::size_t frames) {
    const std::size_t count = 2 * frames;
    const std::size_t done = firLanes(Wide(), samples, taps, tapCount, out, 0, count);
    firLanes(pair, samples, taps, tapCount, out, done, count);
}

void MultiplyByQuadratics(const vectors::Quadratic* quadratics, std::size_t count, const double* x, double* values,
                          std::size_t n) {
    const Wide d;
    for (std::size_t i = 0; i < n; i += hn::Lanes(d)) {
        const auto at = hn::LoadU(d, x + i);
        auto value = hn::LoadU(d, values + i);
        for (std::size_t k = 0; k < count; ++k) {
            const vectors::Quadratic& c = quadratics[k];
            const auto slope = hn::MulAdd(hn::Set(d, c[2]), at, hn::Set(d, c[1]));
            value = hn::Mul(value, hn::MulAdd(slope, at, hn::Set(d, c[0])));
        }
        hn::StoreU(value, d, values + i);
    }
}

void MultiplyRows(const double* matrix, const double* values, std::size_t rows, double* out, std::size_t columns) {
    const Wide d;
    for (std::size_t k = 0; k < columns; k += hn::Lanes(d)) {
        auto even = hn::Zero(d), odd = hn::Zero(d);
        for (std::size_t i = 0; i + 1 < rows; i += 2) {
            even = hn::MulAdd(hn::LoadU(d, matrix + i * columns + k), hn::Set(d, values[i]), even);
            odd = hn::MulAdd(hn::LoadU(d, matrix + (i + 1) * columns + k), hn::Set(d, values[i + 1]), odd);
        }
        hn::StoreU(hn::Add(even, odd), d, out + k);
    }
}

} // namespace QVM_NAMESPACE::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace QVM_NAMESPACE {

HWY_EXPORT(FirStereo);
HWY_EXPORT(MultiplyByQuadratics);
HWY_EXPORT(MultiplyRows);

namespace vectors {

void firStereo(const double* samples, const double* taps, std::size_t tapCount, double* out, std::size_t frames) {
    HWY_DYNAMIC_DISPATCH(FirStereo)(samples, taps, tapCount, out, frames);
}

void multiplyByQuadratics(const Quadratic* quadratics, std::size_t count, const double* x, double* values,
                          std::size_t n) {
    HWY_DYNAMIC_DISPATCH(MultiplyByQuadratics)(quadratics, count, x, values, n);
}

void multiplyRows(const double* matrix, const double* values, std::size_t rows, double* out, std::size_t columns) {
    HWY_DYNAMIC_DISPATCH(MultiplyRows)(matrix, values, rows, out, columns);
}

} // namespace vectors
} // namespace QVM_NAMESPACE
#endif
