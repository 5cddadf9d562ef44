// Against the C library in double precision, at lengths that end within a vector. Machines differ in their vector
// units; all of it is done on each one that this machine has.
#include "platform/vector/VectorMath.h"

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

struct VectorMathTest : testing::TestWithParam<std::int64_t> {
    VectorMathTest() { hwy::SetSupportedTargetsForTest(GetParam()); }
    ~VectorMathTest() override { hwy::SetSupportedTargetsForTest(0); }

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

TEST_P(VectorMathTest, LogIsWithinFourUnitsInTheLastPlace) {
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

TEST_P(VectorMathTest, ExpIsWithinFourUnitsInTheLastPlace) {
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
TEST_P(VectorMathTest, PowerIsWithinItsBoundOverFrequencyRatiosAndSlopes) {
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

TEST_P(VectorMathTest, ZeroInfinityAndNoNumberGiveWhatTheLibraryGives) {
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

// One operation on two arrays, as vectors do it and as the C library does it to an element.
struct Operation {
    const char* name;
    std::function<void(const float* a, const float* b, float* out, std::size_t n)> vector;
    std::function<double(double a, double b)> scalar;
};
const Operation operations[] = {
    {"copy", [](auto a, auto, auto out, auto n) { vectors::copy(a, out, n); }, [](double a, double) { return a; }},
    {"add", vectors::add, [](double a, double b) { return a + b; }},
    {"multiply", vectors::multiply, [](double a, double b) { return a * b; }},
    {"divide", vectors::divide, [](double a, double b) { return a / b; }},
    {"divideScalarBy", [](auto a, auto, auto out, auto n) { vectors::divideScalarBy(3, a, out, n); },
     [](double a, double) { return 3 / a; }},
    {"scaleAndOffset", [](auto a, auto, auto out, auto n) { vectors::scaleAndOffset(a, 0.5f, 0.75f, out, n); },
     [](double a, double) { return a * 0.5 + 0.75; }},
    {"multiplyAdd", [](auto a, auto b, auto out, auto n) { vectors::multiplyAdd(a, 0.5f, b, out, n); },
     [](double a, double b) { return a * 0.5 + b; }},
    {"power", [](auto a, auto, auto out, auto n) { vectors::power(a, 2.5f, out, n); },
     [](double a, double) { return std::pow(a, 2.5); }},
    {"power of 0", [](auto a, auto, auto out, auto n) { vectors::power(a, 0, out, n); },
     [](double, double) { return 1.0; }},
    {"log", [](auto a, auto, auto out, auto n) { vectors::log(a, out, n); },
     [](double a, double) { return std::log(a); }},
    {"exp", [](auto a, auto, auto out, auto n) { vectors::exp(a, out, n); },
     [](double a, double) { return std::exp(a); }},
    {"sqrt", [](auto a, auto, auto out, auto n) { vectors::sqrt(a, out, n); },
     [](double a, double) { return std::sqrt(a); }},
    {"clip", [](auto a, auto, auto out, auto n) { vectors::clip(a, 2, 5, out, n); },
     [](double a, double) { return std::clamp(a, 2.0, 5.0); }},
    {"magnitude", vectors::magnitude, [](double a, double b) { return std::hypot(a, b); }},
    {"angle", vectors::angle, [](double a, double b) { return std::atan2(a, b); }},
};

// At every length and place, into an array of its own and into either input; what is beside it is left alone.
TEST_P(VectorMathTest, EveryOperationDoesEveryElementWhereverTheArraysLie) {
    constexpr std::size_t margin = 4;
    for (const Operation& operation : operations) {
        for (const std::size_t n : lengths) {
            for (const std::size_t shift : {0u, 1u, 3u}) {
                for (const int into : {0, 1, 2}) {
                    // Of three arrays each begins at another distance from where a vector would.
                    std::vector<float> arrays[3] = {uniform(n + 2 * margin, 1, 9), uniform(n + 2 * margin, 1, 9),
                                                    uniform(n + 2 * margin, 1, 9)};
                    const std::vector<float> before[3] = {arrays[0], arrays[1], arrays[2]};
                    float* const a = arrays[0].data() + shift;
                    float* const b = arrays[1].data() + (shift + 1) % margin;
                    const std::size_t places[] = {shift, (shift + 1) % margin, (shift + 2) % margin};
                    const std::size_t target = into == 0 ? 2 : static_cast<std::size_t>(into - 1), at = places[target];
                    operation.vector(a, b, arrays[target].data() + at, n);
                    for (std::size_t i = 0; i < n + 2 * margin; ++i) {
                        const float got = arrays[target][i];
                        if (i < at || i >= at + n) {
                            ASSERT_EQ(got, before[target][i]) << operation.name << " beside " << n;
                            continue;
                        }
                        const double exact = operation.scalar(double{before[0][places[0] + i - at]},
                                                              double{before[1][places[1] + i - at]});
                        ASSERT_NEAR(got, exact, 2e-5 * std::max(1.0, std::abs(exact)))
                            << operation.name << " of " << n << " at " << i - at;
                    }
                }
            }
        }
    }
}

TEST_P(VectorMathTest, SumsAndShufflesDoEveryElementWhereverTheArraysLie) {
    for (const std::size_t n : lengths) {
        for (const std::size_t shift : {0u, 1u, 3u}) {
            const auto both = uniform(2 * n + 8, -3, 3), kernel = uniform(3, 0, 1);
            const float* const in = both.data() + shift;
            std::vector<float> out(n + 8, 42.0f), other(n + 8, 42.0f), pairs(2 * n + 8, 42.0f);
            vectors::convolve(in, kernel.data(), 3, out.data() + 1, n);
            long double squares = 0;
            for (std::size_t i = 0; i < n; ++i) {
                ASSERT_NEAR(out[i + 1], in[i] * kernel[0] + in[i + 1] * kernel[1] + in[i + 2] * kernel[2], 5e-6);
                squares += static_cast<long double>(in[i]) * in[i];
            }
            EXPECT_EQ(out[0], 42.0f);
            EXPECT_EQ(out[n + 1], 42.0f);
            const double mean = n > 0 ? static_cast<double>(std::sqrt(squares / n)) : 0;
            EXPECT_NEAR(vectors::rms(in, n), mean, 3e-6);
            vectors::deinterleave(in, 0.5f, out.data() + 1, other.data() + 3, n);
            vectors::interleave(out.data() + 1, other.data() + 3, pairs.data() + 1, n);
            for (std::size_t i = 0; i < n; ++i) {
                ASSERT_EQ(out[i + 1], in[2 * i] * 0.5f);
                ASSERT_EQ(other[i + 3], in[2 * i + 1] * 0.5f);
                ASSERT_EQ(pairs[2 * i + 1], out[i + 1]);
                ASSERT_EQ(pairs[2 * i + 2], other[i + 3]);
            }
            EXPECT_EQ(pairs[0], 42.0f);
            EXPECT_EQ(pairs[2 * n + 1], 42.0f);
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

INSTANTIATE_TEST_SUITE_P(Units, VectorMathTest, testing::ValuesIn(hwy::SupportedAndGeneratedTargets()),
                         [](const auto& each) { return std::string(hwy::TargetName(each.param)); });

} // namespace
} // namespace QVM_NAMESPACE
