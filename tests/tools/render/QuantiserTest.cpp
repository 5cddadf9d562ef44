#include "tools/render/Quantiser.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {
namespace render {
namespace {

std::vector<std::int32_t> words(Quantiser& quantiser, std::vector<double>& samples) {
    std::vector<std::int32_t> result(samples.size());
    quantiser.quantise(samples, result);
    return result;
}

TEST(Quantiser, WholeNumbersStayAsTheyAreAtEveryWidth) {
    for (const int bits : {8, 16, 20, 24, 32}) {
        const double scale = std::ldexp(1.0, bits - 1);
        std::vector<double> samples = {0, 1 / scale, -1 / scale, 1 - 1 / scale, -1, 0.5};
        const std::vector<double> before = samples;
        Quantiser quantiser(bits, Dither::none);
        const std::vector<std::int32_t> result = words(quantiser, samples);
        EXPECT_EQ(samples, before) << bits;
        for (std::size_t i = 0; i < samples.size(); ++i)
            EXPECT_EQ(result[i], static_cast<std::int32_t>(before[i] * 2147483648.0)) << bits;
        EXPECT_EQ(quantiser.clipped(), 0U);
    }
}

TEST(Quantiser, RoundsToTheNearest) {
    std::vector<double> samples = {1.4 / 32768, 1.6 / 32768, -1.6 / 32768};
    Quantiser quantiser(16, Dither::none);
    EXPECT_EQ(words(quantiser, samples), (std::vector<std::int32_t>{1 << 16, 2 << 16, -2 * (1 << 16)}));
    EXPECT_EQ(samples[1], 2.0 / 32768);
}

TEST(Quantiser, CutsOffAtFullScaleAndCounts) {
    std::vector<double> samples = {1, 1.5, -1.5, 1e30, -1, 0.999};
    Quantiser quantiser(24, Dither::none);
    const auto result = words(quantiser, samples);
    EXPECT_EQ(quantiser.clipped(), 4U);
    EXPECT_EQ(result[0], 0x7FFFFF00);
    EXPECT_EQ(result[2], INT32_MIN);
    EXPECT_EQ(samples[3], 1 - std::ldexp(1.0, -23));
}

// Rounding with triangular noise adds a quarter of a squared step on the whole, whatever the sample is.
TEST(Quantiser, DitherMakesTheErrorANoiseThatKnowsNothingOfTheSignal) {
    constexpr std::size_t count = 200000;
    for (const double offset : {0.0, 0.25, 0.5}) {
        std::vector<double> samples(count, offset / 32768);
        Quantiser quantiser(16, Dither::triangular);
        words(quantiser, samples);
        double sum = 0, squares = 0;
        for (const double sample : samples) {
            const double error = sample * 32768 - offset;
            sum += error;
            squares += error * error;
        }
        EXPECT_NEAR(sum / count, 0, 0.01) << offset;
        EXPECT_NEAR(squares / count, 0.25, 0.01) << offset;
    }
}

TEST(Quantiser, DitherIsTheSameInEveryRun) {
    std::vector<double> first(100), second(100);
    Quantiser one(16, Dither::triangular), other(16, Dither::triangular);
    EXPECT_EQ(words(one, first), words(other, second));
    EXPECT_NE(first, std::vector<double>(100));
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
