#include "viz/analysis/SpectrumLevels.h"

#include "viz/analysis/SpectrumBands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

constexpr float kFrame = 1.0f / 60;
// The one nearest to 1 kHz.
constexpr std::size_t kMiddle = 191;

std::vector<float> powers(float decibels) {
    return std::vector<float>(bands::count, std::pow(10.0f, decibels / 10));
}

float highest(const SpectrumLevels& levels) {
    return std::ranges::max(levels.levels());
}

TEST(SpectrumLevels, TiltIsFourAndAHalfDecibelsAnOctaveOfTheDensity) {
    EXPECT_NEAR(bands::hertz(kMiddle), 1000, 15);
    EXPECT_NEAR(SpectrumLevels::tilt(kMiddle), 0, 0.03);
    const double widening = 10 * std::log10(2.0); // of the bands, an octave
    for (const std::size_t octave : {0u, 3u, 7u, 11u}) {
        const double added =
            double{SpectrumLevels::tilt(24 * (octave + 1))} - double{SpectrumLevels::tilt(24 * octave)};
        EXPECT_NEAR(added + widening, 4.5, 1e-4);
    }
}

TEST(SpectrumLevels, AreTilted) {
    SpectrumLevels levels;
    levels.follow(powers(-30), 1);
    for (const std::size_t band : {20u, 100u, 290u})
        EXPECT_NEAR(levels.levels()[band], -30 + SpectrumLevels::tilt(band), 0.05) << band;
    EXPECT_GT(levels.levels()[290] - levels.levels()[100], 10);
}

TEST(SpectrumLevels, RiseFastAndStandAtTheLevel) {
    SpectrumLevels levels;
    EXPECT_EQ(highest(levels), SpectrumLevels::range.min);
    levels.follow(powers(-20), SpectrumLevels::attackSeconds);
    EXPECT_NEAR(levels.levels()[kMiddle], -72 + 52 * (1 - std::exp(-1.0)), 0.1);
    for (int i = 0; i < 12; ++i)
        levels.follow(powers(-20), kFrame);
    EXPECT_NEAR(levels.levels()[kMiddle], -20, 0.05);
}

TEST(SpectrumLevels, FallEvenlyHoweverLongTheFramesAre) {
    for (const float frame : {1.0f / 144, 1.0f / 60, 1.0f / 30}) {
        SpectrumLevels levels;
        levels.follow(powers(-10), 1);
        for (float passed = 0; passed < 0.999f; passed += frame)
            levels.follow(powers(-200), frame);
        EXPECT_NEAR(levels.levels()[kMiddle], -10 - SpectrumLevels::fallPerSecond, 1.3) << frame;
    }
}

TEST(SpectrumLevels, FallNoFurtherThanTheSound) {
    SpectrumLevels levels;
    levels.follow(powers(-10), 1);
    levels.follow(powers(-12), 1);
    EXPECT_NEAR(levels.levels()[kMiddle], -12, 0.05);
}

TEST(SpectrumLevels, SilenceFallsToEmptyWithinTwoSeconds) {
    SpectrumLevels levels;
    levels.follow(powers(0), 1);
    const std::vector<float> silence(bands::count);
    for (float passed = 0; passed < 2.3f; passed += kFrame) // what the tilt lifts above 0 dB has farther to fall
        levels.follow(silence, kFrame);
    EXPECT_EQ(highest(levels), SpectrumLevels::range.min);
}

TEST(SpectrumLevels, WhatIsNoNumberShowsNothing) {
    SpectrumLevels levels;
    levels.follow(std::vector<float>(bands::count, std::nanf("")), kFrame);
    EXPECT_EQ(highest(levels), SpectrumLevels::range.min);
    levels.follow(powers(-30), 1);
    EXPECT_NEAR(levels.levels()[kMiddle], -30, 0.05);
}

} // namespace
} // namespace QVM_NAMESPACE
