#include "settings/AddressParts.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(AddressParts, AreHostPathAndQuery) {
    const auto parts = addressParts("https://maker.example/product/2.0.1/?tg:6/trl:50");
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->host, "maker.example");
    EXPECT_THAT(parts->pathSegments, ElementsAre("product", "2.0.1"));
    EXPECT_EQ(parts->query, "tg:6/trl:50");
}

TEST(AddressParts, AQueryMayBeEmptyOrAbsent) {
    EXPECT_EQ(addressParts("https://a.example/?")->query, "");
    EXPECT_FALSE(addressParts("https://a.example/")->query);
    EXPECT_FALSE(addressParts("https://a.example")->query);
    EXPECT_THAT(addressParts("https://a.example")->pathSegments, IsEmpty());
}

TEST(AddressParts, AFragmentIsNoPartOfTheQuery) {
    EXPECT_EQ(addressParts("https://a.example/b/1/?tg:6#tg:9")->query, "tg:6");
}

TEST(AddressParts, WhatWasEncodedIsDecoded) {
    const auto parts = addressParts("https://a.example/a%62c/1%2E0/?tg%3A6%2Ftrl%3a50%00%FF");
    ASSERT_TRUE(parts);
    EXPECT_THAT(parts->pathSegments, ElementsAre("abc", "1.0"));
    EXPECT_EQ(parts->query, std::string("tg:6/trl:50\0\xFF", 13));
    EXPECT_EQ(addressParts("https://a.example/?a+b")->query, "a+b"); // a plus sign is itself
}

TEST(AddressParts, AnySchemeWillDo) {
    for (const char* text : {"http://a.example/", "HTTPS://a.example/", "ftp://a.example/", "x-notes://a.example/"})
        EXPECT_TRUE(addressParts(text)) << text;
}

TEST(AddressParts, WithoutAHostThereIsNoAddress) {
    for (const char* text : {"file:///etc/passwd", "javascript:alert(1)", "mailto:a@b.example", "data:text/plain,a"})
        EXPECT_FALSE(addressParts(text)) << text;
}

TEST(AddressParts, WhatIsNoAddressHasNone) {
    for (const char* text :
         {"", "hello", "/?tg:6", "a.example/b/1/?tg:6", "//a.example/b/1/?tg:6", "https://", "https:///b/1/?tg:6",
          "https://a.example/b c", "https://a.example/\n", "https://a.example/%", "https://a.example/%4",
          "https://a.example/%4G", "https://a.example/?\"", "https://a.example/?<b>", "https://a.example/?\xC3\xA9",
          "https://[::1/?tg:6", "https://a.example:port/"})
        EXPECT_FALSE(addressParts(text)) << text;
    EXPECT_FALSE(addressParts(std::string_view("https://a.example/\0b", 20)));
}

} // namespace
} // namespace QVM_NAMESPACE
