// Second-order sections side by side in a machine's vectors.
//
// No header of its own right: SvfCascade.cpp includes it once for each kind of vector unit, with that unit's code, and
// nobody else does. It is empty where there are no vectors, or none of a size known when this is compiled.
#if defined(QVM_SVF_BANK_H) == defined(HWY_TARGET_TOGGLE) // highway's guard: once for each unit
#ifdef QVM_SVF_BANK_H
#undef QVM_SVF_BANK_H
#else
#define QVM_SVF_BANK_H
#endif

#include "unit/dsp/SvfCascade.h"

#include <algorithm>
#include <cstdint>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace QVM_NAMESPACE::HWY_NAMESPACE {
#if HWY_TARGET != HWY_SCALAR && !HWY_HAVE_SCALABLE

namespace hn = hwy::HWY_NAMESPACE;

using Wide = hn::CappedTag<double, 8>;
constexpr Wide wide{};
constexpr std::size_t lanes = hn::MaxLanes(wide), room = lanes / 2; // sections side by side
// A section works on the sample that so many steps ago the section before worked on, which leaves that one time.
constexpr std::size_t lag = 2;
constexpr std::size_t edge = lag * (room - 1); // steps in which not all sections have something to do

// The two samples in the lowest lanes, which are the last section's.
template <class D, class V>
HWY_INLINE void storeLowestPair(D d, V v, double* to) {
    if constexpr (hn::MaxLanes(d) > 2) {
        const hn::Half<D> half;
        storeLowestPair(half, hn::LowerHalf(half, v), to);
    } else {
        hn::StoreU(v, d, to);
    }
}

// Sections side by side in vectors. Each has a pair of lanes for both channels, the first one the highest; what one
// puts out goes down to the next.
template <bool glides>
class Bank {
public:
    using Vector = hn::Vec<Wide>;

    // The first `count` sections, which must have room, and after them others that pass what they get. `steps` is read
    // only where the bank glides.
    HWY_INLINE Bank(const vectors::SvfCoefficients* sections, const vectors::SvfCoefficients* steps,
                    const vectors::SvfState* states, std::size_t count) {
        static constexpr vectors::SvfCoefficients through, still{0, 0, 0, 0, 0, 0};
        static constexpr vectors::SvfState silent;
        const vectors::SvfCoefficients *now[room], *growth[room];
        const vectors::SvfState* state[room];
        for (std::size_t i = 0; i < room; ++i) {
            now[i] = i < count ? sections + i : &through;
            growth[i] = glides && i < count ? steps + i : &still;
            state[i] = i < count ? states + i : &silent;
        }
        start_ = laid([](std::size_t i) HWY_ATTR
                      __attribute__((always_inline)) { return hn::Set(wide, -static_cast<double>(lag * i)); });
        first_ = laid([&](std::size_t i) HWY_ATTR
                      __attribute__((always_inline)) { return hn::LoadDup128(wide, state[i]->first.data()); });
        second_ = laid([&](std::size_t i) HWY_ATTR
                       __attribute__((always_inline)) { return hn::LoadDup128(wide, state[i]->second.data()); });
        using C = vectors::SvfCoefficients;
        a1_ = laid(now, &C::a1);
        a2_ = laid(now, &C::a2);
        a3_ = laid(now, &C::a3);
        m0_ = laid(now, &C::m0);
        m1_ = laid(now, &C::m1);
        m2_ = laid(now, &C::m2);
        a1Growth_ = laid(growth, &C::a1);
        a2Growth_ = laid(growth, &C::a2);
        a3Growth_ = laid(growth, &C::a3);
        m0Growth_ = laid(growth, &C::m0);
        m1Growth_ = laid(growth, &C::m1);
        m2Growth_ = laid(growth, &C::m2);
        alignas(64) std::int64_t from[lanes];
        for (std::size_t i = 0; i < lanes; ++i)
            from[i] = static_cast<std::int64_t>((i + 2) % lanes);
        fromAbove_ = hn::SetTableIndices(wide, from);
    }

