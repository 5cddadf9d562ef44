// Every vector unit does what a plain loop does.
#include "unit/dsp/SvfCascade.h"

#include "unit/dsp/VectorUnitFixture.h"

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace QVM_NAMESPACE::vectors {
namespace {

class SvfCascade : public VectorUnitFixture {
protected:
    SvfCoefficients section() {
        const double g = uniform(0.01, 2), k = uniform(0.3, 2), d = 1 / (1 + g * (g + k));
        return {2 * d - 1, 2 * g * d, 2 * g * g * d, uniform(-1, 1), uniform(-1, 1), uniform(-1, 1)};
    }
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

TEST_F(SvfCascade, SectionsFilterAsDescribedStandingAndMovingOnEveryVectorUnit) {
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

TEST_F(SvfCascade, AStretchInPiecesIsTheSameToTheLastBit) {
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

} // namespace
} // namespace QVM_NAMESPACE::vectors
