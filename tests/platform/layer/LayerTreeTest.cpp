#include "platform/layer/LayerTree.h"

#include "platform/layer/CountingObserver.h"
#include "platform/layer/Layer.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

struct LayerTreeTest : testing::Test {
    CountingObserver observer;
    std::shared_ptr<Layer> root = std::make_shared<Layer>(), child = std::make_shared<Layer>(),
                           grandchild = std::make_shared<Layer>();
    LayerTreeTest() {
        root->tree().add(child);
        child->tree().add(grandchild);
        root->tree().setObserver(&observer);
    }
};

TEST_F(LayerTreeTest, TheRootsObserverHearsOfChangesBelow) {
    grandchild->setOpacity(0.5);
    EXPECT_EQ(observer.changes, 1);
    child->setHidden(true);
    EXPECT_EQ(observer.changes, 2);
    root->look().setBackgroundColor(Color::white(1));
    EXPECT_EQ(observer.changes, 3);
}

TEST_F(LayerTreeTest, ALayerHasOneSuperlayer) {
    const auto other = std::make_shared<Layer>();
    other->tree().add(grandchild);
    EXPECT_EQ(grandchild->tree().superlayer(), other.get());
    EXPECT_TRUE(child->tree().sublayers().empty());
    EXPECT_EQ(observer.losses, 1);
    observer.changes = 0;
    grandchild->setOpacity(0.3);
    EXPECT_EQ(observer.changes, 0);
}

TEST_F(LayerTreeTest, InsertsAtAnIndexAndMovesWithinItsSuperlayer) {
    const auto a = std::make_shared<Layer>(), b = std::make_shared<Layer>();
    root->tree().insert(a, 0);
    root->tree().insert(b, 99);
    EXPECT_EQ(root->tree().sublayers(), (std::vector<std::shared_ptr<Layer>>{a, child, b}));
    root->tree().insert(b, 0);
    EXPECT_EQ(root->tree().sublayers(), (std::vector<std::shared_ptr<Layer>>{b, a, child}));
    EXPECT_EQ(b->tree().superlayer(), root.get());
}

TEST_F(LayerTreeTest, ALayerCannotHoldItselfNorItsAncestorsNorNothing) {
    grandchild->tree().add(root);
    child->tree().add(child);
    child->tree().add(nullptr);
    EXPECT_EQ(root->tree().superlayer(), nullptr);
    EXPECT_EQ(child->tree().sublayers().size(), 1u);
    EXPECT_TRUE(grandchild->tree().sublayers().empty());
}

TEST_F(LayerTreeTest, SublayersOutliveTheirSuperlayer) {
    root.reset();
    child.reset();
    EXPECT_EQ(grandchild->tree().superlayer(), nullptr);
    grandchild->setOpacity(0.5);
}

TEST_F(LayerTreeTest, RemovalByTheOnlyOwnerIsSafe) {
    Layer& only = *child;
    child.reset();
    only.tree().removeFromSuperlayer();
    EXPECT_TRUE(root->tree().sublayers().empty());
    EXPECT_EQ(observer.losses, 1);
    EXPECT_EQ(grandchild->tree().superlayer(), nullptr);
}

TEST_F(LayerTreeTest, ALayerThatIsInNoneIsNotTakenOut) {
    root->tree().removeFromSuperlayer();
    EXPECT_EQ(observer.losses, 0);
    EXPECT_EQ(observer.changes, 0);
}

} // namespace
} // namespace QVM_NAMESPACE
