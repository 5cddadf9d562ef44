#include "platform/layer/GLLayer.h"

#include "platform/renderer/FakePixels.h"
#include "platform/surface/CpuDrawingSurface.h"
#include "platform/system/Log.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

// One point, at first the lower left one, is `color`, the rest transparent.
class CornerLayer : public GLLayer {
public:
    using GLLayer::GLLayer;
    Color color = Color::white(1);
    float left = 0;
    mutable int drawn = 0;

protected:
    void draw(DrawingSurface& surface) const override {
        ++drawn;
        surface.fillTriangles(std::vector<Vertex>{{left, 0}, {left + 1, 0}, {left, 1}, {left + 1, 1}},
                              TriangleMode::strip, color);
    }
    std::unique_ptr<DrawingSurface> makeSurface() const override { return std::make_unique<CpuDrawingSurface>(); }
};

struct GLLayerTest : testing::Test {
    FakeBackend backend;
    LayerRenderer renderer{backend};
    std::shared_ptr<Layer> root = std::make_shared<Layer>();
    std::shared_ptr<CornerLayer> layer = std::make_shared<CornerLayer>();

    GLLayerTest() {
        root->setFrame({0, 0, 20, 20});
        layer->setFrame({2, 3, 4, 5});
        root->tree().add(layer);
        renderer.setRootLayer(root);
    }
};

TEST_F(GLLayerTest, NothingIsDrawnUntilSomebodyLooks) {
    EXPECT_EQ(layer->drawn, 0);
    renderer.update(0);
    EXPECT_EQ(layer->drawn, 1);
    EXPECT_EQ(layer->contents()->width, 4);
    EXPECT_EQ(layer->contents()->height, 5);
}

TEST_F(GLLayerTest, IdleFrameDrawsNothing) {
    renderer.update(0);
    const RenderStatistics& idle = renderer.update(1);
    EXPECT_THAT(idle.rasterised, IsEmpty());
    EXPECT_THAT(idle.damage, IsEmpty());
    EXPECT_EQ(layer->drawn, 1);
}

TEST_F(GLLayerTest, AnyNumberOfRequestsMakeOnePicture) {
    renderer.update(0);
    for (int i = 0; i < 5; ++i)
        layer->look().setNeedsDisplay();
    const RenderStatistics& frame = renderer.update(1);
    EXPECT_THAT(frame.rasterised, ElementsAre("GLLayer"));
    EXPECT_EQ(layer->drawn, 2);
}

TEST_F(GLLayerTest, DamageIsWhatWasPaintedAndIsPainted) {
    renderer.update(0);
    layer->left = 2;
    layer->look().setNeedsDisplay();
    EXPECT_THAT(renderer.update(1).damage, UnorderedElementsAre(Rect{2, 7, 1, 1}, Rect{4, 7, 1, 1}));
    layer->left = 9; // beyond the layer
    layer->look().setNeedsDisplay();
    EXPECT_THAT(renderer.update(2).damage, ElementsAre(Rect{4, 7, 1, 1}));
}

TEST_F(GLLayerTest, LookIsWhatIsPaintedWhicheverWayIsUp) {
    for (const YAxis axis : {YAxis::down, YAxis::up}) {
        CornerLayer corner(axis);
        corner.look().setContentsScale(2);
        corner.setFrame({0, 0, 4, 5});
        const Rect look = corner.lookBounds(corner.presentation(0));
        EXPECT_EQ(look, (Rect{0, axis == YAxis::down ? 4.0 : 0.0, 1, 1}));
        corner.look().setBackgroundColor(Color::white(1));
        EXPECT_EQ(corner.lookBounds(corner.presentation(0)), (Rect{0, 0, 4, 5}));
    }
}

TEST_F(GLLayerTest, HiddenLayerIsNotDrawn) {
    layer->setHidden(true);
    renderer.update(0);
    layer->look().setNeedsDisplay();
    renderer.update(1);
    EXPECT_EQ(layer->drawn, 0);
    layer->setHidden(false);
    layer->setOpacity(0);
    renderer.update(2);
    EXPECT_EQ(layer->drawn, 0);
    layer->setOpacity(1);
    renderer.update(3);
    EXPECT_EQ(layer->drawn, 1);
}

TEST_F(GLLayerTest, PictureHasThePixelsOfTheContentsScale) {
    layer->look().setContentsScale(2);
    EXPECT_EQ(layer->contents()->width, 8);
    EXPECT_EQ(layer->contents()->height, 10);
    EXPECT_EQ(layer->contents()->pixels[9 * 8 + 1], 0xFFFFFFFFu);
    EXPECT_EQ(layer->contents()->pixels[9 * 8 + 2], 0u);
    EXPECT_EQ(layer->contents()->pixels[7 * 8], 0u);
    layer->setFrame({0, 0, 3, 3});
    EXPECT_EQ(layer->contents()->width, 6);
    EXPECT_EQ(layer->drawn, 2);
}

TEST_F(GLLayerTest, PictureThatSomebodyHoldsIsNotDrawnOver) {
    const auto held = layer->contents();
    layer->color = {1, 0, 0, 1};
    layer->look().setNeedsDisplay();
    EXPECT_EQ(layer->contents()->pixels[16], 0xFFFF0000u);
    EXPECT_EQ(held->pixels[16], 0xFFFFFFFFu);
}

TEST_F(GLLayerTest, LayerWithoutSizeHasNoLook) {
    layer->setFrame({0, 0, 0, 5});
    renderer.update(0);
    EXPECT_EQ(layer->drawn, 0);
}

// Breaks down at every picture.
class BrokenSurface final : public DrawingSurface {
public:
    bool finish(Image&) override { return false; }

protected:
    void clearPixels() override {}
    void strokeSegments(std::span<const StrokeSegment>) override {}
    void fillPixels(std::span<const FilledTriangle>) override {}
};

class UnluckyLayer final : public CornerLayer {
protected:
    std::unique_ptr<DrawingSurface> makeSurface() const override { return std::make_unique<BrokenSurface>(); }
};

TEST(GLLayerDeathTest, SurfaceThatBreaksDownIsReplacedWithOneLogLine) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto run = [] { // in a process of its own: it is the whole process that gives OpenGL up
        UnluckyLayer first, second;
        int right = 0;
        for (UnluckyLayer* layer : {&first, &second}) {
            layer->setFrame({0, 0, 2, 2});
            right += layer->contents()->pixels.at(2) == 0xFFFFFFFFu && layer->drawn == 2;
        }
        std::exit(right == 2 ? 0 : 1);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "^[^\n]*a picture could not be drawn[^\n]*\n$");
}

} // namespace
} // namespace QVM_NAMESPACE
