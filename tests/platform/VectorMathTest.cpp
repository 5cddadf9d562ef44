// Against the C library in double (for double: long double) precision, at lengths that end within a vector.
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

template <class T>
struct VectorMathTest : testing::Test {
    using Exact = std::conditional_t<std::is_same_v<T, float>, double, long double>;
    static constexpr T infinity = std::numeric_limits<T>::infinity();
    static constexpr T nan = std::numeric_limits<T>::quiet_NaN();
    static constexpr std::size_t lengths[] = {0, 1, 2, 3, 7, 8, 15, 16, 17, 31, 54, 108, 1080};

    std::mt19937 random{1};
    std::vector<T> uniform(std::size_t n, T low, T high) {
        std::uniform_real_distribution<T> values(low, high);
        std::vector<T> result(n);
        for (T& value : result)
            value = values(random);
        return result;
    }
    std::vector<T> logarithmic(std::size_t n, T low, T high) {
        std::vector<T> result = uniform(n, std::log(low), std::log(high));
        for (T& value : result)
            value = std::exp(value);
        return result;
    }
    // |got - exact| in units of the last place of T at the exact value.
    static double errorInUlp(T got, Exact exact) {
        const T near = std::abs(static_cast<T>(exact));
        const Exact unit = static_cast<Exact>(std::nextafter(near, infinity)) - static_cast<Exact>(near);
        return static_cast<double>(std::abs(static_cast<Exact>(got) - exact) / unit);
    }
};
using Numbers = testing::Types<float, double>;
TYPED_TEST_SUITE(VectorMathTest, Numbers);

TYPED_TEST(VectorMathTest, ArithmeticIsRoundedLikeScalarArithmeticAtEveryLength) {
    using T = TypeParam;
    for (const std::size_t n : this->lengths) {
        const auto a = this->uniform(n, -9, 9), b = this->uniform(n, 1, 9);
        std::vector<T> sum(n + 1, T(42)), product(n + 1, T(42)), quotient(n + 1, T(42)), inverse(n + 1, T(42)),
            root(n + 1, T(42)), clipped(n + 1, T(42)), copied(n + 1, T(42));
        vectors::add(a.data(), b.data(), sum.data(), n);
        vectors::multiply(a.data(), b.data(), product.data(), n);
        vectors::divide(a.data(), b.data(), quotient.data(), n);
        vectors::divideScalarBy(T(3), b.data(), inverse.data(), n);
        vectors::sqrt(b.data(), root.data(), n);
        vectors::clip(a.data(), T(-2), T(2), clipped.data(), n);
        vectors::copy(a.data(), copied.data(), n);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_EQ(sum[i], a[i] + b[i]);
            EXPECT_EQ(product[i], a[i] * b[i]);
            EXPECT_EQ(quotient[i], a[i] / b[i]);
            EXPECT_EQ(inverse[i], 3 / b[i]);
            EXPECT_EQ(root[i], std::sqrt(b[i]));
            EXPECT_EQ(clipped[i], std::clamp(a[i], T(-2), T(2)));
            EXPECT_EQ(copied[i], a[i]);
        }
        for (const auto* out : {&sum, &product, &quotient, &inverse, &root, &clipped, &copied})
            EXPECT_EQ(out->back(), T(42)) << "wrote beyond " << n;
    }
}

TYPED_TEST(VectorMathTest, ScalesAndAddsWithinOneRounding) {
    using T = TypeParam;
    for (const std::size_t n : this->lengths) {
        const auto a = this->uniform(n, 1, 9), b = this->uniform(n, 1, 9);
        std::vector<T> offset(n), sum(n);
        vectors::scaleAndOffset(a.data(), T(0.3), T(0.7), offset.data(), n);
        vectors::multiplyAdd(a.data(), T(0.3), b.data(), sum.data(), n);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_LT(this->errorInUlp(offset[i], static_cast<typename TestFixture::Exact>(a[i]) * T(0.3) + T(0.7)),
                      1.5);
            EXPECT_LT(this->errorInUlp(sum[i], static_cast<typename TestFixture::Exact>(a[i]) * T(0.3) + b[i]), 1.5);
        }
    }
}

