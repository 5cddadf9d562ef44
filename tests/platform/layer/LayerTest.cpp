#include "platform/layer/Layer.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

struct CountingObserver : LayerTreeObserver {
    int changes = 0, losses = 0;
    void layerTreeDidChange() override { ++changes; }
    void layerTreeDidLoseLayer() override { ++losses; }
};

struct LayerTest : testing::Test {
    CountingObserver observer;
    std::shared_ptr<Layer> root = std::make_shared<Layer>(), child = std::make_shared<Layer>(),
                           grandchild = std::make_shared<Layer>();
    LayerTest() {
        root->addSublayer(child);
        child->addSublayer(grandchild);
        root->setTreeObserver(&observer);
    }
};

TEST_F(LayerTest, TheFrameSetsBoundsSizeAndPositionOfTheAnchor) {
    child->setBounds({5, 6, 1, 1});
    child->setFrame({10, 20, 30, 40});
    EXPECT_EQ(child->bounds(), (Rect{5, 6, 30, 40}));
    EXPECT_EQ(child->position(), (Point{25, 40}));
    child->setAnchorPoint({0, 1});
    EXPECT_EQ(child->frame(), (Rect{25, 0, 30, 40}));
    child->setFrame({10, 20, 30, 40});
    EXPECT_EQ(child->position(), (Point{10, 60}));
    EXPECT_EQ(child->frame(), (Rect{10, 20, 30, 40}));
}

TEST_F(LayerTest, TheRootsObserverHearsOfChangesBelow) {
    grandchild->setOpacity(0.5);
    EXPECT_EQ(observer.changes, 1);
    child->setHidden(true);
    EXPECT_EQ(observer.changes, 2);
    root->setBackgroundColor(Color::white(1));
    EXPECT_EQ(observer.changes, 3);
}

TEST_F(LayerTest, SettingAnEqualValueChangesNothing) {
    const auto image = std::make_shared<const Image>();
    const auto setAll = [&] {
        child->setFrame({1, 2, 3, 4});
        child->setOpacity(0.5);
        child->setTransform(AffineTransform::scale(2, 2));
        child->setHidden(true);
        child->setMasksToBounds(true);
        child->setAnchorPoint({0.5, 0.5});
        child->setBackgroundColor(Color::white(1));
        child->setBackgroundPattern(image);
        child->setCornerRadius(3);
        child->setBorder(1, Color::white(0));
        child->setShadow({Color::white(0), 1, {}, 1});
        child->setContents(image);
        child->setContentsTint(Color::white(1));
        child->setContentsScale(2);
    };
    setAll();
    observer.changes = 0;
    const auto version = child->contentVersion();
    setAll();
    EXPECT_EQ(observer.changes, 0);
    EXPECT_EQ(child->contentVersion(), version);
}

TEST_F(LayerTest, PlaceOpacityAndTransformKeepTheLook) {
    const auto version = child->contentVersion();
    child->setPosition({3, 4});
    child->setOpacity(0.1);
    child->setTransform(AffineTransform::scale(2, 2));
    child->setHidden(true);
    child->setMasksToBounds(true);
    EXPECT_EQ(child->contentVersion(), version);
    child->setBorder(1, Color::white(1));
    EXPECT_GT(child->contentVersion(), version);
}

TEST_F(LayerTest, NoTwoLayersShareAContentVersion) {
    EXPECT_NE(Layer().contentVersion(), Layer().contentVersion());
}

TEST_F(LayerTest, ALayerHasOneSuperlayer) {
    const auto other = std::make_shared<Layer>();
    other->addSublayer(grandchild);
    EXPECT_EQ(grandchild->superlayer(), other.get());
    EXPECT_TRUE(child->sublayers().empty());
    EXPECT_EQ(observer.losses, 1);
    observer.changes = 0;
    grandchild->setOpacity(0.3);
    EXPECT_EQ(observer.changes, 0);
}

TEST_F(LayerTest, InsertsAtAnIndexAndMovesWithinItsSuperlayer) {
    const auto a = std::make_shared<Layer>(), b = std::make_shared<Layer>();
    root->insertSublayer(a, 0);
    root->insertSublayer(b, 99);
    EXPECT_EQ(root->sublayers(), (std::vector<std::shared_ptr<Layer>>{a, child, b}));
    root->insertSublayer(b, 0);
    EXPECT_EQ(root->sublayers(), (std::vector<std::shared_ptr<Layer>>{b, a, child}));
    EXPECT_EQ(b->superlayer(), root.get());
}

TEST_F(LayerTest, ALayerCannotHoldItselfNorItsAncestorsNorNothing) {
    grandchild->addSublayer(root);
    child->addSublayer(child);
    child->addSublayer(nullptr);
    EXPECT_EQ(root->superlayer(), nullptr);
    EXPECT_EQ(child->sublayers().size(), 1u);
    EXPECT_TRUE(grandchild->sublayers().empty());
}

TEST_F(LayerTest, SublayersOutliveTheirSuperlayer) {
    root.reset();
    child.reset();
    EXPECT_EQ(grandchild->superlayer(), nullptr);
    grandchild->setOpacity(0.5);
}

TEST_F(LayerTest, RemovalByTheOnlyOwnerIsSafe) {
    Layer& only = *child;
    child.reset();
    only.removeFromSuperlayer();
    EXPECT_TRUE(root->sublayers().empty());
    EXPECT_EQ(observer.losses, 1);
    EXPECT_EQ(grandchild->superlayer(), nullptr);
}

TEST_F(LayerTest, HasALookOnlyWhenSomethingShows) {
    const auto looks = [&] { return child->hasLook(child->presentation(0)); };
    EXPECT_FALSE(looks());
    child->setShadow({Color::white(0), 4, {}, 1}); // nothing that could cast it
    EXPECT_FALSE(looks());
    child->setBorder(1, Color::white(1));
    EXPECT_TRUE(looks());
    child->setBorder(1, Color::clear());
    EXPECT_FALSE(looks());
    child->setContents(std::make_shared<const Image>());
    EXPECT_TRUE(looks());
}

TEST_F(LayerTest, IsAPlainRectangleUntilAnythingElseShows) {
    const auto plain = [&] { return child->isPlainRectangle(child->presentation(0)); };
    EXPECT_FALSE(plain());
    child->setBackgroundColor(Color::white(1));
    EXPECT_TRUE(plain());
    child->setCornerRadius(1);
    EXPECT_FALSE(plain());
    child->setCornerRadius(0);
    child->setShadow({Color::white(0), 4, {}, 1});
    EXPECT_FALSE(plain());
}

TEST_F(LayerTest, AShadowReachesBeyondTheBounds) {
    child->setFrame({0, 0, 10, 10});
    child->setShadow({Color::white(0), 3, {0, 2}, 1});
    EXPECT_EQ(child->lookBounds(child->presentation(0)), (Rect{-6, -4, 22, 22}));
    const auto up = std::make_shared<Layer>(YAxis::up);
    up->setFrame({0, 0, 10, 10});
    up->setShadow({Color::white(0), 3, {0, 2}, 1}); // falls down on screen: towards lower y
    EXPECT_EQ(up->lookBounds(up->presentation(0)), (Rect{-6, -8, 22, 22}));
}

} // namespace
} // namespace QVM_NAMESPACE
