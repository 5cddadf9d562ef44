// What the history draws: the heights of its line, its area and its grid, and when it asks to be drawn.
#include "GRHistoryFixture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using QVMGRHistoryLookTest = GRHistoryFixture;

TEST_F(QVMGRHistoryLookTest, HeightsLeaveAPixelsMargin) {
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

TEST_F(QVMGRHistoryLookTest, TheGridHasALineEverySixDecibels) {
    history.init(displayCanvas(150, 60), {-24, 0}, false, false);
    const float margin = 1 - 2.0f / 60;
    EXPECT_THAT(gridHeights(history),
                testing::Pointwise(testing::FloatNear(1e-5f), {-margin, -0.5f * margin, 0.0f, 0.5f * margin, margin}));
}

TEST_F(QVMGRHistoryLookTest, TheGridsLinesOfWholeTwelvesStandOut) {
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
TEST_F(QVMGRHistoryLookTest, TheAreaBetweenTheLineAndRestIsFilledOnce) {
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

TEST_F(QVMGRHistoryLookTest, AGridOfTooManyLinesIsNone) {
    for (const float bottom : {-400.0f, -1e9f, -3e38f}) {
        history.init(displayCanvas(150, 60), {bottom, -bottom}, false, false);
        ASSERT_THAT(gridHeights(history), testing::IsEmpty());
    }
    history.init(displayCanvas(150, 60), {-360, 0}, false, false);
    EXPECT_EQ(gridHeights(history).size(), 61u) << "a point apart";
}

TEST_F(QVMGRHistoryLookTest, IsDrawnAgainWhenItsScaleMovesUnderALineThatStays) {
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
TEST_F(QVMGRHistoryLookTest, OnlyWhatTurnsTheLineByAThousandthIsAPointOfIt) {
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

TEST_F(QVMGRHistoryLookTest, AsksToBeDrawnOnlyWhenItLooksDifferent) {
    EXPECT_EQ(frame(kFrame), Redraw::yes);
    EXPECT_EQ(frame(kFrame), Redraw::no);
    history.processAudio(-6, true);
    frame(kFrame);
    EXPECT_EQ(frame(kFrame), Redraw::yes);
}

// A level line becomes a slope: both are straight, of three points at the same places across.
TEST_F(QVMGRHistoryLookTest, IsDrawnAgainWhenAsManyPointsAreAtOtherHeights) {
    hold(-12, 300);
    ASSERT_EQ(history.prepareForDrawing(0), Redraw::no);
    const std::size_t points = history.keptPoints();
    history.processAudio(-3, true);
    EXPECT_EQ(history.prepareForDrawing(2), Redraw::yes);
    EXPECT_EQ(history.keptPoints(), points);
    EXPECT_GT(history.ys()[0], history.ys()[points - 1] + 0.5f);
}

} // namespace
} // namespace QVM_NAMESPACE
