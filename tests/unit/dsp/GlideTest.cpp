#include "unit/dsp/Glide.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE::dsp {
namespace {

TEST(Glide, SetsOutGentlyAndArrivesExactly) {
    Glide glide;
    glide.prepare(0.3, 1e-6, 0);
    double last = 0, farthest = 0;
    const double first = glide.follow(1);
    EXPECT_NEAR(first, 0.09, 1e-12) << "both low-passes count from the first step";
    for (int i = 0; i < 100; ++i) {
        const double value = glide.follow(1);
        EXPECT_GE(value, last);
        EXPECT_LE(value, 1);
        farthest = std::max(farthest, value - last);
        last = value;
    }
    EXPECT_EQ(glide.value(), 1);
    EXPECT_LT(farthest, 0.3);
}

TEST(Glide, SnapsAtOnceAndThenRests) {
    Glide glide;
    glide.prepare(0.3, 1e-6, 5);
    glide.snap(-2);
    EXPECT_EQ(glide.follow(-2), -2);
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
