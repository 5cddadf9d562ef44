#include "resources/Base64.h"

#include <gtest/gtest.h>

#include <string>

namespace QVM_NAMESPACE {
namespace {

std::string decoded(std::string_view text) {
    const auto bytes = decodeBase64(text);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST(Base64, DecodesEveryLengthOfTheLastGroup) {
    EXPECT_EQ(decoded(""), "");
    EXPECT_EQ(decoded("Zg=="), "f");
    EXPECT_EQ(decoded("Zm8="), "fo");
    EXPECT_EQ(decoded("Zm9v"), "foo");
    EXPECT_EQ(decoded("Zm9vYg=="), "foob");
}

TEST(Base64, KnowsTheWholeStandardAlphabet) {
    const auto bytes = decodeBase64("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
    ASSERT_EQ(bytes.size(), 48u);
    // Every sixth bit group counts up by one, so the text is the numbers 0 to 63 in six bits each.
    for (std::size_t value = 0; value < 64; ++value) {
        unsigned sixBits = 0;
        for (std::size_t bit = value * 6; bit < value * 6 + 6; ++bit)
            sixBits = sixBits << 1 | (std::to_integer<unsigned>(bytes[bit / 8]) >> (7 - bit % 8) & 1u);
        EXPECT_EQ(sixBits, value);
    }
}

TEST(Base64, BlanksAndLineEndsMayStandAnywhere) {
    EXPECT_EQ(decoded(" Zm\n9v\r\nYm\tFy "), "foobar");
    EXPECT_EQ(decoded("Zg=\n=\n"), "f");
}

TEST(Base64, GarbageGivesNothing) {
    EXPECT_EQ(decoded("Zm9v!m9v"), "");
    EXPECT_EQ(decoded("base64,Zm9v"), "");
    EXPECT_EQ(decoded("Zm9v\xC3\xA4"), "");
    EXPECT_EQ(decoded(std::string_view("Zm9v\0AAA", 8)), "");
}

TEST(Base64, TheUrlAlphabetIsNotTheStandardOne) {
    EXPECT_EQ(decoded("Zm-v"), "");
    EXPECT_EQ(decoded("Zm_v"), "");
}

TEST(Base64, ATextCutShortGivesNothing) {
    EXPECT_EQ(decoded("Z"), "");
    EXPECT_EQ(decoded("Zm9vYg"), "");
    EXPECT_EQ(decoded("Zm9vYg="), "");
}

TEST(Base64, PaddingStandsOnlyAtTheEndAndIsAtMostTwo) {
    EXPECT_EQ(decoded("Zg==Zm9v"), "");
    EXPECT_EQ(decoded("Z==="), "");
    EXPECT_EQ(decoded("===="), "");
}

} // namespace
} // namespace QVM_NAMESPACE
