#include "platform/renderer/RasterCache.h"

#include "platform/renderer/FakePixels.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

struct RasterCacheTest : testing::Test {
    FakeBackend backend;
    RasterCache cache{backend};
    std::shared_ptr<ShapeLayer> layer = std::make_shared<ShapeLayer>();
    RasterCacheTest() {
        layer->setFrame({0, 0, 10, 8});
        layer->setPath(Path::rect({1.25, -0.5, 4, 4}));
    }
    // Whether looking the layer up had to rasterise it.
    bool rasterises() {
        const PresentedLayer p = layer->presentation(0);
        return cache.rasterise(cache.find(*layer, p), *layer, p);
    }
    const RasterCache::Entry& entry() { return cache.find(*layer, layer->presentation(0)); }
};

TEST_F(RasterCacheTest, RasterisesOnceUntilTheLookChanges) {
    EXPECT_TRUE(rasterises());
    EXPECT_FALSE(rasterises());
    layer->setPosition({50, 50});
    layer->setOpacity(0.5);
    layer->setTransform(AffineTransform::scale(2, 2));
    EXPECT_FALSE(rasterises());
    layer->setFillColor(Color::white(1));
    EXPECT_TRUE(rasterises());
    layer->setBounds({0, 0, 12, 8});
    EXPECT_TRUE(rasterises());
}

TEST_F(RasterCacheTest, PixelsAreWholeAndCoverTheLook) {
    EXPECT_EQ(entry().pixels, (Rect{1, -1, 5, 5}));
    cache.setScale(2);
    EXPECT_EQ(entry().pixels, (Rect{2, -1, 9, 8}));
}

TEST_F(RasterCacheTest, InAYUpLayerThePixelsCountFromItsTop) {
    layer = std::make_shared<ShapeLayer>(YAxis::up);
    layer->setFrame({0, 0, 10, 8});
    layer->setPath(Path::rect({0, 0, 10, 3}));
    EXPECT_EQ(entry().pixels, (Rect{0, 5, 10, 3}));
}

TEST_F(RasterCacheTest, AScaleChangeDropsAllPixels) {
    rasterises();
    EXPECT_EQ(backend.alive(), 1);
    cache.setScale(2);
    EXPECT_EQ(backend.alive(), 0);
    EXPECT_TRUE(rasterises());
}

TEST_F(RasterCacheTest, KeepsTheLayersOfOneTree) {
    const auto root = std::make_shared<Layer>();
    root->tree().add(layer);
    rasterises();
    cache.keepOnly(root.get());
    EXPECT_FALSE(rasterises());
    layer->tree().removeFromSuperlayer();
    cache.keepOnly(root.get());
    EXPECT_EQ(backend.alive(), 0);
    root->tree().add(layer);
    rasterises();
    cache.keepOnly(nullptr);
    EXPECT_EQ(backend.alive(), 0);
}

TEST_F(RasterCacheTest, AStrayCoordinateDoesNotAskForGigabytes) {
    layer->setPath(Path::rect({-1e9, -1e9, 2e9, 2e9}));
    EXPECT_LE(entry().pixels.width, 16384);
    layer->setPath(Path::rect({NAN, 0, 10, 10}));
    EXPECT_TRUE(entry().pixels.isEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
