// Every vector unit does what a plain loop does.
#include "unit/dsp/FilterMath.h"

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <cmath>
#include <random>
#include <vector>

namespace QVM_NAMESPACE::vectors {
namespace {

class FilterMath : public testing::Test {
protected:
    void TearDown() override { hwy::SetSupportedTargetsForTest(0); }

    double uniform(double low, double high) {
        return low + (high - low) * (static_cast<double>(random_()) / 4294967296.0);
    }
    std::vector<double> noise(std::size_t count) {
        std::vector<double> values(count);
        for (double& value : values)
            value = uniform(-1, 1);
        return values;
    }
    SvfCoefficients section() {
        const double g = uniform(0.01, 2), k = uniform(0.3, 2), d = 1 / (1 + g * (g + k));
        return {2 * d - 1, 2 * g * d, 2 * g * g * d, uniform(-1, 1), uniform(-1, 1), uniform(-1, 1)};
    }

    std::mt19937 random_{5};
};

// As the header describes it, one section and one sample at a time.
void plainly(std::vector<SvfCoefficients> sections, const std::vector<SvfCoefficients>& steps,
             std::vector<SvfState>& states, std::vector<double>& samples) {
    for (std::size_t i = 0; i < sections.size(); ++i) {
        for (std::size_t at = 0; at < samples.size(); ++at) {
            SvfCoefficients& c = sections[i];
            if (at % 2 == 0) {
                c = {c.a1 + steps[i].a1, c.a2 + steps[i].a2, c.a3 + steps[i].a3,
                     c.m0 + steps[i].m0, c.m1 + steps[i].m1, c.m2 + steps[i].m2};
            }
            double &first = states[i].first[at % 2], &second = states[i].second[at % 2];
            const double d = samples[at] - second;
            const double nextFirst = c.a1 * first + c.a2 * d, nextSecond = second + c.a2 * first + c.a3 * d;
            samples[at] = c.m0 * samples[at] + c.m1 * (first + nextFirst) + c.m2 * (second + nextSecond);
            first = nextFirst;
            second = nextSecond;
        }
    }
}

TEST_F(FilterMath, SectionsFilterAsDescribedStandingAndMovingOnEveryVectorUnit) {
    for (const auto unit : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(unit);
        for (const std::size_t count : {1U, 2U, 3U, 4U, 5U, 8U, 9U, 13U, 27U}) {
            for (const std::size_t frames : {0U, 1U, 2U, 7U, 15U, 64U, 101U}) {
                for (const bool moves : {false, true}) {
                    std::vector<SvfCoefficients> sections, steps(count, SvfCoefficients{0, 0, 0, 0, 0, 0});
                    std::vector<SvfState> states(count), expectedStates(count);
                    for (std::size_t i = 0; i < count; ++i) {
                        sections.push_back(section());
                        if (moves) steps[i].m1 = steps[i].m0 = 1e-3;
                        states[i].first = states[i].second = {0.1, -0.2};
                    }
                    expectedStates = states;
                    std::vector<double> samples = noise(2 * frames), expected = samples;
                    plainly(sections, steps, expectedStates, expected);
                    const std::vector<SvfCoefficients> start = sections;
                    if (moves) {
                        svfGlide(sections.data(), steps.data(), states.data(), count, samples.data(), frames);
                    } else {
                        svfCascade(sections.data(), states.data(), count, samples.data(), frames);
                    }
                    for (std::size_t i = 0; i < samples.size(); ++i)
                        ASSERT_NEAR(samples[i], expected[i], 1e-9 * (1 + std::abs(expected[i])))
                            << hwy::TargetName(unit) << ", " << count << " sections, " << i << " of " << frames;
                    for (std::size_t i = 0; i < count; ++i) {
                        const double bound = 1e-9 * (1 + std::abs(expectedStates[i].second[1]));
                        ASSERT_NEAR(states[i].second[1], expectedStates[i].second[1], bound);
                        ASSERT_NEAR(sections[i].m1, start[i].m1 + (moves ? 1e-3 * double(frames) : 0), 1e-12);
                    }
                }
            }
        }
    }
}

TEST_F(FilterMath, AStretchInPiecesIsTheSameToTheLastBit) {
    for (const auto unit : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(unit);
        std::vector<SvfCoefficients> sections(11);
        for (SvfCoefficients& each : sections)
            each = section();
        std::vector<SvfState> states(11), states2(11);
        std::vector<double> whole = noise(400), pieces = whole;
        svfCascade(sections.data(), states.data(), 11, whole.data(), 200);
        for (std::size_t at = 0, size = 1; at < 200; at += size, size = std::min<std::size_t>(size + 3, 200 - at))
            svfCascade(sections.data(), states2.data(), 11, pieces.data() + 2 * at, size);
        EXPECT_EQ(whole, pieces) << hwy::TargetName(unit);
    }
}

TEST_F(FilterMath, TapsQuadraticsAndRowsAreSumsAndProducts) {
    for (const auto unit : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(unit);
        constexpr std::size_t tapCount = 20, frames = 37;
        const std::vector<double> past = noise(2 * (tapCount + frames)), taps = noise(tapCount);
        std::vector<double> out(2 * frames);
        firStereo(past.data() + 2 * tapCount, taps.data(), tapCount, out.data(), frames);
        for (std::size_t i = 0; i < out.size(); ++i) {
            double sum = 0;
            for (std::size_t j = 0; j < tapCount; ++j)
                sum += taps[j] * past[2 * tapCount + i - 2 * j];
            ASSERT_NEAR(out[i], sum, 1e-12) << hwy::TargetName(unit) << ", " << i;
        }
        const std::vector<double> x = noise(32), matrix = noise(std::size_t{32} * 16);
        std::vector<double> values(32, 1), sums(16);
        const Quadratic quadratics[] = {{1, 2, 3}, {0.5, -1, 0}};
        multiplyByQuadratics(quadratics, 2, x.data(), values.data(), 32);
        multiplyRows(matrix.data(), x.data(), 32, sums.data(), 16);
        for (std::size_t i = 0; i < 32; ++i)
            ASSERT_NEAR(values[i], (1 + 2 * x[i] + 3 * x[i] * x[i]) * (0.5 - x[i]), 1e-12) << hwy::TargetName(unit);
        for (std::size_t k = 0; k < 16; ++k) {
            double sum = 0;
            for (std::size_t i = 0; i < 32; ++i)
                sum += matrix[16 * i + k] * x[i];
            ASSERT_NEAR(sums[k], sum, 1e-12) << hwy::TargetName(unit);
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE::vectors
