#include "platform/layer/Path.h"

#include <gtest/gtest.h>

#include <numbers>

namespace QVM_NAMESPACE {
namespace {

using Verb = Path::Verb;

Point onCubic(Point from, const Path::Element& e, double t) {
    const double u = 1 - t;
    return from * (u * u * u) + e.p1 * (3 * u * u * t) + e.p2 * (3 * u * t * t) + e.end * (t * t * t);
}

double distance(Point a, Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

TEST(PathTest, BuildsElementsInOrder) {
    const Path path = Path{}.moveTo({1, 2}).lineTo({3, 4}).cubicTo({1, 1}, {2, 2}, {9, 9}).close();
    ASSERT_EQ(path.elements().size(), 4u);
    EXPECT_EQ(path.elements()[1], (Path::Element{Verb::line, {}, {}, {3, 4}}));
    EXPECT_EQ(path.elements()[2], (Path::Element{Verb::cubic, {1, 1}, {2, 2}, {9, 9}}));
    EXPECT_EQ(path.elements()[3].verb, Verb::close);
    EXPECT_EQ(path.bounds(), (Rect{1, 1, 8, 8}));
}

TEST(PathTest, AnEmptyPathHasEmptyBounds) {
    EXPECT_TRUE(Path{}.isEmpty());
    EXPECT_EQ(Path{}.bounds(), Rect{});
    EXPECT_EQ(Path{}.close().bounds(), Rect{});
}

TEST(PathTest, ARoundedRectStartsBehindItsFirstCornerAndCloses) {
    const Path path = Path::roundedRect({10, 20, 40, 30}, 5);
    ASSERT_EQ(path.elements().size(), 10u); // move, four lines and arcs, close
    EXPECT_EQ(path.elements().front(), (Path::Element{Verb::move, {}, {}, {15, 20}}));
    EXPECT_EQ(path.elements()[1].end, (Point{45, 20}));
    EXPECT_EQ(path.elements()[8].end, (Point{15, 20}));
    EXPECT_EQ(path.elements().back().verb, Verb::close);
    EXPECT_EQ(path.bounds(), (Rect{10, 20, 40, 30}));
}

TEST(PathTest, ItsCornersAreCircularWithinAThousandthOfTheRadius) {
    const Path path = Path::roundedRect({0, 0, 100, 80}, 10);
    const Point centres[] = {{90, 10}, {90, 70}, {10, 70}, {10, 10}};
    for (std::size_t corner = 0; corner < 4; ++corner) {
        const auto& arc = path.elements()[2 + 2 * corner];
        ASSERT_EQ(arc.verb, Verb::cubic);
        const Point start = path.elements()[1 + 2 * corner].end;
        for (double t = 0; t <= 1; t += 0.05)
            EXPECT_NEAR(distance(onCubic(start, arc, t), centres[corner]), 10, 0.003);
    }
}

TEST(PathTest, TheRadiusIsLimitedToHalfTheShorterSide) {
    EXPECT_EQ(Path::roundedRect({0, 0, 40, 10}, 99), Path::roundedRect({0, 0, 40, 10}, 5));
    EXPECT_EQ(Path::roundedRect({0, 0, 40, 10}, 0), Path::rect({0, 0, 40, 10}));
    EXPECT_EQ(Path::roundedRect({0, 0, 40, 10}, -1), Path::rect({0, 0, 40, 10}));
}

TEST(PathTest, AWholeArcIsACircle) {
    const Path path = Path{}.addArc({10, 20}, 30, 0, 2 * std::numbers::pi);
    Point from = path.elements().front().end;
    EXPECT_EQ(from, (Point{40, 20}));
    for (const auto& e : path.elements()) {
        if (e.verb != Verb::cubic) continue;
        for (double t = 0; t <= 1; t += 0.1)
            EXPECT_NEAR(distance(onCubic(from, e, t), {10, 20}), 30, 0.01);
        from = e.end;
    }
    EXPECT_NEAR(distance(from, {40, 20}), 0, 1e-9);
}

TEST(PathTest, AnArcIsJoinedByALine) {
    Path path;
    path.moveTo({0, 0}).addArc({10, 0}, 5, 0, 1.5 * std::numbers::pi);
    ASSERT_EQ(path.elements().size(), 5u);
    EXPECT_EQ(path.elements()[1], (Path::Element{Verb::line, {}, {}, {15, 0}}));
    EXPECT_NEAR(path.elements().back().end.x, 10, 1e-9);
    EXPECT_NEAR(path.elements().back().end.y, -5, 1e-9);
    EXPECT_EQ(Path{}.addArc({10, 0}, 5, 0, 1).elements().front().verb, Verb::move);
}

TEST(PathTest, AnArcMayRunBackwards) {
    const Path path = Path{}.addArc({0, 0}, 1, 0, -std::numbers::pi / 2);
    EXPECT_NEAR(path.elements().back().end.y, -1, 1e-9);
    const Point middle = onCubic({1, 0}, path.elements().back(), 0.5);
    EXPECT_LT(middle.y, 0);
    EXPECT_NEAR(std::hypot(middle.x, middle.y), 1, 0.0003);
}

TEST(PathTest, TransformMovesEveryPointThatCounts) {
    const Path path = Path{}.moveTo({1, 1}).cubicTo({2, 0}, {3, 0}, {4, 1}).close();
    const Path moved = path.transformed(AffineTransform::scale(2, 3).then(AffineTransform::translation(10, 0)));
    EXPECT_EQ(moved, Path{}.moveTo({12, 3}).cubicTo({14, 0}, {16, 0}, {18, 3}).close());
}

TEST(PathTest, AddingAPathToItselfDoublesIt) {
    Path path = Path::rect({0, 0, 1, 1});
    path.addPath(path);
    EXPECT_EQ(path.elements().size(), 10u);
}

} // namespace
} // namespace QVM_NAMESPACE
