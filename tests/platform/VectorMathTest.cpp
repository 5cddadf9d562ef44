// Against the C library in double precision, at lengths that end within a vector.
#include "platform/VectorMath.h"

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

struct VectorMathTest : testing::Test {
    static constexpr float infinity = std::numeric_limits<float>::infinity();
    static constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    static constexpr std::size_t lengths[] = {0, 1, 2, 3, 7, 8, 15, 16, 17, 31, 54, 108, 1080};

    std::mt19937 random{1};
    std::vector<float> uniform(std::size_t n, float low, float high) {
        std::uniform_real_distribution<float> values(low, high);
        std::vector<float> result(n);
        for (float& value : result)
            value = values(random);
        return result;
    }
    std::vector<float> logarithmic(std::size_t n, float low, float high) {
        std::vector<float> result = uniform(n, std::log(low), std::log(high));
        for (float& value : result)
            value = std::exp(value);
        return result;
    }
    // |got - exact| in units of the last place of float at the exact value.
    static double errorInUlp(float got, double exact) {
        const float near = std::abs(static_cast<float>(exact));
        const double unit = static_cast<double>(std::nextafter(near, infinity)) - static_cast<double>(near);
        return std::abs(static_cast<double>(got) - exact) / unit;
    }
};

TEST_F(VectorMathTest, ArithmeticIsRoundedLikeScalarArithmeticAtEveryLength) {
    for (const std::size_t n : lengths) {
        const auto a = uniform(n, -9, 9), b = uniform(n, 1, 9);
        std::vector<float> sum(n + 1, 42.0f), product(n + 1, 42.0f), quotient(n + 1, 42.0f), inverse(n + 1, 42.0f),
            root(n + 1, 42.0f), clipped(n + 1, 42.0f), copied(n + 1, 42.0f);
        vectors::add(a.data(), b.data(), sum.data(), n);
        vectors::multiply(a.data(), b.data(), product.data(), n);
        vectors::divide(a.data(), b.data(), quotient.data(), n);
        vectors::divideScalarBy(3.0f, b.data(), inverse.data(), n);
        vectors::sqrt(b.data(), root.data(), n);
        vectors::clip(a.data(), -2.0f, 2.0f, clipped.data(), n);
        vectors::copy(a.data(), copied.data(), n);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_EQ(sum[i], a[i] + b[i]);
            EXPECT_EQ(product[i], a[i] * b[i]);
            EXPECT_EQ(quotient[i], a[i] / b[i]);
            EXPECT_EQ(inverse[i], 3 / b[i]);
            EXPECT_EQ(root[i], std::sqrt(b[i]));
            EXPECT_EQ(clipped[i], std::clamp(a[i], -2.0f, 2.0f));
            EXPECT_EQ(copied[i], a[i]);
        }
        for (const auto* out : {&sum, &product, &quotient, &inverse, &root, &clipped, &copied})
            EXPECT_EQ(out->back(), 42.0f) << "wrote beyond " << n;
    }
}

TEST_F(VectorMathTest, MagnitudesAndAnglesAreThoseOfTheCLibrary) {
    for (const std::size_t n : lengths) {
        const auto a = uniform(n, 0, 9), b = logarithmic(n, 1e-6f, 1e6f);
        std::vector<float> size(n + 1, 42.0f), turn(n + 1, 42.0f);
        vectors::magnitude(a.data(), b.data(), size.data(), n);
        vectors::angle(a.data(), b.data(), turn.data(), n);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_LT(errorInUlp(size[i], std::hypot(double{a[i]}, double{b[i]})), 2);
            EXPECT_NEAR(turn[i], std::atan2(double{a[i]}, double{b[i]}), 4.8e-7);
        }
        EXPECT_EQ(size.back(), 42.0f);
        EXPECT_EQ(turn.back(), 42.0f);
    }
}

TEST_F(VectorMathTest, TheAnglesOfTheAxesAndOfNothing) {
    const float y[] = {0, 0, 1, 1, 1e-30f, 3e38f}, x[] = {0, 1, 0, 1, 3e38f, 1e-30f};
    const double expected[] = {0, 0, std::acos(0), std::atan(1), 0, std::acos(0)};
    float turn[6];
    vectors::angle(y, x, turn, 6);
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_NEAR(turn[i], expected[i], 4.8e-7) << i;
}

TEST_F(VectorMathTest, WhatIsInterleavedComesApartAgain) {
    for (const std::size_t n : lengths) {
        const auto even = uniform(n, -9, 9), odd = uniform(n, -9, 9);
        std::vector<float> both(2 * n + 1, 42.0f), first(n + 1, 42.0f), second(n + 1, 42.0f);
        vectors::interleave(even.data(), odd.data(), both.data(), n);
        vectors::deinterleave(both.data(), 2, first.data(), second.data(), n);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_EQ(both[2 * i], even[i]);
            EXPECT_EQ(both[2 * i + 1], odd[i]);
            EXPECT_EQ(first[i], 2 * even[i]);
            EXPECT_EQ(second[i], 2 * odd[i]);
        }
        for (const auto* out : {&both, &first, &second})
            EXPECT_EQ(out->back(), 42.0f) << "wrote beyond " << n;
    }
}

