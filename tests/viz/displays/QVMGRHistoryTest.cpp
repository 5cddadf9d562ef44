// What the history keeps: the value it follows, the points it scrolls and the range of its scale.
#include "viz/displays/QVMGRHistory.h"

#include "GRHistoryFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {
namespace {

using QVMGRHistoryTest = GRHistoryFixture;

TEST_F(QVMGRHistoryTest, HasOnePointForEachPointAcrossAndStartsAtRest) {
    EXPECT_EQ(history.numPoints(), 150);
    for (const float value : history.history())
        EXPECT_EQ(value, 0);
    EXPECT_EQ(history.range(), (QVMFloat32Range{-24, 0}));
    EXPECT_TRUE(history.flag());
    history.init(displayCanvas(97.5f), {-24, 0}, false, false);
    EXPECT_EQ(history.numPoints(), 98);
    EXPECT_FALSE(history.flag());
}

TEST_F(QVMGRHistoryTest, FollowsItsInputByTheRateAndTheElapsedTime) {
    hold(-12, 1, 0.02f);
    EXPECT_NEAR(history.smoothed(), -12 * (1 - std::exp(-30.003 * 0.02)), 1e-4);
    hold(-12, 9, 0.02f);
    EXPECT_NEAR(history.smoothed(), -12 * (1 - std::exp(-30.003 * 0.2)), 1e-3);
}

TEST_F(QVMGRHistoryTest, WithoutInputForATenthOfASecondItGlidesBackFiveTimesMoreSlowly) {
    hold(-12, 60);
    const float held = history.smoothed();
    EXPECT_NEAR(held, -12, 1e-3);
    frame(0.08f); // the value still counts
    EXPECT_NEAR(history.smoothed(), -12, 1e-3);
    frame(0.05f);
    EXPECT_EQ(history.latest(), 0);
    EXPECT_NEAR(history.smoothed(), held * std::exp(-30.003 * 0.05 / 5), 1e-3);
    for (int i = 0; i < 19; ++i)
        frame(0.05f);
    EXPECT_NEAR(history.smoothed(), held * std::exp(-30.003 / 5), 1e-3);
}

TEST_F(QVMGRHistoryTest, ScrollsAWholeWidthInOneAndAHalfSecondsAtAnyFrameRate) {
    for (const int rate : {30, 60, 144}) {
        SetUp();
        hold(-12, rate / 2, 1.0f / static_cast<float>(rate)); // half a second
        const auto moved = std::find(history.history().begin(), history.history().end(), 0.0f);
        EXPECT_NEAR(static_cast<double>(moved - history.history().begin()), 50, 1) << rate;
    }
}

TEST_F(QVMGRHistoryTest, NewPointsRunStraightToTheNewestOneThereWas) {
    hold(-12, 60, 0.01f); // a point each
    const float before = history.history()[0];
    history.processAudio(-6, true);
    frame(0.04f); // four points
    const float newest = history.smoothed();
    for (int j = 0; j <= 4; ++j)
        EXPECT_NEAR(history.history()[j], newest + (before - newest) * static_cast<float>(j) / 4, 1e-4) << j;
}

TEST_F(QVMGRHistoryTest, AFrameLongerThanTheWidthRefillsItWithARampFromTheNewestValue) {
    hold(-12, 120);
    const float before = history.history()[0];
    history.processAudio(-3, true);
    history.prepareForDrawing(2); // the clock stands still: the value is fresh
    const float newest = history.smoothed();
    EXPECT_NEAR(newest, -3, 1e-3);
    for (int j = 0; j < 150; ++j)
        EXPECT_NEAR(history.history()[j], newest + (before - newest) * static_cast<float>(j) / 150, 1e-4) << j;
}

TEST_F(QVMGRHistoryTest, TimeThatRunsBackwardsStartsAnew) {
    hold(-12, 60);
    history.prepareForDrawing(-1);
    EXPECT_EQ(history.smoothed(), 0);
    for (const float value : history.history())
        EXPECT_EQ(value, 0);
    EXPECT_EQ(history.prepareForDrawing(NAN), Redraw::no);
    EXPECT_EQ(history.smoothed(), 0);
}

TEST_F(QVMGRHistoryTest, ValuesAreClampedToTheScaleOnlyWhenAsked) {
    history.processAudio(-40, true);
    EXPECT_EQ(history.latest(), -24);
    history.processAudio(5, true);
    EXPECT_EQ(history.latest(), 0);
    history.processAudio(-40, false);
    EXPECT_EQ(history.latest(), -40);
}

TEST_F(QVMGRHistoryTest, AutoRangeKeepsTheBottomBetweenMinus48AndMinus12) {
    history.init(displayCanvas(150, 60), {-24, 0}, true, false);
    float before = history.range().min;
    for (int i = 0; i < 1200; ++i) {
        hold(0, 1);
        EXPECT_LE(history.range().min, -12);
        EXPECT_GE(history.range().min, before);
        before = history.range().min;
    }
    EXPECT_EQ(before, -12);
    for (int i = 0; i < 1200; ++i) {
        history.processAudio(-200, false);
        frame(kFrame);
        EXPECT_GE(history.range().min, -48);
        EXPECT_LE(history.range().min, before);
        before = history.range().min;
    }
    EXPECT_EQ(before, -48);
    EXPECT_EQ(history.range().max, 0);
}

TEST_F(QVMGRHistoryTest, AutoRangeGoesThreeDecibelsBelowTheLowestValue) {
    history.init(displayCanvas(150, 60), {-24, 0}, true, false);
    for (int i = 0; i < 1200; ++i) {
        history.processAudio(-20, false);
        frame(kFrame);
    }
    EXPECT_NEAR(history.range().min, -23, 0.01);
}

TEST_F(QVMGRHistoryTest, AValueHoldsForATenthOfASecond) {
    hold(-12, 60);
    history.processAudio(-12, true);
    now += 0.0999;
    history.prepareForDrawing(0.001f);
    EXPECT_EQ(history.latest(), -12);
    now += 0.0002;
    history.prepareForDrawing(0.001f);
    EXPECT_EQ(history.latest(), 0);
}

// What it is follows it at once, whatever came before.
TEST_F(QVMGRHistoryTest, WhatIsNoNumberCountsForNothing) {
    hold(-12, 60);
    for (const bool clamp : {true, false}) {
        for (const float bad : {NAN, INFINITY, -INFINITY}) {
            history.processAudio(bad, clamp);
            frame(kFrame);
            EXPECT_TRUE(std::isfinite(history.smoothed()));
            hold(-12, 60);
            EXPECT_NEAR(history.smoothed(), -12, 1e-3) << bad;
            for (const float value : history.history())
                ASSERT_TRUE(std::isfinite(value)) << bad;
            for (const float y : history.ys())
                ASSERT_TRUE(std::isfinite(y)) << bad;
        }
    }
    history.processAudio(-INFINITY, true);
    EXPECT_EQ(history.latest(), -24) << "within the scale it is one";
    history.processAudio(NAN, true);
    EXPECT_EQ(history.latest(), -24);
}

TEST_F(QVMGRHistoryTest, AutoRangeOutlivesTimeThatRunsBackwards) {
    history.init(displayCanvas(150, 60), {-24, 0}, true, false);
    for (const float dt : {-1000.0f, -1e30f, 1e30f, INFINITY, NAN, kFrame}) {
        history.prepareForDrawing(dt);
        EXPECT_GE(history.range().min, -48) << dt;
        EXPECT_LE(history.range().min, -12) << dt;
        for (const float value : history.history())
            ASSERT_EQ(value, 0) << dt;
    }
}

TEST_F(QVMGRHistoryTest, ARangeThatIsNoneIsReplaced) {
    const float nan = NAN, infinity = INFINITY;
    for (const QVMFloat32Range range :
         {QVMFloat32Range{nan, 0}, {-24, nan}, {-infinity, 0}, {-24, infinity}, {0, -24}, {-6, -6}}) {
        history.init(displayCanvas(150, 60), range, false, false);
        EXPECT_EQ(history.range(), (QVMFloat32Range{-12, 0})) << range.min << " to " << range.max;
    }
}

TEST(HostClock, RunsForwards) {
    const double first = hostClockSeconds();
    EXPECT_GE(hostClockSeconds(), first);
}

} // namespace
} // namespace QVM_NAMESPACE
