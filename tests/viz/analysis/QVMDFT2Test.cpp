// Transforms against the sums that define them, in double precision.
#include "viz/analysis/QVMDFT2.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using Complex = std::complex<double>;
using Split = std::array<std::vector<float>, 2>;

constexpr double kBound = 1e-6; // of the largest value

std::vector<Complex> rootsOfUnity(std::size_t n) {
    std::vector<Complex> roots(n);
    for (std::size_t i = 0; i < n; ++i)
        roots[i] = std::polar(1.0, -2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n));
    return roots;
}

// Sum of z[j] e^(jk), or with the conjugate of e.
std::vector<Complex> directSums(const std::vector<Complex>& z, bool isForward) {
    const std::size_t n = z.size();
    const std::vector<Complex> roots = rootsOfUnity(n);
    std::vector<Complex> sums(n);
    for (std::size_t k = 0; k < n; ++k) {
        double re = 0, im = 0;
        std::size_t turn = 0;
        for (std::size_t j = 0; j < n; ++j) {
            const double c = roots[turn].real(), s = isForward ? roots[turn].imag() : -roots[turn].imag();
            re += z[j].real() * c - z[j].imag() * s;
            im += z[j].real() * s + z[j].imag() * c;
            turn = (turn + k) % n;
        }
        sums[k] = {re, im};
    }
    return sums;
}

Split randomSplit(std::size_t count) {
    std::mt19937 random(static_cast<unsigned>(count));
    std::uniform_real_distribution<float> values(-1, 1);
    Split split;
    for (std::vector<float>& part : split) {
        part.resize(count);
        for (float& value : part)
            value = values(random);
    }
    return split;
}

Split transformed(Split in, unsigned n, QVMDFT2Type type) {
    QVMDFT2<float> dft(n, type);
    Split out = {std::vector<float>(in[0].size(), 42.0f), std::vector<float>(in[0].size(), 42.0f)};
    dft.process(in[0].data(), in[1].data(), out[0].data(), out[1].data());
    return out;
}

// What a transform must give for `in`, by its definition.
Split expected(const Split& in, unsigned n, QVMDFT2Type type) {
    const std::size_t half = n / 2;
    const bool isReal = type >= QVMDFT2RealForward, isForward = type % 2 == 0;
    std::vector<Complex> z(n);
    for (std::size_t i = 0; i < in[0].size(); ++i) {
        if (!isReal) z[i] = {in[0][i], in[1][i]};
        if (isReal && isForward) z[2 * i] = in[0][i], z[2 * i + 1] = in[1][i];
        if (isReal && !isForward && i > 0) {
            z[i] = {in[0][i], in[1][i]};
            z[n - i] = std::conj(z[i]);
        }
    }
    if (isReal && !isForward) z[0] = in[0][0], z[half] = in[1][0];
    const std::vector<Complex> sums = directSums(z, isForward);
    Split out = {std::vector<float>(in[0].size()), std::vector<float>(in[0].size())};
    for (std::size_t i = 0; i < in[0].size(); ++i) {
        const double scale = isReal && isForward ? 2 : 1;
        const bool pairs = isReal && !isForward;
        out[0][i] = static_cast<float>(pairs ? sums[2 * i].real() : scale * sums[i].real());
        out[1][i] = static_cast<float>(pairs ? sums[2 * i + 1].real() : scale * sums[i].imag());
    }
    if (isReal && isForward) out[1][0] = static_cast<float>(2 * sums[half].real());
    return out;
}

// The largest difference as a share of the largest value; infinite for what is not a number.
double errorOf(const Split& got, const Split& exact) {
    double difference = 0, peak = 0;
    for (std::size_t part = 0; part < 2; ++part) {
        for (std::size_t i = 0; i < exact[part].size(); ++i) {
            const double d = std::abs(double{got[part][i]} - double{exact[part][i]});
            if (!(d >= 0)) return INFINITY;
            difference = std::max(difference, d);
            peak = std::max(peak, std::abs(double{exact[part][i]}));
        }
    }
    return difference / peak;
}

class QVMDFT2Sizes : public testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(Points, QVMDFT2Sizes,
                         testing::Values(16, 32, 64, 128, 256, 512, 1024, 2048, 4096, 8192, 16384),
                         [](const auto& test) { return std::to_string(test.param); });

TEST_P(QVMDFT2Sizes, AgreesWithTheDefiningSumsInAllTypes) {
    const unsigned n = GetParam();
    for (const int first : {0, 1, 4, 5}) {
        const Split in = randomSplit(first < 4 ? n : n / 2);
        const Split exact = expected(in, n, static_cast<QVMDFT2Type>(first));
        double worst = 0;
        for (const int type : {first, first + 2})
            worst = std::max(worst, errorOf(transformed(in, n, static_cast<QVMDFT2Type>(type)), exact));
        EXPECT_LT(worst, kBound) << "type " << first;
        RecordProperty("type_" + std::to_string(first), std::to_string(worst));
    }
}

TEST_P(QVMDFT2Sizes, ForwardAndInverseGiveTheInputTimesTheScale) {
    const unsigned n = GetParam();
    for (const int forward : {0, 2, 4, 6}) {
        const Split in = randomSplit(forward < 4 ? n : n / 2);
        Split back = transformed(transformed(in, n, static_cast<QVMDFT2Type>(forward)), n,
                                 static_cast<QVMDFT2Type>(forward + 1));
        const float scale = static_cast<float>(n) * (forward < 4 ? 1 : 2);
        for (std::vector<float>& part : back)
            for (float& value : part)
                value /= scale;
        EXPECT_LT(errorOf(back, in), kBound) << "type " << forward;
    }
}

