#include "platform/layer/LayerLook.h"

#include "platform/layer/CountingObserver.h"
#include "platform/layer/Layer.h"

#include <gtest/gtest.h>

#include <functional>

namespace QVM_NAMESPACE {
namespace {

struct LayerLookTest : testing::Test {
    CountingObserver observer;
    std::shared_ptr<Layer> layer = std::make_shared<Layer>();
    LayerLook& look = layer->look();
    LayerLookTest() { layer->tree().setObserver(&observer); }
};

TEST_F(LayerLookTest, EachChangeIsAnotherVersionAndToldOnceAndAnEqualValueIsNone) {
    const auto image = std::make_shared<const Image>();
    const std::function<void()> changes[] = {
        [&] { look.setBackgroundColor(Color::white(1)); },
        [&] { look.setBackgroundPattern(image); },
        [&] { look.setCornerRadius(3); },
        [&] { look.setBorder(1, Color::white(0)); },
        [&] {
            look.setShadow({Color::white(0), 1, {}, 1});
        },
        [&] { look.setContents(image, ContentsGravity::center); },
        [&] { look.setContentsTint(Color::white(1)); },
        [&] { look.setContentsScale(2); },
    };
    int told = 0;
    for (const auto& change : changes) {
        const auto before = look.version();
        change();
        EXPECT_GT(look.version(), before) << "change " << told;
        EXPECT_EQ(observer.changes, ++told);
        const auto after = look.version();
        change();
        EXPECT_EQ(look.version(), after) << "change " << told;
        EXPECT_EQ(observer.changes, told);
    }
}

TEST_F(LayerLookTest, EitherHalfOfABorderOrOfAPictureCounts) {
    const auto image = std::make_shared<const Image>();
    look.setBorder(1, Color::white(0));
    look.setContents(image, ContentsGravity::center);
    observer.changes = 0;
    look.setBorder(1, Color::white(1));
    look.setBorder(2, Color::white(1));
    look.setContents(image, ContentsGravity::topLeft);
    EXPECT_EQ(observer.changes, 3);
    EXPECT_EQ(look.borderWidth(), 2);
    EXPECT_EQ(look.borderColor(), Color::white(1));
    EXPECT_EQ(look.contentsGravity(), ContentsGravity::topLeft);
}

TEST_F(LayerLookTest, HasABorderOnlyWhenItHasWidthAndColour) {
    EXPECT_FALSE(look.hasBorder());
    look.setBorder(1, Color::clear());
    EXPECT_FALSE(look.hasBorder());
    look.setBorder(0, Color::white(1));
    EXPECT_FALSE(look.hasBorder());
    look.setBorder(1, Color::white(1));
    EXPECT_TRUE(look.hasBorder());
}

TEST_F(LayerLookTest, ALayerWithoutAScaleTakesItsSuperlayersWithAllThatIsInIt) {
    const auto child = std::make_shared<Layer>(), grandchild = std::make_shared<Layer>(),
               own = std::make_shared<Layer>();
    own->look().setContentsScale(3);
    child->tree().add(grandchild);
    child->tree().add(own);
    look.setContentsScale(2);
    layer->tree().add(child);
    EXPECT_EQ(child->look().contentsScale(), 2);
    EXPECT_EQ(grandchild->look().contentsScale(), 2);
    EXPECT_EQ(own->look().contentsScale(), 3) << "its own";
    const auto elsewhere = std::make_shared<Layer>();
    elsewhere->look().setContentsScale(4);
    elsewhere->tree().add(child);
    EXPECT_EQ(child->look().contentsScale(), 4) << "what it took was not its own";
}

TEST_F(LayerLookTest, NoTwoLayersShareAVersion) {
    EXPECT_NE(Layer().look().version(), Layer().look().version());
}

} // namespace
} // namespace QVM_NAMESPACE
