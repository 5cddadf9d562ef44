// What each operation does to each element, at lengths that end within a vector.
#include "platform/vector/VectorMath.h"

#include "platform/vector/VectorMathFixture.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using VectorMathTest = VectorMathFixture;
INSTANTIATE_TEST_SUITE_P(Units, VectorMathTest, testing::ValuesIn(hwy::SupportedAndGeneratedTargets()),
                         nameOfVectorUnit);

TEST_P(VectorMathTest, ArithmeticIsRoundedLikeScalarArithmeticAtEveryLength) {
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

TEST_P(VectorMathTest, MagnitudesAndAnglesAreThoseOfTheCLibrary) {
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

TEST_P(VectorMathTest, TheAnglesOfTheAxesAndOfNothing) {
    const float y[] = {0, 0, 1, 1, 1e-30f, 3e38f}, x[] = {0, 1, 0, 1, 3e38f, 1e-30f};
    const double expected[] = {0, 0, std::acos(0), std::atan(1), 0, std::acos(0)};
    float turn[6];
    vectors::angle(y, x, turn, 6);
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_NEAR(turn[i], expected[i], 4.8e-7) << i;
}

TEST_P(VectorMathTest, WhatIsInterleavedComesApartAgain) {
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

TEST_P(VectorMathTest, ScalesAndAddsWithinOneRounding) {
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

TEST_P(VectorMathTest, OutputMayBeAnInput) {
    const auto a = uniform(21, 1, 9), b = uniform(21, 1, 9);
    std::vector<float> x = a;
    vectors::multiply(x.data(), b.data(), x.data(), x.size());
    vectors::divide(a.data(), x.data(), x.data(), x.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_EQ(x[i], a[i] / (a[i] * b[i]));
}

TEST_P(VectorMathTest, DotIsTheSumOfTheProducts) {
    EXPECT_EQ(vectors::dot(nullptr, nullptr, 0), 0.0f);
    for (const std::size_t n : lengths) {
        const auto a = uniform(n, -3, 3), b = uniform(n, 1, 2);
        long double sum = 0, magnitudes = 0;
        for (std::size_t i = 0; i < n; ++i) {
            sum += static_cast<long double>(a[i]) * b[i];
            magnitudes += std::abs(static_cast<long double>(a[i]) * b[i]);
        }
        EXPECT_NEAR(static_cast<double>(vectors::dot(a.data(), b.data(), n)), static_cast<double>(sum),
                    static_cast<double>(magnitudes) * 1e-6);
    }
}

TEST_P(VectorMathTest, RmsIsTheRootOfTheMeanSquare) {
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

TEST_P(VectorMathTest, ConvolutionSumsTheKernelOverEachWindow) {
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

TEST(VectorUnits, EachIsUsedWhenItIsAskedFor) {
    std::set<std::int64_t> used;
    for (const std::int64_t unit : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(unit);
        float one = 1;
        vectors::exp(&one, &one, 1);
        used.insert(static_cast<std::int64_t>(hwy::GetChosenTarget().GetIndex()));
    }
    hwy::SetSupportedTargetsForTest(0);
    EXPECT_EQ(used.size(), hwy::SupportedAndGeneratedTargets().size());
}

} // namespace
} // namespace QVM_NAMESPACE
