#include "platform/FilterMath.h"

#include <algorithm>
#include <cstdint>

// The library includes this file again for each kind of vector unit.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/FilterMath.cpp"
#include <hwy/foreach_target.h> // before the other

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace QVM_NAMESPACE::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Pair = hn::CappedTag<double, 2>; // both channels, or one after the other where there are no vectors
using Quad = hn::CappedTag<double, 4>;
constexpr Pair pair{};

HWY_INLINE void svf(const vectors::SvfCoefficients& c, vectors::SvfState& state, double* sample) {
    for (std::size_t channel = 0; channel < 2; channel += hn::Lanes(pair)) {
        const auto x = hn::LoadU(pair, sample + channel);
        const auto first = hn::LoadU(pair, state.first.data() + channel);
        const auto second = hn::LoadU(pair, state.second.data() + channel);
        const auto v3 = hn::Sub(x, second);
        const auto v1 = hn::MulAdd(hn::Set(pair, c.a2), v3, hn::Mul(hn::Set(pair, c.a1), first));
        const auto v2 = hn::MulAdd(hn::Set(pair, c.a3), v3, hn::MulAdd(hn::Set(pair, c.a2), first, second));
        hn::StoreU(hn::Sub(hn::Add(v1, v1), first), pair, state.first.data() + channel);
        hn::StoreU(hn::Sub(hn::Add(v2, v2), second), pair, state.second.data() + channel);
        const auto y =
            hn::MulAdd(hn::Set(pair, c.m2), v2, hn::MulAdd(hn::Set(pair, c.m1), v1, hn::Mul(hn::Set(pair, c.m0), x)));
        hn::StoreU(y, pair, sample + channel);
    }
}

// A front runs across the stretch: while one section works on a sample, the next one works on the sample before. So the
// sections do not wait for each other.
template <class Section>
HWY_INLINE void runFront(std::size_t count, double* samples, std::size_t frames, Section&& section) {
    for (std::size_t front = 0; front + 1 < frames + count; ++front) {
        const std::size_t first = front < frames ? 0 : front - frames + 1;
        const std::size_t end = std::min(front + 1, count);
        for (std::size_t i = first; i < end; ++i)
            section(i, samples + 2 * (front - i));
    }
}

void SvfCascade(const vectors::SvfCoefficients* sections, vectors::SvfState* states, std::size_t count, double* samples,
                std::size_t frames) {
    runFront(count, samples, frames, [=](std::size_t i, double* x) HWY_ATTR { svf(sections[i], states[i], x); });
}

HWY_INLINE void advance(vectors::SvfCoefficients& section, const vectors::SvfCoefficients& step) {
    const Quad d;
    for (std::size_t i = 0; i < 8; i += hn::Lanes(d))
        hn::StoreU(hn::Add(hn::LoadU(d, &section.a1 + i), hn::LoadU(d, &step.a1 + i)), d, &section.a1 + i);
}

void SvfGlide(vectors::SvfCoefficients* sections, const vectors::SvfCoefficients* steps, vectors::SvfState* states,
              std::size_t count, double* samples, std::size_t frames) {
    runFront(count, samples, frames, [=](std::size_t i, double* x) HWY_ATTR {
        advance(sections[i], steps[i]);
        svf(sections[i], states[i], x);
    });
}

// As many whole vectors as there are from `i` on; returns where they end. Every vector adds in the same order, so that
// a sample does not depend on where the stretch ends.
template <class D>
HWY_INLINE std::size_t firLanes(D d, const double* samples, const double* taps, std::size_t tapCount, double* out,
                                std::size_t i, std::size_t count) {
    const std::size_t lanes = hn::Lanes(d);
    for (; i + lanes <= count; i += lanes) {
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
    const std::size_t done = firLanes(Quad(), samples, taps, tapCount, out, 0, count);
    firLanes(pair, samples, taps, tapCount, out, done, count);
}

} // namespace QVM_NAMESPACE::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace QVM_NAMESPACE {

HWY_EXPORT(SvfCascade);
HWY_EXPORT(SvfGlide);
HWY_EXPORT(FirStereo);

namespace vectors {

void svfCascade(const SvfCoefficients* sections, SvfState* states, std::size_t count, double* samples,
                std::size_t frames) {
    HWY_DYNAMIC_DISPATCH(SvfCascade)(sections, states, count, samples, frames);
}

void svfGlide(SvfCoefficients* sections, const SvfCoefficients* steps, SvfState* states, std::size_t count,
              double* samples, std::size_t frames) {
    HWY_DYNAMIC_DISPATCH(SvfGlide)(sections, steps, states, count, samples, frames);
}

void firStereo(const double* samples, const double* taps, std::size_t tapCount, double* out, std::size_t frames) {
    HWY_DYNAMIC_DISPATCH(FirStereo)(samples, taps, tapCount, out, frames);
}

} // namespace vectors
} // namespace QVM_NAMESPACE
#endif
