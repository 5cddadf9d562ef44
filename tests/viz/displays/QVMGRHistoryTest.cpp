#include "viz/displays/QVMGRHistory.h"

#include "viz/analysis/StereoSignals.h"
#include "viz/sketches/RecordingSurface.h"

#include <gmock/gmock.h>

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

// The heights of the grid's lines, from the bottom, -1 to +1.
std::vector<float> gridHeights(const QVMGRHistory& history) {
    RecordingSurface surface;
    surface.begin({150, 60}, 1);
    history.drawBackground(surface);
    std::vector<float> heights;
    for (const RecordingSurface::Shape& shape : surface.shapes)
        heights.push_back(1 - shape.line.front().from.y / 30);
    return heights;
}

TEST_F(QVMGRHistoryTest, TheGridHasALineEverySixDecibels) {
    history.init(displayCanvas(150, 60), {-24, 0}, false, false);
    const float margin = 1 - 2.0f / 60;
    EXPECT_THAT(gridHeights(history),
                testing::Pointwise(testing::FloatNear(1e-5f), {-margin, -0.5f * margin, 0.0f, 0.5f * margin, margin}));
}

TEST_F(QVMGRHistoryTest, TheGridsLinesOfWholeTwelvesStandOut) {
    history.init(displayCanvas(150, 60), {-24, 12}, false, false);
    RecordingSurface surface;
    surface.begin({150, 60}, 1);
    history.drawBackground(surface);
    ASSERT_EQ(surface.shapes.size(), 7u); // from -24
    for (std::size_t i = 0; i < 6; i += 2) {
        EXPECT_GT(surface.shapes[i].color().a, 1.5f * surface.shapes[i + 1].color().a) << i;
        EXPECT_EQ(surface.shapes[i].color().a, surface.shapes[i + 2].color().a) << i;
    }
}

// Where its triangles lay over each other the area would look darker.
TEST_F(QVMGRHistoryTest, TheAreaBetweenTheLineAndRestIsFilledOnce) {
    for (const float level : {-12.0f, 6.0f}) {
        history.init(displayCanvas(150, 60), {-24, 12}, false, false);
        hold(level, 300);
        RecordingSurface surface;
        surface.begin({150, 60}, 1);
        history.glDraw(surface);
        ASSERT_EQ(surface.shapes.size(), 2u) << "the area and the line";
        double area = 0;
        for (const FilledTriangle& triangle : surface.shapes[0].triangles) {
            const auto& [a, b, c] = triangle.corners;
            area += std::abs(double{b.x - a.x} * double{c.y - a.y} - double{c.x - a.x} * double{b.y - a.y}) / 2;
        }
        const double high = std::abs(double{level}) / 36 * (60 - 2); // a pixel's margin above and below
        EXPECT_NEAR(area, 150 * high, 0.01 * 150 * high) << level;
    }
}

TEST_F(QVMGRHistoryTest, AGridOfTooManyLinesIsNone) {
    for (const float bottom : {-400.0f, -1e9f, -3e38f}) {
        history.init(displayCanvas(150, 60), {bottom, -bottom}, false, false);
        ASSERT_THAT(gridHeights(history), testing::IsEmpty());
    }
    history.init(displayCanvas(150, 60), {-360, 0}, false, false);
    EXPECT_EQ(gridHeights(history).size(), 61u) << "a point apart";
}

TEST_F(QVMGRHistoryTest, IsDrawnAgainWhenItsScaleMovesUnderALineThatStays) {
    history.init(displayCanvas(150, 60, 2), {-24, 0}, true, false);
    EXPECT_EQ(frame(kFrame), Redraw::yes);
    std::vector<float> drawn = gridHeights(history);
    int pictures = 0;
    for (int i = 0; i < 1200; ++i) {
        if (frame(kFrame) == Redraw::yes) {
            ++pictures;
            drawn = gridHeights(history);
        }
        const std::vector<float> present = gridHeights(history);
        ASSERT_EQ(drawn.size(), present.size());
        for (std::size_t k = 0; k < present.size(); ++k)
            ASSERT_NEAR(drawn[k], present[k], 2.0 / 120 / 15) << "a fifteenth of a pixel, frame " << i;
    }
    EXPECT_GT(pictures, 100);
    EXPECT_EQ(history.range().min, -12);
    for (int i = 0; i < 60; ++i)
        EXPECT_EQ(frame(kFrame), Redraw::no);
}

// The newest point is moved so far that the one after next turns the line by a little more, or less, than what counts.
TEST_F(QVMGRHistoryTest, OnlyWhatTurnsTheLineByAThousandthIsAPointOfIt) {
    const double step = 2.0 / 149, turn = 0.001 / 150 / step;
    const double decibels = turn / (2.0 / 24 * (1 - 2.0 / 120));
    for (const double share : {0.97, 1.03}) {
        SetUp();
        hold(-12, 3000, 0.01f); // a point each
        const double taken = 1 - std::exp(-30.003 * 0.01);
        hold(static_cast<float>(-12 + share * decibels / taken), 1, 0.01f);
        EXPECT_NEAR(history.xs()[2], -1 + (share < 1 ? 3 : 2) * step, 1e-5) << share;
    }
}

TEST_F(QVMGRHistoryTest, AsksToBeDrawnOnlyWhenItLooksDifferent) {
    EXPECT_EQ(frame(kFrame), Redraw::yes);
    EXPECT_EQ(frame(kFrame), Redraw::no);
    history.processAudio(-6, true);
    frame(kFrame);
    EXPECT_EQ(frame(kFrame), Redraw::yes);
}

// A level line becomes a slope: both are straight, of three points at the same places across.
TEST_F(QVMGRHistoryTest, IsDrawnAgainWhenAsManyPointsAreAtOtherHeights) {
    hold(-12, 300);
    ASSERT_EQ(history.prepareForDrawing(0), Redraw::no);
    const std::size_t points = history.keptPoints();
    history.processAudio(-3, true);
    EXPECT_EQ(history.prepareForDrawing(2), Redraw::yes);
    EXPECT_EQ(history.keptPoints(), points);
    EXPECT_GT(history.ys()[0], history.ys()[points - 1] + 0.5f);
}

TEST(HostClock, RunsForwards) {
    const double first = hostClockSeconds();
    EXPECT_GE(hostClockSeconds(), first);
}

} // namespace
} // namespace QVM_NAMESPACE
