#include "platform/layer/Layer.h"

#include "platform/layer/CountingObserver.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

struct LayerTest : testing::Test {
    CountingObserver observer;
    std::shared_ptr<Layer> layer = std::make_shared<Layer>();
    LayerTest() { layer->tree().setObserver(&observer); }
};

TEST_F(LayerTest, TheFrameSetsBoundsSizeAndPositionOfTheAnchor) {
    layer->setBounds({5, 6, 1, 1});
    layer->setFrame({10, 20, 30, 40});
    EXPECT_EQ(layer->bounds(), (Rect{5, 6, 30, 40}));
    EXPECT_EQ(layer->position(), (Point{25, 40}));
    layer->setAnchorPoint({0, 1});
    EXPECT_EQ(layer->frame(), (Rect{25, 0, 30, 40}));
    layer->setFrame({10, 20, 30, 40});
    EXPECT_EQ(layer->position(), (Point{10, 60}));
    EXPECT_EQ(layer->frame(), (Rect{10, 20, 30, 40}));
}

TEST_F(LayerTest, SettingAnEqualValueChangesNothing) {
    const auto setAll = [&] {
        layer->setFrame({1, 2, 3, 4});
        layer->setOpacity(0.5);
        layer->setTransform(AffineTransform::scale(2, 2));
        layer->setHidden(true);
        layer->setMasksToBounds(true);
        layer->setAnchorPoint({0.5, 0.5});
    };
    setAll();
    observer.changes = 0;
    setAll();
    EXPECT_EQ(observer.changes, 0);
}

TEST_F(LayerTest, PlaceOpacityAndTransformKeepTheLook) {
    const auto version = layer->look().version();
    observer.changes = 0;
    layer->setPosition({3, 4});
    layer->setOpacity(0.1);
    layer->setTransform(AffineTransform::scale(2, 2));
    layer->setHidden(true);
    layer->setMasksToBounds(true);
    EXPECT_EQ(layer->look().version(), version);
    EXPECT_EQ(observer.changes, 5);
}

TEST_F(LayerTest, IsPresentedAsItIsWhileNothingMoves) {
    layer->setFrame({1, 2, 4, 6});
    layer->setOpacity(0.5);
    layer->setTransform(AffineTransform::scale(2, 2));
    layer->look().setBackgroundColor(Color::white(1));
    layer->look().setCornerRadius(3);
    const PresentedLayer presented = layer->presentation(7);
    EXPECT_EQ(presented.position, (Point{3, 5}));
    EXPECT_EQ(presented.bounds, (Rect{0, 0, 4, 6}));
    EXPECT_EQ(presented.opacity, 0.5);
    EXPECT_EQ(presented.transform, AffineTransform::scale(2, 2));
    EXPECT_EQ(presented.backgroundColor, Color::white(1));
    EXPECT_EQ(presented.cornerRadius, 3);
}

TEST_F(LayerTest, HasALookOnlyWhenSomethingShows) {
    const auto looks = [&] { return layer->hasLook(layer->presentation(0)); };
    EXPECT_FALSE(looks());
    layer->look().setShadow({Color::white(0), 4, {}, 1}); // nothing that could cast it
    EXPECT_FALSE(looks());
    layer->look().setBorder(1, Color::white(1));
    EXPECT_TRUE(looks());
    layer->look().setBorder(1, Color::clear());
    EXPECT_FALSE(looks());
    layer->look().setContents(std::make_shared<const Image>());
    EXPECT_TRUE(looks());
}

TEST_F(LayerTest, IsAPlainRectangleUntilAnythingElseShows) {
    const auto plain = [&] { return layer->isPlainRectangle(layer->presentation(0)); };
    EXPECT_FALSE(plain());
    layer->look().setBackgroundColor(Color::white(1));
    EXPECT_TRUE(plain());
    layer->look().setCornerRadius(1);
    EXPECT_FALSE(plain());
    layer->look().setCornerRadius(0);
    layer->look().setShadow({Color::white(0), 4, {}, 1});
    EXPECT_FALSE(plain());
}

TEST_F(LayerTest, AShadowReachesBeyondTheBounds) {
    layer->setFrame({0, 0, 10, 10});
    layer->look().setShadow({Color::white(0), 3, {0, 2}, 1});
    EXPECT_EQ(layer->lookBounds(layer->presentation(0)), (Rect{-6, -4, 22, 22}));
    const auto up = std::make_shared<Layer>(YAxis::up);
    up->setFrame({0, 0, 10, 10});
    up->look().setShadow({Color::white(0), 3, {0, 2}, 1}); // falls down on screen: towards lower y
    EXPECT_EQ(up->lookBounds(up->presentation(0)), (Rect{-6, -8, 22, 22}));
}

} // namespace
} // namespace QVM_NAMESPACE
