#include "viz/QVMGRHistory.h"

#include "StereoSignals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {
namespace {

double now = 0;

class QVMGRHistoryTest : public testing::Test {
protected:
    void SetUp() override {
        now = 100;
        history.init(displayCanvas(150, 60, 2), {-24, 0}, false, true);
    }
    Redraw frame(float dt) {
        now += double{dt};
        return history.prepareForDrawing(dt);
    }
    // Frames during which the audio side keeps on giving the value.
    void hold(float value, int frames, float dt = kFrame) {
        for (int i = 0; i < frames; ++i) {
            history.processAudio(value, true);
            frame(dt);
        }
    }
    QVMGRHistory history{[] { return now; }};
};

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

TEST_F(QVMGRHistoryTest, HeightsLeaveAPixelsMargin) {
    hold(-24, 300);
    const float margin = 1 - 2.0f / 120;
    for (const float y : history.ys())
        EXPECT_NEAR(y, -margin, 1e-3);
    EXPECT_EQ(history.keptPoints(), 3u) << "a straight line";
    EXPECT_EQ(history.xs()[0], -1);
    EXPECT_EQ(history.xs()[2], 1);
    for (int i = 0; i < 3000; ++i)
        frame(kFrame);
    EXPECT_NEAR(history.ys()[0], margin, 1e-3);
}

TEST_F(QVMGRHistoryTest, AsksToBeDrawnOnlyWhenItLooksDifferent) {
    EXPECT_EQ(frame(kFrame), Redraw::yes);
    EXPECT_EQ(frame(kFrame), Redraw::no);
    history.processAudio(-6, true);
    frame(kFrame);
    EXPECT_EQ(frame(kFrame), Redraw::yes);
}

TEST(HostClock, RunsForwards) {
    const double first = hostClockSeconds();
    EXPECT_GE(hostClockSeconds(), first);
}

} // namespace
} // namespace QVM_NAMESPACE
