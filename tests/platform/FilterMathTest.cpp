#include "platform/FilterMath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using vectors::SvfCoefficients;
using vectors::SvfState;

// One sample of one channel through one section, as the formulas stand in the literature.
double plain(const SvfCoefficients& c, double& first, double& second, double x) {
    const double v3 = x - second, v1 = c.a1 * first + c.a2 * v3, v2 = second + c.a2 * first + c.a3 * v3;
    first = 2 * v1 - first;
    second = 2 * v2 - second;
    return c.m0 * x + c.m1 * v1 + c.m2 * v2;
}

// A section around a frequency (share of the sample rate).
SvfCoefficients section(double frequency, double m0, double m1, double m2) {
    const double g = std::tan(M_PI * frequency), k = 0.7, a1 = 1 / (1 + g * (g + k));
    SvfCoefficients c;
    c.a1 = a1, c.a2 = g * a1, c.a3 = g * g * a1;
    c.m0 = m0, c.m1 = m1, c.m2 = m2;
    return c;
}

std::vector<double> noise(std::size_t count) {
    std::vector<double> samples(count);
    unsigned seed = 1;
    for (double& sample : samples)
        sample = static_cast<double>((seed = seed * 1664525u + 1013904223u) >> 8) / (1 << 23) - 1;
    return samples;
}

class FilterMathFrames : public testing::TestWithParam<std::size_t> {};

TEST_P(FilterMathFrames, CascadeIsOneSectionAfterTheOther) {
    const std::vector<SvfCoefficients> sections = {section(0.01, 1, 0.5, 0), section(0.1, 0, 0, 1),
                                                   section(0.3, 1, -0.7, -1)};
    std::vector<SvfState> states(sections.size());
    std::vector<double> samples = noise(2 * GetParam()), wanted = samples;
    std::array<std::array<std::array<double, 2>, 3>, 2> own{}; // by channel, section and integrator
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        for (std::size_t s = 0; s < sections.size(); ++s)
            wanted[i] = plain(sections[s], own[i % 2][s][0], own[i % 2][s][1], wanted[i]);
    }
    const std::size_t half = GetParam() / 2; // the states go on from stretch to stretch
    vectors::svfCascade(sections.data(), states.data(), sections.size(), samples.data(), half);
    vectors::svfCascade(sections.data(), states.data(), sections.size(), samples.data() + 2 * half, GetParam() - half);
    for (std::size_t i = 0; i < samples.size(); ++i)
        ASSERT_NEAR(samples[i], wanted[i], 1e-12) << i;
}

TEST_P(FilterMathFrames, GlideMovesTheCoefficientsBeforeEachSample) {
    const SvfCoefficients from = section(0.02, 1, 0.2, 0), to = section(0.2, 0.5, 0, 1);
    const auto frames = static_cast<double>(GetParam());
    SvfCoefficients step;
    for (auto member : {&SvfCoefficients::a1, &SvfCoefficients::a2, &SvfCoefficients::a3, &SvfCoefficients::m0,
                        &SvfCoefficients::m1, &SvfCoefficients::m2})
        step.*member = (to.*member - from.*member) / frames;
    std::vector<SvfCoefficients> sections = {from, from};
    const std::vector<SvfCoefficients> steps = {step, step};
    std::vector<SvfState> states(2);
    std::vector<double> samples = noise(2 * GetParam()), wanted = samples;
    std::array<std::array<std::array<double, 2>, 2>, 2> own{};
    SvfCoefficients now = from;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (i % 2 == 0) {
            now.a1 += step.a1, now.a2 += step.a2, now.a3 += step.a3;
            now.m0 += step.m0, now.m1 += step.m1, now.m2 += step.m2;
        }
        for (std::size_t s = 0; s < 2; ++s)
            wanted[i] = plain(now, own[i % 2][s][0], own[i % 2][s][1], wanted[i]);
    }
    vectors::svfGlide(sections.data(), steps.data(), states.data(), 2, samples.data(), GetParam());
    for (std::size_t i = 0; i < samples.size(); ++i)
        ASSERT_NEAR(samples[i], wanted[i], 1e-12) << i;
    EXPECT_NEAR(sections[1].m2, to.m2, 1e-12);
}

TEST_P(FilterMathFrames, FirIsTheSumOverItsTaps) {
    constexpr std::size_t taps = 6;
    const std::vector<double> kernel = {0.5, -0.25, 0.125, 1, -1, 0.75};
    const std::vector<double> padded = noise(2 * (GetParam() + taps - 1));
    const double* const samples = padded.data() + 2 * (taps - 1);
    std::vector<double> out(2 * GetParam());
    vectors::firStereo(samples, kernel.data(), taps, out.data(), GetParam());
    for (std::size_t i = 0; i < out.size(); ++i) {
        double sum = 0;
        for (std::size_t j = 0; j < taps; ++j)
            sum += kernel[j] * samples[static_cast<std::ptrdiff_t>(i) - 2 * static_cast<std::ptrdiff_t>(j)];
        ASSERT_NEAR(out[i], sum, 1e-12) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Stretches, FilterMathFrames, testing::Values(1, 2, 3, 7, 64));

} // namespace
} // namespace QVM_NAMESPACE