    enum class At { edge, middle };
    // The step in which the first section works on sample `at`. Of 0 to `frames` + edge - 1, each in turn.
    template <At where>
    HWY_INLINE void step(double* samples, std::size_t at, std::size_t frames) {
        const auto input = hn::LoadDup128(wide, samples + 2 * std::min(at, frames - 1));
        const auto isFirst = hn::Eq(start_, hn::Zero(wide));
        const auto x = hn::IfThenElse(isFirst, input, hn::TableLookupLanes(beforeLast_, fromAbove_));
        const auto position = hn::Add(start_, hn::Set(wide, static_cast<double>(at)));
        const auto works =
            hn::And(hn::Ge(position, hn::Zero(wide)), hn::Lt(position, hn::Set(wide, static_cast<double>(frames))));
        const auto grow = [&](Vector & value, const Vector& growth) HWY_ATTR __attribute__((always_inline)) {
            if (glides) value = hn::Add(value, where == At::edge ? hn::IfThenElseZero(works, growth) : growth);
        };
        grow(a1_, a1Growth_);
        grow(a2_, a2Growth_);
        grow(a3_, a3Growth_);
        grow(m0_, m0Growth_);
        grow(m1_, m1Growth_);
        grow(m2_, m2Growth_);
        const auto before = hn::MulAdd(m0_, x, hn::MulAdd(m1_, first_, hn::Mul(m2_, second_)));
        const auto away = hn::Sub(x, second_);
        const auto first = hn::MulAdd(a2_, away, hn::Mul(a1_, first_));
        const auto second = hn::MulAdd(a3_, away, hn::MulAdd(a2_, first_, second_));
        first_ = where == At::edge ? hn::IfThenElse(works, first, first_) : first;
        second_ = where == At::edge ? hn::IfThenElse(works, second, second_) : second;
        beforeLast_ = last_;
        last_ = hn::MulAdd(m2_, second, hn::MulAdd(m1_, first, before));
        if (at >= edge) storeLowestPair(wide, last_, samples + 2 * (at - edge));
    }

    // What the first `count` sections hold, for the next stretch: their integrators, and where their coefficients are.
    HWY_INLINE void get(vectors::SvfState* states, std::size_t count) const {
        alignas(64) double first[lanes], second[lanes];
        hn::Store(first_, wide, first);
        hn::Store(second_, wide, second);
        for (std::size_t i = 0; i < count; ++i)
            states[i] = {{first[laneOf(i)], first[laneOf(i) + 1]}, {second[laneOf(i)], second[laneOf(i) + 1]}};
    }
    HWY_INLINE void get(vectors::SvfCoefficients* sections, std::size_t count) const {
        using C = vectors::SvfCoefficients;
        get(sections, count, &C::a1, a1_);
        get(sections, count, &C::a2, a2_);
        get(sections, count, &C::a3, a3_);
        get(sections, count, &C::m0, m0_);
        get(sections, count, &C::m1, m1_);
        get(sections, count, &C::m2, m2_);
    }

private:
    // The lower of a section's two lanes.
    static constexpr std::size_t laneOf(std::size_t section) { return 2 * (room - 1 - section); }
    // A vector from one for each section, of which its lanes count.
    template <class VectorOf>
    static HWY_INLINE Vector laid(VectorOf&& vectorOf) {
        Vector all = vectorOf(0);
        for (std::size_t i = 1; i < room; ++i)
            all = hn::IfThenElse(hn::FirstN(wide, laneOf(i) + 2), vectorOf(i), all);
        return all;
    }
    static HWY_INLINE Vector laid(const vectors::SvfCoefficients* const* sections,
                                  double vectors::SvfCoefficients::*value) {
        return laid([=](std::size_t i) HWY_ATTR
                    __attribute__((always_inline)) { return hn::Set(wide, sections[i]->*value); });
    }
    HWY_INLINE void get(vectors::SvfCoefficients* sections, std::size_t count, double vectors::SvfCoefficients::*value,
                        const Vector& from) const {
        alignas(64) double values[lanes];
        hn::Store(from, wide, values);
        for (std::size_t i = 0; i < count; ++i)
            sections[i].*value = values[laneOf(i)];
    }

    // One by one, because the compiler would keep arrays of them in memory.
    Vector a1_, a2_, a3_, m0_, m1_, m2_;
    Vector a1Growth_, a2Growth_, a3Growth_, m0Growth_, m1Growth_, m2Growth_; // each step
    Vector start_, first_, second_;
    Vector last_ = hn::Zero(wide), beforeLast_ = hn::Zero(wide);
    decltype(hn::SetTableIndices(wide, static_cast<const std::int64_t*>(nullptr))) fromAbove_;
};

#endif
} // namespace QVM_NAMESPACE::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
