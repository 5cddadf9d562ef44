#include "geometry/Geometry.h"

#include <gtest/gtest.h>

#include <numbers>

namespace QVM_NAMESPACE {
namespace {

TEST(GeometryTest, MinimumEdgesBelongToARectAndMaximumEdgesDoNot) {
    const Rect r{10, 20, 30, 40};
    EXPECT_TRUE(r.contains(Point{10, 20}));
    EXPECT_FALSE(r.contains(Point{40, 30}));
    EXPECT_FALSE(r.contains(Point{20, 60}));
}

TEST(GeometryTest, RectsThatOnlyTouchDoNotIntersect) {
    EXPECT_FALSE((Rect{0, 0, 10, 10}).intersects({10, 0, 10, 10}));
    EXPECT_TRUE((Rect{0, 0, 10, 10}).intersects({9.5, 9.5, 10, 10}));
    EXPECT_FALSE((Rect{0, 0, 10, 10}).intersects({5, 5, 0, 0}));
    EXPECT_EQ((Rect{0, 0, 10, 10}).intersectionWith({10, 0, 10, 10}), Rect{});
}

TEST(GeometryTest, AnEmptyRectCountsForNothingInAUnion) {
    EXPECT_EQ((Rect{}).unionWith({5, 5, 1, 1}), (Rect{5, 5, 1, 1}));
    EXPECT_EQ((Rect{5, 5, 1, 1}).unionWith({}), (Rect{5, 5, 1, 1}));
    EXPECT_EQ((Rect{0, 0, 1, 1}).unionWith({5, 5, 1, 1}), (Rect{0, 0, 6, 6}));
}

TEST(GeometryTest, IntegralGrowsToWholeNumbers) {
    EXPECT_EQ((Rect{-0.5, 1.2, 2, 2}).integral(), (Rect{-1, 1, 3, 3}));
    EXPECT_EQ((Rect{1, 2, 3, 4}).integral(), (Rect{1, 2, 3, 4}));
}

TEST(GeometryTest, ThenAppliesTheFirstTransformFirst) {
    const AffineTransform t = AffineTransform::scale(2, 3).then(AffineTransform::translation(10, 20));
    EXPECT_EQ(t.apply(Point{1, 1}), (Point{12, 23}));
}

TEST(GeometryTest, AnInverseUndoesItsTransform) {
    const AffineTransform t =
        AffineTransform::rotation(0.7).then(AffineTransform::scale(2, -3)).then(AffineTransform::translation(5, 6));
    const Point back = t.inverted().apply(t.apply(Point{3, -4}));
    EXPECT_NEAR(back.x, 3, 1e-12);
    EXPECT_NEAR(back.y, -4, 1e-12);
    EXPECT_TRUE(AffineTransform::scale(0, 1).inverted().isIdentity());
}

TEST(GeometryTest, ATransformedRectIsTheBoxOfItsCorners) {
    const Rect turned = AffineTransform::rotation(std::numbers::pi / 2).apply(Rect{1, 2, 3, 4});
    EXPECT_NEAR(turned.x, -6, 1e-12);
    EXPECT_NEAR(turned.y, 1, 1e-12);
    EXPECT_NEAR(turned.width, 4, 1e-12);
    EXPECT_NEAR(turned.height, 3, 1e-12);
}

} // namespace
} // namespace QVM_NAMESPACE