TEST_P(QVMDFT2Sizes, KeepsTheEnergyByParsevalsTheorem) {
    const unsigned n = GetParam();
    const auto energy = [](const Split& split, std::size_t from) {
        double sum = 0;
        for (std::size_t i = from; i < split[0].size(); ++i)
            sum += double{split[0][i]} * split[0][i] + double{split[1][i]} * split[1][i];
        return sum;
    };
    const Split complexIn = randomSplit(n), complexOut = transformed(complexIn, n, QVMDFT2ComplexForward);
    EXPECT_NEAR(energy(complexOut, 0) / n / energy(complexIn, 0), 1, 1e-6);
    const Split realIn = randomSplit(n / 2), realOut = transformed(realIn, n, QVMDFT2RealForward);
    const double ends = double{realOut[0][0]} * realOut[0][0] + double{realOut[1][0]} * realOut[1][0];
    EXPECT_NEAR((ends + 2 * energy(realOut, 1)) / 4 / n / energy(realIn, 0), 1, 1e-6);
}

TEST(QVMDFT2, TheComparisonNoticesAWrongBinAndAShiftedSpectrum) {
    const Split in = randomSplit(64), exact = expected(in, 64, QVMDFT2ComplexForward);
    Split wrong = transformed(in, 64, QVMDFT2ComplexForward);
    ASSERT_LT(errorOf(wrong, exact), kBound);
    wrong[1][20] += 1e-4f;
    EXPECT_GT(errorOf(wrong, exact), kBound);
    wrong = exact;
    std::rotate(wrong[0].begin(), wrong[0].begin() + 1, wrong[0].end());
    EXPECT_GT(errorOf(wrong, exact), kBound);
    EXPECT_GT(errorOf(transformed(in, 64, QVMDFT2ComplexInverse), exact), kBound);
    wrong[0][3] = NAN;
    EXPECT_GT(errorOf(wrong, exact), kBound);
}

TEST(QVMDFT2, TheNyquistTermStandsBesideTheConstantOne) {
    Split alternating = {std::vector<float>(8, 1.0f), std::vector<float>(8, -1.0f)};
    const Split bins = transformed(alternating, 16, QVMDFT2RealForward);
    EXPECT_EQ(bins[1][0], 32);
    EXPECT_NEAR(bins[0][0], 0, 1e-6);
    const Split constant =
        transformed({std::vector<float>(8, 1.0f), std::vector<float>(8, 1.0f)}, 16, QVMDFT2RealForward);
    EXPECT_EQ(constant[0][0], 32);
    EXPECT_NEAR(constant[1][0], 0, 1e-6);
}

TEST(QVMDFT2, TransformsInPlace) {
    for (int type = 0; type < 8; ++type) {
        const Split in = randomSplit(type < 4 ? 32 : 16);
        const Split exact = expected(in, 32, static_cast<QVMDFT2Type>(type));
        Split data = in;
        QVMDFT2<float> dft(32, static_cast<QVMDFT2Type>(type));
        dft.process(data[0].data(), data[1].data(), data[0].data(), data[1].data());
        EXPECT_LT(errorOf(data, exact), kBound) << type;
    }
}

TEST(QVMDFT2, KnowsWhatItWasMadeFor) {
    const QVMDFT2<float> dft(64, QVMDFT2RealInverse);
    EXPECT_TRUE(dft.useDFT());
    EXPECT_EQ(dft.type(), QVMDFT2RealInverse);
    EXPECT_FALSE(dft.isForward());
    EXPECT_TRUE(dft.isReal());
    EXPECT_EQ(dft.size(), 64u);
    EXPECT_EQ(dft.half(), 32u);
}

TEST(QVMDFT2, ItsOwnSetUpExecutedIsAllThatItDoes) {
    Split in = randomSplit(32), processed = in, executed = in;
    QVMDFT2<float> dft(64, QVMDFT2RealForward);
    dft.process(in[0].data(), in[1].data(), processed[0].data(), processed[1].data());
    dft.executeFFT(dft.setup(), in[0].data(), in[1].data(), executed[0].data(), executed[1].data());
    EXPECT_EQ(processed, executed);
}

TEST(QVMDFT2, WithoutASetUpGivesZeros) {
    QVMDFT2<float> odd(15, QVMDFT2RealForward);
    EXPECT_FALSE(odd.useDFT());
    Split in = randomSplit(7), out = randomSplit(8);
    const float beyond = out[0][7];
    odd.process(in[0].data(), in[1].data(), out[0].data(), out[1].data());
    EXPECT_EQ(out[0][6], 0);
    EXPECT_EQ(out[0][7], beyond);
    EXPECT_FALSE(QVMDFT2<float>(0, QVMDFT2ComplexForward).useDFT());
}

TEST(QVMDFT2, AnyNumberOfThreadsMakeAndUseTransformsAtOnce) {
    std::vector<std::thread> threads;
    std::array<double, 4> errors{};
    for (std::size_t t = 0; t < errors.size(); ++t) {
        threads.emplace_back([&errors, t] {
            for (unsigned n = 16; n <= 256; n *= 2) {
                const auto type = static_cast<QVMDFT2Type>(2 * t);
                const Split in = randomSplit(type < 4 ? n : n / 2);
                errors[t] = std::max(errors[t], errorOf(transformed(in, n, type), expected(in, n, type)));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const double error : errors)
        EXPECT_LT(error, kBound);
}

} // namespace
} // namespace QVM_NAMESPACE
