#include "platform/layer/LayerGeometry.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

// Where a point of the layer's box lands in the box of a superlayer 100 wide and 80 high.
Point inSuper(const Layer& layer, Point box, YAxis superAxis, const Rect& superBounds = {0, 0, 100, 80}) {
    return boxToSuperBox(layer.presentation(0), layer.anchorPoint(), superAxis, superBounds).apply(box);
}

struct LayerGeometryTest : testing::Test {
    Layer layer;
    LayerGeometryTest() { layer.setFrame({10, 20, 30, 40}); }
};

TEST_F(LayerGeometryTest, OwnPointsCountFromTheTopOrTheBottom) {
    const Rect bounds{5, 6, 30, 40};
    EXPECT_EQ(ownToBox(YAxis::down, bounds).apply(Point{5, 6}), (Point{0, 0}));
    EXPECT_EQ(ownToBox(YAxis::up, bounds).apply(Point{5, 46}), (Point{0, 0}));
    EXPECT_EQ(ownToBox(YAxis::up, bounds).apply(Point{6, 6}), (Point{1, 40}));
}

TEST_F(LayerGeometryTest, PositionsCountFromTheSuperlayersTopOrBottom) {
    EXPECT_EQ(inSuper(layer, {0, 0}, YAxis::down), (Point{10, 20}));
    EXPECT_EQ(inSuper(layer, {0, 0}, YAxis::up), (Point{10, 20})); // 80 - 20 - 40
    layer.setFrame({10, 0, 30, 40});
    EXPECT_EQ(inSuper(layer, {0, 0}, YAxis::up), (Point{10, 40}));
    EXPECT_EQ(inSuper(layer, {0, 40}, YAxis::up), (Point{10, 80})); // it stands on the bottom, upright
}

TEST_F(LayerGeometryTest, TheSuperlayersBoundsOriginScrolls) {
    EXPECT_EQ(inSuper(layer, {0, 0}, YAxis::down, {4, 5, 100, 80}), (Point{6, 15}));
    EXPECT_EQ(inSuper(layer, {0, 0}, YAxis::up, {4, 5, 100, 80}), (Point{6, 25}));
}

TEST_F(LayerGeometryTest, UntransformedLayersAreMovedOnly) {
    for (const YAxis axis : {YAxis::down, YAxis::up}) {
        EXPECT_TRUE(boxToSuperBox(layer.presentation(0), {0.5, 0.5}, axis, {1, 2, 33, 44}).isTranslation());
    }
}

TEST_F(LayerGeometryTest, TheTransformIsAboutTheAnchor) {
    layer.setTransform(AffineTransform::scale(2, 2));
    EXPECT_EQ(inSuper(layer, {15, 20}, YAxis::down), (Point{25, 40}));
    EXPECT_EQ(inSuper(layer, {0, 0}, YAxis::down), (Point{-5, 0}));
    layer.setAnchorPoint({0, 0});
    layer.setFrame({10, 20, 30, 40});
    EXPECT_EQ(inSuper(layer, {0, 0}, YAxis::down), (Point{10, 20}));
    EXPECT_EQ(inSuper(layer, {30, 40}, YAxis::down), (Point{70, 100}));
}

TEST_F(LayerGeometryTest, InAYUpSuperlayerTheTransformMovesUp) {
    layer.setTransform(AffineTransform::translation(0, 5));
    EXPECT_EQ(inSuper(layer, {0, 0}, YAxis::down), (Point{10, 25}));
    EXPECT_EQ(inSuper(layer, {0, 0}, YAxis::up), (Point{10, 15}));
}

TEST_F(LayerGeometryTest, GravityPlacesTheContents) {
    auto image = std::make_shared<Image>();
    *image = {20, 10, std::vector<std::uint32_t>(200)};
    const Rect bounds{0, 0, 40, 60};
    EXPECT_EQ(contentsRect(layer, bounds), Rect{});
    layer.look().setContents(image, ContentsGravity::resize);
    EXPECT_EQ(contentsRect(layer, bounds), bounds);
    layer.look().setContents(image, ContentsGravity::resizeAspect);
    EXPECT_EQ(contentsRect(layer, bounds), (Rect{0, 20, 40, 20}));
    layer.look().setContents(image, ContentsGravity::center);
    EXPECT_EQ(contentsRect(layer, bounds), (Rect{10, 25, 20, 10}));
    layer.look().setContentsScale(2);
    EXPECT_EQ(contentsRect(layer, bounds), (Rect{15, 27.5, 10, 5}));
    layer.look().setContents(image, ContentsGravity::topLeft);
    EXPECT_EQ(contentsRect(layer, bounds), (Rect{0, 0, 10, 5}));
    Layer up(YAxis::up);
    up.look().setContents(image, ContentsGravity::topLeft);
    EXPECT_EQ(contentsRect(up, bounds), (Rect{0, 50, 20, 10}));
}

TEST_F(LayerGeometryTest, TouchedPixelsIgnoreTheNoiseOfArithmetic) {
    EXPECT_EQ(touchedPixels({0, 0, 480 * 1.1, 10}), (Rect{0, 0, 528, 10}));
    EXPECT_EQ(touchedPixels({0.25, 0, 1, 1}), (Rect{0, 0, 2, 1}));
}

} // namespace
} // namespace QVM_NAMESPACE
