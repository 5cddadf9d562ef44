#include "viz/analysis/StereoSpectrum.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

constexpr float kBinWidth = 10; // hertz

class StereoSpectrumTest : public testing::Test {
protected:
    void SetUp() override { spectrum.init({20, 20480}, 20, kBinWidth, levels.size()); } // half an octave a band
    void takeFor(float seconds) {
        for (float t = 0; t < seconds; t += 0.01f)
            spectrum.take(levels.data(), pan.data(), width.data(), 0.01f);
    }
    StereoSpectrum spectrum;
    std::vector<float> levels = std::vector<float>(2100), pan = levels, width = levels;
};

TEST_F(StereoSpectrumTest, ABandHasThePowerOfItsBins) {
    levels[110] = 0.3f; // 1100 Hz, in the band from 905 to 1280
    levels[120] = 0.4f;
    takeFor(1);
    EXPECT_NEAR(spectrum.band(11).level, 0.5f, 1e-4);
    EXPECT_EQ(spectrum.band(10).level, 0);
    EXPECT_EQ(spectrum.band(12).level, 0);
}

TEST_F(StereoSpectrumTest, BandsNarrowerThanABinShareItsPower) {
    spectrum.init({20, 40}, 8, kBinWidth, levels.size());
    levels[3] = 1;
    takeFor(1);
    double power = 0;
    for (std::size_t i = 0; i < 8; ++i)
        power += std::pow(spectrum.band(i).level, 2);
    EXPECT_NEAR(power, 1, 0.15);
    EXPECT_GT(spectrum.band(4).level, spectrum.band(0).level);
}

TEST_F(StereoSpectrumTest, ASourceThatIsOnlyPannedIsInOnePlace) {
    levels[110] = levels[112] = 0.5f;
    pan[110] = pan[112] = -0.6f;
    width[110] = width[112] = 0.3f;
    takeFor(1);
    EXPECT_NEAR(spectrum.band(11).pan, -0.6f, 1e-4);
    EXPECT_NEAR(spectrum.band(11).extent, 0, 1e-3);
    EXPECT_NEAR(spectrum.band(11).phase, 0, 1e-4);
}

TEST_F(StereoSpectrumTest, TwoSourcesAreSpreadBetweenThemWeightedByPower) {
    levels[110] = levels[112] = 0.5f;
    pan[110] = -1, pan[112] = 1;
    width[110] = width[112] = 0.5f;
    takeFor(1);
    EXPECT_NEAR(spectrum.band(11).pan, 0, 1e-4);
    EXPECT_NEAR(spectrum.band(11).extent, 1, 1e-3);
    EXPECT_NEAR(spectrum.band(11).phase, 0, 1e-4);
    levels[110] = 0.05f;
    takeFor(3);
    EXPECT_NEAR(spectrum.band(11).pan, 1, 0.03);
}

TEST_F(StereoSpectrumTest, OppositePhasesReachFromEndToEnd) {
    levels[110] = 1;
    width[110] = 1;
    takeFor(1);
    EXPECT_NEAR(spectrum.band(11).extent, 1, 1e-4);
    EXPECT_NEAR(spectrum.band(11).phase, 1, 1e-4);
}

TEST_F(StereoSpectrumTest, RisesAtOnceAndFadesSlowly) {
    levels[110] = 1;
    takeFor(0.1f);
    EXPECT_GT(spectrum.band(11).level, 0.95f);
    levels[110] = 0;
    takeFor(0.25f);
    EXPECT_NEAR(std::pow(spectrum.band(11).level, 2), std::exp(-1.0), 0.03);
}

TEST_F(StereoSpectrumTest, WhatIsNoNumberIsForgotten) {
    levels[110] = NAN;
    takeFor(0.02f);
    EXPECT_EQ(spectrum.band(11).level, 0);
    levels[110] = 1;
    takeFor(1);
    EXPECT_NEAR(spectrum.band(11).level, 1, 1e-3);
}

} // namespace
} // namespace QVM_NAMESPACE
