#include "description/Types.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(Types, HexTextIsAColorWithOrWithoutItsSign) {
    const QVMColor expected{165.0f / 255.0f, 102.0f / 255.0f, 108.0f / 255.0f, 1.0f};
    EXPECT_EQ(ColorFromHexText("#A5666C"), expected);
    EXPECT_EQ(ColorFromHexText("a5666c"), expected);
}

TEST(Types, UnreadableHexTextIsOpaqueBlack) {
    const QVMColor black{0, 0, 0, 1};
    EXPECT_EQ(ColorFromHexText("tomato"), black);
    EXPECT_EQ(ColorFromHexText("#"), black);
    EXPECT_EQ(ColorFromHexText(""), black);
    EXPECT_EQ(ColorFromHexText("FFFFFFFFFFFFFFFFFF"), black); // beyond 64 bits
}

TEST(Types, OnlyTheLowest24BitsOfALongerNumberCount) {
    EXPECT_EQ(ColorFromHexText("#12FF0000"), ColorFromHexText("#FF0000"));
    EXPECT_EQ(ColorFromHexText("#FF"), ColorFromHexText("#0000FF"));
}

TEST(Types, EveryByteSurvivesTheWayToColorAndBack) {
    for (int byte = 0; byte < 256; ++byte) {
        char text[8];
        std::snprintf(text, sizeof text, "#%02X%02X%02X", byte, 255 - byte, byte / 2);
        EXPECT_EQ(HexTextFromColor(ColorFromHexText(text)), text);
    }
}

TEST(Types, ARectangleWithoutAreaIsEmpty) {
    EXPECT_TRUE(QVMRect{}.isEmpty());
    EXPECT_TRUE((QVMRect{1, 2, 3, 0}).isEmpty());
    EXPECT_TRUE((QVMRect{1, 2, -3, 4}).isEmpty());
    EXPECT_FALSE((QVMRect{0, 0, 1, 1}).isEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