TYPED_TEST(VectorMathTest, OutputMayBeAnInput) {
    using T = TypeParam;
    const auto a = this->uniform(21, 1, 9), b = this->uniform(21, 1, 9);
    std::vector<T> x = a;
    vectors::multiply(x.data(), b.data(), x.data(), x.size());
    vectors::divide(a.data(), x.data(), x.data(), x.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_EQ(x[i], a[i] / (a[i] * b[i]));
}

TYPED_TEST(VectorMathTest, LogIsWithinFourUnitsInTheLastPlace) {
    using T = TypeParam;
    const std::size_t n = 100'003;
    for (const auto& [low, high] : {std::pair{T(1e-30), T(1e30)}, {T(0.9), T(1.1)}}) {
        const auto a = this->logarithmic(n, low, high);
        std::vector<T> out(n);
        vectors::log(a.data(), out.data(), n);
        double worst = 0;
        for (std::size_t i = 0; i < n; ++i)
            worst = std::max(worst, this->errorInUlp(out[i], std::log(static_cast<typename TestFixture::Exact>(a[i]))));
        EXPECT_LE(worst, 4);
    }
}

TYPED_TEST(VectorMathTest, ExpIsWithinFourUnitsInTheLastPlace) {
    using T = TypeParam;
    const std::size_t n = 100'003;
    const T reach = sizeof(T) == 4 ? T(87) : T(700);
    for (const T range : {reach, T(1)}) {
        const auto a = this->uniform(n, -range, range);
        std::vector<T> out(n);
        vectors::exp(a.data(), out.data(), n);
        double worst = 0;
        for (std::size_t i = 0; i < n; ++i)
            worst = std::max(worst, this->errorInUlp(out[i], std::exp(static_cast<typename TestFixture::Exact>(a[i]))));
        EXPECT_LE(worst, 4);
    }
}

// The bases and exponents of the filters: a frequency ratio to twice the order. 0.01 dB is a ratio of 1.15e-3.
TYPED_TEST(VectorMathTest, PowerIsWithinItsBoundOverFrequencyRatiosAndSlopes) {
    using T = TypeParam;
    using Precise = typename TestFixture::Exact;
    const Precise bound = sizeof(T) == 4 ? Precise(2e-5) : Precise(1e-13);
    const std::size_t n = 20'003;
    const auto base = this->logarithmic(n, T(4.0 / 24000), T(6000));
    std::vector<T> out(n);
    for (const T exponent : {T(-36), T(-11.97), T(-2), T(-1), T(-0.3), T(0.5), T(2), T(5.3), T(11.97), T(16), T(36)}) {
        vectors::power(base.data(), exponent, out.data(), n);
        Precise worst = 0;
        for (std::size_t i = 0; i < n; ++i) {
            const Precise exact = std::pow(static_cast<Precise>(base[i]), static_cast<Precise>(exponent));
            if (exact < static_cast<Precise>(std::numeric_limits<T>::min()))
                EXPECT_LE(out[i], std::numeric_limits<T>::min() * T(1.001));
            else if (exact > static_cast<Precise>(std::numeric_limits<T>::max()))
                EXPECT_GE(out[i], std::numeric_limits<T>::max() * T(0.999));
            else
                worst = std::max(worst, std::abs(out[i] / exact - 1));
        }
        EXPECT_LE(worst, bound) << exponent;
    }
}

TYPED_TEST(VectorMathTest, ZeroInfinityAndNoNumberGiveWhatTheLibraryGives) {
    using T = TypeParam;
    const std::vector<T> in{T(0), T(1), this->infinity, -this->infinity, T(-1), this->nan, T(1e4), T(-1e4)};
    const auto same = [](T a, T b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    std::vector<T> out(in.size());
    vectors::log(in.data(), out.data(), in.size());
    for (const std::size_t i : {0u, 1u, 2u, 3u, 4u, 5u})
        EXPECT_TRUE(same(out[i], std::log(in[i]))) << in[i] << " gives " << out[i];
    vectors::exp(in.data(), out.data(), in.size());
    for (const std::size_t i : {0u, 2u, 3u, 5u, 6u, 7u})
        EXPECT_TRUE(same(out[i], std::exp(in[i]))) << in[i] << " gives " << out[i];
    for (const T exponent : {T(-2), T(0), T(0.5), T(3.5)}) {
        vectors::power(in.data(), exponent, out.data(), in.size());
        for (const std::size_t i : {0u, 1u, 2u, 5u})
            EXPECT_TRUE(same(out[i], std::pow(in[i], exponent))) << in[i] << " ^ " << exponent << " gives " << out[i];
    }
}

TYPED_TEST(VectorMathTest, RmsIsTheRootOfTheMeanSquare) {
    using T = TypeParam;
    EXPECT_EQ(vectors::rms(static_cast<const T*>(nullptr), 0), T(0));
    for (const std::size_t n : this->lengths) {
        if (n == 0) continue;
        const auto a = this->uniform(n, -3, 3);
        long double sum = 0;
        for (const T x : a)
            sum += static_cast<long double>(x) * x;
        EXPECT_NEAR(static_cast<double>(vectors::rms(a.data(), n)), static_cast<double>(std::sqrt(sum / n)),
                    sizeof(T) == 4 ? 3e-6 : 1e-14);
    }
}

TYPED_TEST(VectorMathTest, ConvolutionSumsTheKernelOverEachWindow) {
    using T = TypeParam;
    for (const std::size_t length : {1u, 3u, 5u, 9u}) {
        for (const std::size_t n : this->lengths) {
            const auto padded = this->uniform(n + length - 1, -3, 3), kernel = this->uniform(length, 0, 1);
            std::vector<T> out(n + 1, T(42));
            vectors::convolve(padded.data(), kernel.data(), length, out.data(), n);
            for (std::size_t i = 0; i < n; ++i) {
                long double sum = 0;
                for (std::size_t j = 0; j < length; ++j)
                    sum += static_cast<long double>(padded[i + j]) * kernel[j];
                EXPECT_NEAR(static_cast<double>(out[i]), static_cast<double>(sum), sizeof(T) == 4 ? 5e-6 : 1e-14);
            }
            EXPECT_EQ(out[n], T(42));
        }
    }
}

// Machines differ in their vector units; each one that this machine has must do.
TYPED_TEST(VectorMathTest, EveryVectorUnitIsAsExact) {
    using T = TypeParam;
    using Precise = typename TestFixture::Exact;
    const std::size_t n = 1003;
    const auto a = this->logarithmic(n, T(1e-3), T(1e3));
    const T kernel[] = {T(0.25), T(0.5), T(0.25)};
    int units = 0;
    for (const auto unit : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(unit);
        ++units;
        std::vector<T> logs(n), exps(n), powers(n), smooth(n - 2);
        vectors::log(a.data(), logs.data(), n);
        vectors::exp(logs.data(), exps.data(), n);
        vectors::power(a.data(), T(3.3), powers.data(), n);
        vectors::convolve(a.data(), kernel, 3, smooth.data(), n - 2);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_LE(this->errorInUlp(logs[i], std::log(static_cast<Precise>(a[i]))), 4) << hwy::TargetName(unit);
            EXPECT_LE(this->errorInUlp(exps[i], std::exp(static_cast<Precise>(logs[i]))), 4) << hwy::TargetName(unit);
            EXPECT_NEAR(powers[i] / std::pow(a[i], T(3.3)), 1, sizeof(T) == 4 ? 2e-5 : 1e-13) << hwy::TargetName(unit);
        }
        for (std::size_t i = 0; i + 2 < n; ++i)
            EXPECT_NEAR(smooth[i] / (a[i] / 4 + a[i + 1] / 2 + a[i + 2] / 4), 1, 1e-6) << hwy::TargetName(unit);
    }
    hwy::SetSupportedTargetsForTest(0);
    EXPECT_GE(units, 1);
}

} // namespace
} // namespace QVM_NAMESPACE
