#include "platform/surface/StrokeGeometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace QVM_NAMESPACE {
namespace {

std::vector<StrokeSegment> stroke(const std::vector<Vertex>& points, const StrokeMeasure& measure,
                                  const std::vector<Color>& colors = {Color::white(1)}) {
    std::vector<StrokeSegment> segments;
    appendStroke(segments, points, colors, measure);
    return segments;
}

TEST(StrokeGeometryTest, OnlyTheEndsOfTheStripAreCutOff) {
    const auto s = stroke({{0, 0}, {10, 0}, {10, 5}, {0, 5}}, {1});
    ASSERT_EQ(s.size(), 3u);
    EXPECT_TRUE(s[0].isCutAtFrom);
    EXPECT_FALSE(s[0].isCutAtTo);
    EXPECT_FALSE(s[1].isCutAtFrom || s[1].isCutAtTo);
    EXPECT_FALSE(s[2].isCutAtFrom);
    EXPECT_TRUE(s[2].isCutAtTo);
}

TEST(StrokeGeometryTest, DashesGoRoundCornersAndAreCutAtBothEnds) {
    const auto s = stroke({{0, 0}, {5, 0}, {5, 7}}, {1, 4, 2}); // 0..4, 6..10 along 12
    ASSERT_EQ(s.size(), 2u);
    EXPECT_EQ(s[0].to, (Vertex{4, 0}));
    EXPECT_TRUE(s[0].isCutAtTo);
    EXPECT_EQ(s[1].from, (Vertex{5, 1}));
    EXPECT_EQ(s[1].to, (Vertex{5, 5}));
    EXPECT_TRUE(s[1].isCutAtFrom && s[1].isCutAtTo);
    const auto bent = stroke({{0, 0}, {3, 0}, {3, 7}}, {1, 4, 2});
    ASSERT_EQ(bent.size(), 3u);
    EXPECT_FALSE(bent[0].isCutAtTo);
    EXPECT_FALSE(bent[1].isCutAtFrom);
    EXPECT_EQ(bent[1].to, (Vertex{3, 1}));
    EXPECT_TRUE(bent[1].isCutAtTo);
}

TEST(StrokeGeometryTest, LastDashEndsWithTheStrip) {
    const auto s = stroke({{0, 0}, {8, 0}}, {1, 4, 2});
    ASSERT_EQ(s.size(), 2u);
    EXPECT_EQ(s[1].to, (Vertex{8, 0}));
    EXPECT_TRUE(s[1].isCutAtTo);
}

TEST(StrokeGeometryTest, ColourIsThatOfThePlaceOnTheStrip) {
    const auto s = stroke({{0, 0}, {10, 0}}, {1, 5, 5}, {{0, 0, 0, 1}, {1, 0, 0, 1}});
    ASSERT_EQ(s.size(), 1u);
    EXPECT_FLOAT_EQ(s[0].toColor.r, 0.5f);
}

TEST(StrokeGeometryTest, RepeatedPointsMakeNoSegment) {
    const auto s = stroke({{0, 0}, {0, 0}, {4, 0}, {4, 0}, {8, 0}}, {1});
    ASSERT_EQ(s.size(), 2u);
    EXPECT_EQ(s[1].from, (Vertex{4, 0}));
    EXPECT_TRUE(s[1].isCutAtTo);
}

TEST(StrokeGeometryTest, PointThatIsNotFiniteInterruptsTheStrip) {
    const auto s = stroke({{0, 0}, {4, 0}, {std::numeric_limits<float>::quiet_NaN(), 0}, {6, 0}, {9, 0}}, {1});
    ASSERT_EQ(s.size(), 2u);
    EXPECT_TRUE(s[0].isCutAtTo);
    EXPECT_TRUE(s[1].isCutAtFrom);
}

TEST(StrokeGeometryTest, EndlessNumbersOfDashesAreDrawnSolid) {
    EXPECT_EQ(stroke({{0, 0}, {100, 0}}, {1, 1e-4f, 1e-4f}).size(), 1u);
    EXPECT_EQ(stroke({{0, 0}, {1e9f, 0}}, {1, 4, 2}).size(), 1u);
}

} // namespace
} // namespace QVM_NAMESPACE
