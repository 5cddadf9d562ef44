#include "platform/layer/TextLayer.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

const Font font{"HelveticaNeue-Medium", 12};

TEST(TextLayerTest, SettingAnEqualTextCostsNothing) {
    TextLayer layer;
    layer.setString({"1.0 dB", font, Color::white(1)});
    const auto version = layer.look().version();
    layer.setString({"1.0 dB", font, Color::white(1)});
    layer.setAlignment(TextAlignment::center, TextPlacement::middle);
    EXPECT_EQ(layer.look().version(), version);
}

TEST(TextLayerTest, TextColourAndAlignmentChangeTheLook) {
    TextLayer layer;
    auto last = layer.look().version();
    const auto changed = [&] { return std::exchange(last, layer.look().version()) != layer.look().version(); };
    layer.setString({"1.0 dB", font, Color::white(1)});
    EXPECT_TRUE(changed());
    layer.setString({"1.0 dB", font, Color::white(0)});
    EXPECT_TRUE(changed());
    layer.setAlignment(TextAlignment::left);
    EXPECT_TRUE(changed());
    layer.setAlignment(TextAlignment::left, TextPlacement::top);
    EXPECT_TRUE(changed());
}

TEST(TextLayerTest, AnEmptyTextHasNoLook) {
    TextLayer layer;
    EXPECT_FALSE(layer.hasLook(layer.presentation(0)));
    layer.setString({"", font, Color::white(1)});
    EXPECT_FALSE(layer.hasLook(layer.presentation(0)));
    layer.look().setBackgroundColor(Color::white(1));
    EXPECT_TRUE(layer.isPlainRectangle(layer.presentation(0)));
    layer.setString({"x", font, Color::white(1)});
    EXPECT_TRUE(layer.hasLook(layer.presentation(0)));
    EXPECT_FALSE(layer.isPlainRectangle(layer.presentation(0)));
}

TEST(TextLayerTest, TheLookHasRoomForOverhangAndForATextThatIsTooLong) {
    TextLayer layer;
    layer.setFrame({0, 0, 60, 20});
    layer.setString({"abcd", font, Color::white(1)}); // 24 wide, 12 high
    EXPECT_EQ(layer.lookBounds(layer.presentation(0)), (Rect{-3, -3, 66, 26}));
    layer.setString({"abcdefghijkl", font, Color::white(1)}); // 72 wide, 12 too many, at either end
    EXPECT_EQ(layer.lookBounds(layer.presentation(0)), (Rect{-15, -3, 90, 26}));
}

} // namespace
} // namespace QVM_NAMESPACE
