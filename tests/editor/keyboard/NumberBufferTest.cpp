#include "editor/keyboard/NumberBuffer.h"

#include <gtest/gtest.h>

#include <string_view>

namespace QVM_NAMESPACE {
namespace {

std::string typed(std::u32string_view characters) {
    NumberBuffer buffer;
    for (const char32_t character : characters)
        if (buffer.takes(character)) buffer.append(character);
    return buffer.text();
}

TEST(NumberBuffer, TakesASignOnlyAsTheFirst) {
    EXPECT_EQ(typed(U"-3-4"), "-34");
    EXPECT_EQ(typed(U"--"), "-");
}

TEST(NumberBuffer, NothingFollowsTheThousands) {
    EXPECT_EQ(typed(U"12k5.k"), "12k");
}

TEST(NumberBuffer, EachSeparatorComesOnce) {
    EXPECT_EQ(typed(U"1.2.3,4,5"), "1.23,45");
}

TEST(NumberBuffer, LettersAreNone) {
    EXPECT_EQ(typed(U"1e5 \u0661\0"), "15");
    EXPECT_FALSE(NumberBuffer().takes(U'\0'));
    EXPECT_TRUE(NumberBuffer().takes(U'k'));
}

TEST(NumberBuffer, WhatIsRefusedIsSaidSo) {
    NumberBuffer buffer;
    EXPECT_TRUE(buffer.append(U'1'));
    EXPECT_TRUE(buffer.append(U'.'));
    EXPECT_FALSE(buffer.append(U'.'));
    EXPECT_TRUE(buffer.append(U'k'));
    EXPECT_FALSE(buffer.append(U'1'));
}

TEST(NumberBuffer, DeletesFromTheEndUntilNothingIsLeft) {
    NumberBuffer buffer;
    buffer.set("12");
    EXPECT_TRUE(buffer.deleteLast());
    EXPECT_EQ(buffer.text(), "1");
    EXPECT_TRUE(buffer.deleteLast());
    EXPECT_FALSE(buffer.deleteLast());
    buffer.set("12k");
    buffer.clear();
    EXPECT_EQ(buffer.text(), "");
}

} // namespace
} // namespace QVM_NAMESPACE
