#include "editor/surface/CurveTexts.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(CurveTexts, FrequenciesAreAsOnTheSliders) {
    EXPECT_EQ(frequencyText(80), "80 Hz");
    EXPECT_EQ(frequencyText(1250), "1.25 kHz");
    EXPECT_EQ(frequencyText(12500), "12.5 kHz");
    EXPECT_EQ(shortFrequencyText(50), "50");
    EXPECT_EQ(shortFrequencyText(20000), "20k");
}

TEST(CurveTexts, LevelsHaveTheirSignAndARealMinus) {
    EXPECT_EQ(levelText(3.24), "+3.2 dB");
    EXPECT_EQ(levelText(-12.35), "\u221212.4 dB");
    EXPECT_EQ(levelText(0.04), "0.0 dB");
    EXPECT_EQ(levelText(-0.04), "0.0 dB");
    EXPECT_EQ(levelText(-99.96), "\u2212100.0 dB");
    EXPECT_EQ(levelText(-243.7), "\u2212244 dB");
    EXPECT_EQ(gridLevelText(0), "0 dB");
    EXPECT_EQ(gridLevelText(6), "+6");
    EXPECT_EQ(gridLevelText(-12), "\u221212");
    EXPECT_EQ(centsText(12), "+12 ct");
    EXPECT_EQ(centsText(-3), "\u22123 ct");
    EXPECT_EQ(centsText(0), "0 ct");
}

} // namespace
} // namespace QVM_NAMESPACE