TEST_F(VectorMathTest, ScalesAndAddsWithinOneRounding) {
    for (const std::size_t n : lengths) {
        const auto a = uniform(n, 1, 9), b = uniform(n, 1, 9);
        std::vector<float> offset(n), sum(n);
        vectors::scaleAndOffset(a.data(), 0.3f, 0.7f, offset.data(), n);
        vectors::multiplyAdd(a.data(), 0.3f, b.data(), sum.data(), n);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_LT(errorInUlp(offset[i], static_cast<double>(a[i]) * 0.3f + 0.7f), 1.5);
            EXPECT_LT(errorInUlp(sum[i], static_cast<double>(a[i]) * 0.3f + b[i]), 1.5);
        }
    }
}

TEST_F(VectorMathTest, OutputMayBeAnInput) {
    const auto a = uniform(21, 1, 9), b = uniform(21, 1, 9);
    std::vector<float> x = a;
    vectors::multiply(x.data(), b.data(), x.data(), x.size());
    vectors::divide(a.data(), x.data(), x.data(), x.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_EQ(x[i], a[i] / (a[i] * b[i]));
}

TEST_F(VectorMathTest, LogIsWithinFourUnitsInTheLastPlace) {
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

TEST_F(VectorMathTest, ExpIsWithinFourUnitsInTheLastPlace) {
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
TEST_F(VectorMathTest, PowerIsWithinItsBoundOverFrequencyRatiosAndSlopes) {
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

TEST_F(VectorMathTest, ZeroInfinityAndNoNumberGiveWhatTheLibraryGives) {
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

TEST_F(VectorMathTest, RmsIsTheRootOfTheMeanSquare) {
    EXPECT_EQ(vectors::rms(static_cast<const float*>(nullptr), 0), 0.0f);
    for (const std::size_t n : lengths) {
        if (n == 0) continue;
        const auto a = uniform(n, -3, 3);
        long double sum = 0;
        for (const float x : a)
            sum += static_cast<long double>(x) * x;
        EXPECT_NEAR(static_cast<double>(vectors::rms(a.data(), n)), static_cast<double>(std::sqrt(sum / n)), 3e-6);
    }
}

TEST_F(VectorMathTest, ConvolutionSumsTheKernelOverEachWindow) {
    for (const std::size_t length : {1u, 3u, 5u, 9u}) {
        for (const std::size_t n : lengths) {
            const auto padded = uniform(n + length - 1, -3, 3), kernel = uniform(length, 0, 1);
            std::vector<float> out(n + 1, 42.0f);
            vectors::convolve(padded.data(), kernel.data(), length, out.data(), n);
            for (std::size_t i = 0; i < n; ++i) {
                long double sum = 0;
                for (std::size_t j = 0; j < length; ++j)
                    sum += static_cast<long double>(padded[i + j]) * kernel[j];
                EXPECT_NEAR(static_cast<double>(out[i]), static_cast<double>(sum), 5e-6);
            }
            EXPECT_EQ(out[n], 42.0f);
        }
    }
}

// Machines differ in their vector units; each one that this machine has must do.
TEST_F(VectorMathTest, EveryVectorUnitIsAsExact) {
    const std::size_t n = 1003;
    const auto a = logarithmic(n, 1e-3f, 1e3f);
    const float kernel[] = {0.25f, 0.5f, 0.25f};
    int units = 0;
    for (const auto unit : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(unit);
        ++units;
        std::vector<float> logs(n), exps(n), powers(n), smooth(n - 2);
        vectors::log(a.data(), logs.data(), n);
        vectors::exp(logs.data(), exps.data(), n);
        vectors::power(a.data(), 3.3f, powers.data(), n);
        vectors::convolve(a.data(), kernel, 3, smooth.data(), n - 2);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_LE(errorInUlp(logs[i], std::log(static_cast<double>(a[i]))), 4) << hwy::TargetName(unit);
            EXPECT_LE(errorInUlp(exps[i], std::exp(static_cast<double>(logs[i]))), 4) << hwy::TargetName(unit);
            EXPECT_NEAR(powers[i] / std::pow(a[i], 3.3f), 1, 2e-5) << hwy::TargetName(unit);
        }
        for (std::size_t i = 0; i + 2 < n; ++i)
            EXPECT_NEAR(smooth[i] / (a[i] / 4 + a[i + 1] / 2 + a[i + 2] / 4), 1, 1e-6) << hwy::TargetName(unit);
    }
    hwy::SetSupportedTargetsForTest(0);
    EXPECT_GE(units, 1);
}

} // namespace
} // namespace QVM_NAMESPACE
