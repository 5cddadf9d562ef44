#include "response/QVMTiltEQ.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

class QVMTiltEQTest : public testing::Test {
protected:
    // The compensation; the curve is in `out` then.
    float calculate(float gain, float low, float high, QVMTiltEQ_LoudnessMode mode) {
        const int n = static_cast<int>(freqs.size());
        return QVMTiltEQ<float>::calcRespForParams(freqs.data(), gain, low, high, mode, weights.data(),
                                                   filterMag.empty() ? nullptr : filterMag.data(), scratch.data(),
                                                   out.data(), n);
    }

    std::vector<float> freqs = {4, 20, 100, 500, 2000, 8000, 20000, 24000};
    std::vector<float> weights = std::vector<float>(8, 0.5f);
    std::vector<float> filterMag;
    std::vector<float> scratch = std::vector<float>(8), out = std::vector<float>(8);
};

TEST_F(QVMTiltEQTest, NoTiltIsFlatAtZeroAndNeedsNoCompensation) {
    for (int mode = 0; mode < 4; ++mode) {
        EXPECT_NEAR(calculate(0, 20, 20000, static_cast<QVMTiltEQ_LoudnessMode>(mode)), 0, 1e-5);
        for (const float level : out)
            EXPECT_NEAR(level, 0, 1e-5);
    }
}

TEST_F(QVMTiltEQTest, RunsFromZeroBelowToTwiceTheGainAbove) {
    calculate(5, 300, 1000, QVMTiltEQ_LoudnessNone);
    EXPECT_NEAR(out.front(), 0, 0.01);
    EXPECT_NEAR(out.back(), 10, 0.2);
    calculate(-5, 300, 1000, QVMTiltEQ_LoudnessNone);
    EXPECT_NEAR(out.front(), 0, 0.01);
    EXPECT_NEAR(out.back(), -10, 0.2);
    EXPECT_TRUE(std::is_sorted(out.rbegin(), out.rend()));
}

TEST_F(QVMTiltEQTest, TheUpperCornerIsAtLeastTwiceTheLowerOne) {
    calculate(6, 1000, 2000, QVMTiltEQ_LoudnessNone);
    const std::vector<float> atTwice = out;
    for (const float high : {10.0f, 1000.0f, 1999.0f}) {
        calculate(6, 1000, high, QVMTiltEQ_LoudnessNone);
        EXPECT_EQ(out, atTwice) << high;
    }
    calculate(6, 1000, 2100, QVMTiltEQ_LoudnessNone);
    EXPECT_NE(out, atTwice);
}

TEST_F(QVMTiltEQTest, HalfGainModeTakesTheGainBack) {
    EXPECT_FLOAT_EQ(calculate(7, 20, 20000, QVMTiltEQ_LoudnessHalfGain), -7);
    EXPECT_FLOAT_EQ(calculate(7, 20, 20000, QVMTiltEQ_LoudnessNone), 0);
}

TEST_F(QVMTiltEQTest, TrebleModeLevelsTwentyKilohertz) {
    const float compensation = calculate(9, 100, 5000, QVMTiltEQ_LoudnessTreble);
    EXPECT_NEAR(compensation + out[6], 0, 1e-3);
}

// So steep there that a hertz more or less would be four times what is allowed.
TEST_F(QVMTiltEQTest, TrebleModeLevelsTwentyKilohertzInTheMiddleOfASteepTilt) {
    for (const float gain : {15.0f, -15.0f}) {
        const float compensation = calculate(gain, 14142, 28284, QVMTiltEQ_LoudnessTreble);
        EXPECT_NEAR(compensation + out[6], 0, 5e-4) << gain;
        EXPECT_GT(std::abs(out[7] - out[6]), 5) << "the tilt between 20 and 24 kHz";
    }
}

TEST_F(QVMTiltEQTest, WeightedModeKeepsTheWeightedEnergy) {
    weights = {0.1f, 0.3f, 0.8f, 1, 1, 0.7f, 0.3f, 0.1f};
    filterMag = {1, 1, 1, 0.5f, 0.1f, 0, 0, 0};
    const float compensation = calculate(9, 100, 5000, QVMTiltEQ_LoudnessWeighted);
    double flat = 0, tilted = 0;
    for (std::size_t i = 0; i < freqs.size(); ++i) {
        const double seen = double{weights[i]} * filterMag[i];
        flat += seen * seen;
        tilted += std::pow(seen * std::pow(10, (out[i] + compensation) / 20.0), 2);
    }
    EXPECT_NEAR(10 * std::log10(tilted / flat), 0, 1e-3);
}

TEST_F(QVMTiltEQTest, LoudnessWithoutFiltersIsThatOfOpenOnes) {
    const std::vector<float> response = {1, 1.1f, 1.3f, 2, 3, 4, 4, 4};
    const std::vector<float> open(8, 1.0f);
    const float without = QVMTiltEQ<float>::tiltEQLoudness(response.data(), weights.data(), nullptr, scratch.data(), 8);
    const float with =
        QVMTiltEQ<float>::tiltEQLoudness(response.data(), weights.data(), open.data(), scratch.data(), 8);
    EXPECT_FLOAT_EQ(without, with);
    EXPECT_LT(without, 0);
}

// Squares of such magnitudes are no numbers of single precision any more.
TEST_F(QVMTiltEQTest, LoudnessOfANearlyClosedBandIsStillANumber) {
    const std::vector<float> response(8, 2.0f), closed(8, 1e-31f);
    EXPECT_NEAR(QVMTiltEQ<float>::tiltEQLoudness(response.data(), weights.data(), closed.data(), scratch.data(), 8),
                -6.0206, 1e-3);
}

// Steep filters that cross leave less than a number of single precision has the reciprocal of, or nothing at all.
TEST_F(QVMTiltEQTest, LoudnessOfAClosedBandIsNone) {
    const std::vector<float> response(8, 2.0f);
    for (const float magnitude : {1e-39f, 1e-44f, 0.0f}) {
        const std::vector<float> closed(8, magnitude);
        EXPECT_EQ(QVMTiltEQ<float>::tiltEQLoudness(response.data(), weights.data(), closed.data(), scratch.data(), 8),
                  0)
            << magnitude;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
