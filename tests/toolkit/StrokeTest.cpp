#include "toolkit/Stroke.h"

#include "toolkit/Conversions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::FloatEq;
using ::testing::Pair;

juce::Path line(float length) {
    juce::Path path;
    path.startNewSubPath(0, 0);
    path.lineTo(length, 0);
    return path;
}

juce::Path square(float side) {
    juce::Path path;
    path.addRectangle(0.0f, 0.0f, side, side);
    return flattened(path);
}

// Where each dash begins and ends along x.
std::vector<std::pair<float, float>> spans(const juce::Path& path) {
    std::vector<std::pair<float, float>> all;
    for (juce::Path::Iterator i(path); i.next();) {
        if (i.elementType == juce::Path::Iterator::startNewSubPath) {
            all.emplace_back(i.x1, i.x1);
        } else {
            all.back().second = i.x1;
        }
    }
    return all;
}

int figures(const juce::Path& path) {
    return static_cast<int>(spans(path).size());
}

TEST(Dashes, AreCutAlongALine) {
    EXPECT_THAT(spans(dashed(line(12), {3, 2}, 0)), ElementsAre(Pair(0, 3), Pair(5, 8), Pair(10, 12)));
}

TEST(Dashes, PhaseSaysHowFarIntoThePatternTheLineStarts) {
    EXPECT_THAT(spans(dashed(line(10), {3, 2}, 1)), ElementsAre(Pair(0, 2), Pair(4, 7), Pair(9, 10)));
    EXPECT_THAT(spans(dashed(line(10), {3, 2}, 4)), ElementsAre(Pair(1, 4), Pair(6, 9)));
    EXPECT_THAT(spans(dashed(line(10), {3, 2}, -1)), ElementsAre(Pair(1, 4), Pair(6, 9)));
    EXPECT_EQ(spans(dashed(line(10), {3, 2}, 3.5 + 5 * 7)), spans(dashed(line(10), {3, 2}, 3.5)));
}

TEST(Dashes, OddPatternSwapsOnAndOff) {
    EXPECT_THAT(spans(dashed(line(12), {4}, 0)), ElementsAre(Pair(0, 4), Pair(8, 12)));
    EXPECT_THAT(spans(dashed(line(12), {4}, 4)), ElementsAre(Pair(4, 8)));
}

TEST(Dashes, RunAcrossTheStartOfAClosedFigure) {
    // 40 around: 8 dashes of 3 fit exactly; half a dash in, one of them lies across the start.
    EXPECT_EQ(figures(dashed(square(10), {3, 2}, 0)), 8);
    EXPECT_EQ(figures(dashed(square(10), {3, 2}, 1.5)), 8);
}

TEST(Dashes, EachFigureStartsAnew) {
    juce::Path two = line(4);
    two.startNewSubPath(100, 0);
    two.lineTo(104, 0);
    EXPECT_THAT(spans(dashed(two, {3, 2}, 0)), ElementsAre(Pair(0, 3), Pair(100, 103)));
}

TEST(Dashes, UselessPatternsLeaveTheLineWhole) {
    EXPECT_EQ(figures(dashed(line(10), {0, 0}, 0)), 1);
    EXPECT_EQ(figures(dashed(line(10), {-3, 2}, 0)), 1);
    EXPECT_EQ(figures(dashed(line(10), {3, 2}, std::numeric_limits<double>::infinity())), 1);
}

TEST(StrokeOutline, IsAsWideAsTheLineInPixels) {
    ShapeLayer layer;
    layer.setLineWidth(2);
    const juce::Rectangle<float> box = strokeOutline(line(10), layer, 0, 1.5).getBounds();
    EXPECT_THAT(box.getHeight(), FloatEq(3));
    EXPECT_THAT(box.getWidth(), FloatEq(10)); // butt ends
}

TEST(StrokeOutline, EndsReachOutAsTheirStyleSays) {
    ShapeLayer layer;
    layer.setLineWidth(4);
    layer.setLineStyle(LineCap::square, LineJoin::round);
    EXPECT_THAT(strokeOutline(line(10), layer, 0, 1).getBounds().getWidth(), FloatEq(14));
    layer.setLineStyle(LineCap::round, LineJoin::round);
    EXPECT_NEAR(strokeOutline(line(10), layer, 0, 1).getBounds().getWidth(), 14, 0.2);
}

TEST(StrokeOutline, DashLengthsAreInPoints) {
    ShapeLayer layer;
    layer.setLineDashPattern({3, 2});
    EXPECT_EQ(strokeOutline(line(20), layer, 0, 2).getBounds().getWidth(), 16); // 0 to 6, 10 to 16, and then a gap
}

} // namespace
} // namespace QVM_NAMESPACE
