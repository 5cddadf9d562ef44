#include "platform/system/Utf8.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(Utf8, CharactersOfEachLengthAreRead) {
    EXPECT_EQ(charactersOfUtf8("aé\uE101\U0001F600"), U"aé\uE101\U0001F600");
    EXPECT_EQ(charactersOfUtf8(""), U"");
}

TEST(Utf8, ReadingTakesOneCharacterOff) {
    std::string_view text = "éa";
    EXPECT_EQ(takeUtf8Character(text), U'é');
    EXPECT_EQ(text, "a");
}

TEST(Utf8, CharactersOfEachLengthAreWritten) {
    const std::string text = "aé\uE101\U0001F600\U0010FFFF";
    EXPECT_EQ(utf8From(charactersOfUtf8(text)), text);
    EXPECT_EQ(utf8From(std::u32string{0xD800, 0x110000}), "\uFFFD\uFFFD");
}

TEST(Utf8, WhatIsBrokenIsReplacedAndWhatFollowsIsKept) {
    EXPECT_EQ(charactersOfUtf8("a\x80z"), U"a\uFFFDz");
    EXPECT_EQ(charactersOfUtf8("\xE2\x82"), U"\uFFFD");
    EXPECT_EQ(charactersOfUtf8("\xC3z"), U"\uFFFDz");
}

TEST(Utf8, OverlongSurrogateAndTooGreatOnesAreBroken) {
    for (const char* text : {"\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"})
        EXPECT_FALSE(isPlainUtf8(text)) << text;
    EXPECT_TRUE(isPlainUtf8("\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF"));
}

TEST(Utf8, PlainTextHoldsNoZero) {
    EXPECT_TRUE(isPlainUtf8("a"));
    EXPECT_FALSE(isPlainUtf8(std::string_view("a\0b", 3)));
}

} // namespace
} // namespace QVM_NAMESPACE
