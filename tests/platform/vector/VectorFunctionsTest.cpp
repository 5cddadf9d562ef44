// Logarithm, exponential and power against the C library: how far off, and what is no number.
#include "platform/vector/VectorMath.h"

#include "platform/vector/VectorMathFixture.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using VectorFunctions = VectorMathFixture;
INSTANTIATE_TEST_SUITE_P(Units, VectorFunctions, testing::ValuesIn(hwy::SupportedAndGeneratedTargets()),
                         nameOfVectorUnit);

TEST_P(VectorFunctions, LogIsWithinFourUnitsInTheLastPlace) {
    const std::size_t n = 100'003;
    for (const auto& [low, high] : {std::pair{1e-30f, 1e30f}, {0.9f, 1.1f}}) {
        const auto a = logarithmic(n, low, high);
        std::vector<float> out(n);
        vectors::log(a.data(), out.data(), n);
        double worst = 0;
        for (std::size_t i = 0; i < n; ++i)
            worst = std::max(worst, errorInUlp(out[i], std::log(static_cast<double>(a[i]))));
        EXPECT_LE(worst, 4);
    }
}

TEST_P(VectorFunctions, ExpIsWithinFourUnitsInTheLastPlace) {
    const std::size_t n = 100'003;
    const float reach = 87.0f;
    for (const float range : {reach, 1.0f}) {
        const auto a = uniform(n, -range, range);
        std::vector<float> out(n);
        vectors::exp(a.data(), out.data(), n);
        double worst = 0;
        for (std::size_t i = 0; i < n; ++i)
            worst = std::max(worst, errorInUlp(out[i], std::exp(static_cast<double>(a[i]))));
        EXPECT_LE(worst, 4);
    }
}

// The bases and exponents of the filters: a frequency ratio to twice the order. 0.01 dB is a ratio of 1.15e-3.
TEST_P(VectorFunctions, PowerIsWithinItsBoundOverFrequencyRatiosAndSlopes) {
    const double bound = 2e-5;
    const std::size_t n = 20'003;
    const auto base = logarithmic(n, static_cast<float>(4.0 / 24000), 6000.0f);
    std::vector<float> out(n);
    for (const float exponent : {-36.0f, -11.97f, -2.0f, -1.0f, -0.3f, 0.5f, 2.0f, 5.3f, 11.97f, 16.0f, 36.0f}) {
        vectors::power(base.data(), exponent, out.data(), n);
        double worst = 0;
        for (std::size_t i = 0; i < n; ++i) {
            const double exact = std::pow(static_cast<double>(base[i]), static_cast<double>(exponent));
            if (exact < static_cast<double>(std::numeric_limits<float>::min()))
                EXPECT_LE(out[i], std::numeric_limits<float>::min() * 1.001f);
            else if (exact > static_cast<double>(std::numeric_limits<float>::max()))
                EXPECT_GE(out[i], std::numeric_limits<float>::max() * 0.999f);
            else
                worst = std::max(worst, std::abs(out[i] / exact - 1));
        }
        EXPECT_LE(worst, bound) << exponent;
    }
}

TEST_P(VectorFunctions, ZeroInfinityAndNoNumberGiveWhatTheLibraryGives) {
    const std::vector<float> in{0.0f, 1.0f, infinity, -infinity, -1.0f, nan, 1e4f, -1e4f};
    const auto same = [](float a, float b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    std::vector<float> out(in.size());
    vectors::log(in.data(), out.data(), in.size());
    for (const std::size_t i : {0u, 1u, 2u, 3u, 4u, 5u})
        EXPECT_TRUE(same(out[i], std::log(in[i]))) << in[i] << " gives " << out[i];
    vectors::exp(in.data(), out.data(), in.size());
    for (const std::size_t i : {0u, 2u, 3u, 5u, 6u, 7u})
        EXPECT_TRUE(same(out[i], std::exp(in[i]))) << in[i] << " gives " << out[i];
    for (const float exponent : {-2.0f, 0.0f, 0.5f, 3.5f}) {
        vectors::power(in.data(), exponent, out.data(), in.size());
        for (const std::size_t i : {0u, 1u, 2u, 5u})
            EXPECT_TRUE(same(out[i], std::pow(in[i], exponent))) << in[i] << " ^ " << exponent << " gives " << out[i];
    }
}

} // namespace
} // namespace QVM_NAMESPACE
