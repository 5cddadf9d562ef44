#include "unit/dsp/SvfCascade.h"

#include <algorithm>

// The library includes this file again for each kind of vector unit.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "unit/dsp/SvfCascade.cpp"
#include <hwy/foreach_target.h> // before the others

#include <hwy/highway.h>

#include "unit/dsp/SvfBank.h"

HWY_BEFORE_NAMESPACE();
namespace QVM_NAMESPACE::HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR && !HWY_HAVE_SCALABLE

// Two banks at a time, the second one so far behind that the first one is done with a sample, so that neither waits for
// its own results.
template <bool glides, class Section>
HWY_INLINE void runSections(Section* sections, const vectors::SvfCoefficients* steps, vectors::SvfState* states,
                            std::size_t count, double* samples, std::size_t frames) {
    using B = Bank<glides>;
    constexpr std::size_t behind = edge + lag;
    if (frames == 0) return;
    // There are steps where it glides only.
    const auto stepsFrom = [steps](std::size_t at) { return glides ? steps + at : nullptr; };
    for (std::size_t at = 0; at < count; at += 2 * room) {
        const std::size_t middle = std::min(at + room, count), end = std::min(middle + room, count);
        B one(sections + at, stepsFrom(at), states + at, middle - at);
        B two(sections + middle, stepsFrom(middle), states + middle, end - middle);
        for (std::size_t i = 0; i < frames + edge + behind; ++i) {
            if (i >= behind + edge && i < frames) {
                one.template step<B::At::middle>(samples, i, frames);
                two.template step<B::At::middle>(samples, i - behind, frames);
                continue;
            }
            if (i < frames + edge) one.template step<B::At::edge>(samples, i, frames);
            if (i >= behind) two.template step<B::At::edge>(samples, i - behind, frames);
        }
        one.get(states + at, middle - at);
        two.get(states + middle, end - middle);
        if constexpr (glides) {
            one.get(sections + at, middle - at);
            two.get(sections + middle, end - middle);
        }
    }
}

#else // no vectors

template <bool glides, class Section>
void runSections(Section* sections, const vectors::SvfCoefficients* steps, vectors::SvfState* states, std::size_t count,
                 double* samples, std::size_t frames) {
    for (std::size_t i = 0; i < count; ++i) {
        Section& c = sections[i];
        for (std::size_t at = 0; at < frames; ++at) {
            if constexpr (glides) {
                for (std::size_t v = 0; v < 6; ++v)
                    (&c.a1)[v] += (&steps[i].a1)[v];
            }
            for (std::size_t channel = 0; channel < 2; ++channel) {
                double &first = states[i].first[channel], &second = states[i].second[channel];
                double& x = samples[2 * at + channel];
                const double before = c.m0 * x + c.m1 * first + c.m2 * second, away = x - second;
                second += c.a2 * first + c.a3 * away;
                first = c.a1 * first + c.a2 * away;
                x = before + c.m1 * first + c.m2 * second;
            }
        }
    }
}

#endif

void SvfCascade(const vectors::SvfCoefficients* sections, vectors::SvfState* states, std::size_t count, double* samples,
                std::size_t frames) {
    runSections<false>(sections, nullptr, states, count, samples, frames);
}

void SvfGlide(vectors::SvfCoefficients* sections, const vectors::SvfCoefficients* steps, vectors::SvfState* states,
              std::size_t count, double* samples, std::size_t frames) {
    runSections<true>(sections, steps, states, count, samples, frames);
}

} // namespace QVM_NAMESPACE::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace QVM_NAMESPACE {

HWY_EXPORT(SvfCascade);
HWY_EXPORT(SvfGlide);

namespace vectors {

void svfCascade(const SvfCoefficients* sections, SvfState* states, std::size_t count, double* samples,
                std::size_t frames) {
    HWY_DYNAMIC_DISPATCH(SvfCascade)(sections, states, count, samples, frames);
}

void svfGlide(SvfCoefficients* sections, const SvfCoefficients* steps, SvfState* states, std::size_t count,
              double* samples, std::size_t frames) {
    HWY_DYNAMIC_DISPATCH(SvfGlide)(sections, steps, states, count, samples, frames);
}

} // namespace vectors
} // namespace QVM_NAMESPACE
#endif
