#include "controls/SliderAxis.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr SliderAxis kLying = {.horizontal = true, .lowest = 18, .highest = 256};
constexpr SliderAxis kUpright = {.horizontal = false, .lowest = 26, .highest = 191};

TEST(SliderAxisTest, ThePositionIsWhatLiesAlongTheAxis) {
    EXPECT_EQ(kLying.coordinateOf({3, 4}), 3);
    EXPECT_EQ(kUpright.coordinateOf({3, 4}), 4);
    EXPECT_EQ(kLying.pointAt(7, 2), (Point{7, 2}));
    EXPECT_EQ(kUpright.pointAt(7, 2), (Point{2, 7}));
    EXPECT_EQ(kLying.pointAt(7), (Point{7, 0}));
}

TEST(SliderAxisTest, FractionsGoFromTheLowestPositionToTheHighest) {
    EXPECT_EQ(kLying.range(), 238);
    EXPECT_EQ(kLying.fractionAt(18), 0);
    EXPECT_EQ(kLying.fractionAt(256), 1);
    EXPECT_EQ(kUpright.positionAt(0), 26);
    EXPECT_EQ(kUpright.positionAt(1), 191);
    EXPECT_DOUBLE_EQ(kLying.fractionAt(kLying.positionAt(0.25)), 0.25);
}

TEST(SliderAxisTest, WhatLiesBeyondTheEndsIsNotLimited) {
    EXPECT_EQ(kLying.fractionAt(18 - 238), -1);
    EXPECT_EQ(kUpright.positionAt(2), 191 + 165);
}

} // namespace
} // namespace QVM_NAMESPACE
