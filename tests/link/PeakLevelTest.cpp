#include "link/PeakLevel.h"

#include <gtest/gtest.h>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

constexpr QVMFloat32Range range = {-96, 12};

TEST(PeakLevel, IsTwentyTimesTheDecimalLogarithm) {
    for (const double peak : {1e-4, 0.01, 0.1, 0.5, 0.999, 1.5, 3.9}) {
        EXPECT_NEAR(peakLevel(peak, range), 20 * std::log10(peak), 1e-5) << peak;
        EXPECT_NEAR(peakLevel(static_cast<float>(peak), range), 20 * std::log10(peak), 1e-5) << peak;
    }
    EXPECT_EQ(peakLevel(1.0f, range), 0) << "an over begins here, to the bit";
    EXPECT_EQ(peakLevel(1.0, range), 0);
}

TEST(PeakLevel, SilenceAndWhatIsFainterIsTheLowerEnd) {
    EXPECT_EQ(peakLevel(0.0f, range), -96);
    EXPECT_EQ(peakLevel(0.0, range), -96);
    EXPECT_EQ(peakLevel(1e-9f, range), -96);
    EXPECT_EQ(peakLevel(0.0f, {-60, 0}), -60);
}

TEST(PeakLevel, WhatIsLouderIsTheUpperEnd) {
    EXPECT_EQ(peakLevel(1000.0f, range), 12);
    EXPECT_EQ(peakLevel(std::numeric_limits<float>::infinity(), range), 12);
}

} // namespace
} // namespace QVM_NAMESPACE
