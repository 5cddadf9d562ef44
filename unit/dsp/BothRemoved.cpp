#include "unit/dsp/BothRemoved.h"

#include <algorithm>
#include <array>

namespace QVM_NAMESPACE::dsp {

namespace {

// Where the parts begin.
constexpr std::size_t kA = 0, kP = 2 * filterSections, kQ = 3 * filterSections, kB = 4 * filterSections;

DigitalSection turned(const DigitalSection& section) {
    return {section.num.reversed(), section.den};
}
DigitalSection allPass(const DigitalSection& section) {
    return {section.den.reversed(), section.den};
}

} // namespace

void BothRemoved::design(Half low, Half high, std::span<vectors::SvfCoefficients, sections> out) {
    for (std::size_t i = 0; i < filterSections; ++i) {
        out[kA + i] = coefficientsOf(low[i]);
        out[kA + filterSections + i] = coefficientsOf(turned(low[i]));
        out[kP + i] = coefficientsOf(allPass(low[i]));
        out[kQ + i] = coefficientsOf(allPass(high[i]));
        out[kB + i] = coefficientsOf(high[i]);
        out[kB + filterSections + i] = coefficientsOf(turned(high[i]));
    }
}

void BothRemoved::process(vectors::SvfCoefficients* designed, const vectors::SvfCoefficients* steps,
                          vectors::SvfState* states, double* samples, std::size_t frames) {
    const auto filter = [=](std::size_t first, std::size_t count, double* signal) {
        if (steps) {
            vectors::svfGlide(designed + first, steps + first, states + first, count, signal, frames);
        } else {
            vectors::svfCascade(designed + first, states + first, count, signal, frames);
        }
    };
    std::array<double, 2 * mostFrames> rest;
    std::copy_n(samples, 2 * frames, rest.begin());
    filter(kA, 2 * filterSections, samples);
    filter(kP, filterSections, rest.data());
    for (std::size_t i = 0; i < 2 * frames; ++i)
        rest[i] -= samples[i];
    filter(kQ, filterSections, samples);
    filter(kB, 2 * filterSections, rest.data());
    for (std::size_t i = 0; i < 2 * frames; ++i)
        samples[i] += rest[i];
}

} // namespace QVM_NAMESPACE::dsp
