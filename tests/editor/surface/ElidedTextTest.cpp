#include "editor/surface/ElidedText.h"

#include "platform/layer/TextMetrics.h"
#include "platform/system/Utf8.h"
#include "theme/QVMUITheme.h"

#include <gtest/gtest.h>

#include <vector>

namespace QVM_NAMESPACE {
namespace {

const std::string ellipsis = "\xE2\x80\xA6";

class ElidedText : public testing::Test {
protected:
    double width(const std::string& text) const {
        return TextMetrics::current().width(AttributedString(text, font_, Color{}));
    }
    const Font font_ = QVMUITheme::safeFontWithNameSize("HelveticaNeue", 14);
};

TEST_F(ElidedText, WhatFitsStaysAsItIs) {
    EXPECT_EQ(elided("Warm voice", font_, width("Warm voice")), "Warm voice");
    EXPECT_EQ(elided("", font_, 0), "");
}

TEST_F(ElidedText, WhatDoesNotFitIsCutBehindAWholeCharacter) {
    const std::string text = "\xC3\x84rger \xF0\x9F\x8E\xB8 mit \xC3\x9C";
    for (double room = width(text) - 1; room > width(ellipsis); room -= 3) {
        const std::string cut = elided(text, font_, room);
        EXPECT_LE(width(cut), room);
        EXPECT_TRUE(isPlainUtf8(cut)) << cut;
        ASSERT_TRUE(cut.ends_with(ellipsis));
        const std::string kept = cut.substr(0, cut.size() - ellipsis.size());
        EXPECT_TRUE(text.starts_with(kept));
        EXPECT_FALSE(kept.ends_with(' '));
    }
}

TEST_F(ElidedText, WithoutRoomNothingButTheEllipsisIsLeft) {
    EXPECT_EQ(elided("Warm", font_, 0), ellipsis);
}

TEST_F(ElidedText, ANameKeepsItsBeginningAndItsEnd) {
    EXPECT_EQ(elidedInMiddle("Warm voice", font_, width("Warm voice")), "Warm voice");
    const std::string name = "\xC3\x84rger mit dem Bass, zweiter Versuch \xF0\x9F\x8E\xB8";
    for (double room = width(name) - 1; room > width(ellipsis) + 40; room -= 5) {
        const std::string cut = elidedInMiddle(name, font_, room);
        EXPECT_LE(width(cut), room);
        EXPECT_TRUE(isPlainUtf8(cut)) << cut;
        EXPECT_TRUE(cut.starts_with("\xC3\x84")) << cut;
        EXPECT_TRUE(cut.ends_with("\xF0\x9F\x8E\xB8")) << cut;
        EXPECT_NE(cut.find(ellipsis), std::string::npos);
    }
    EXPECT_EQ(elidedInMiddle("Warm", font_, 0), ellipsis);
}

TEST_F(ElidedText, LinesAreBrokenAtBlanksAndBehindSlashes) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(inLines("one two", font_, width("one two"), 3), (Lines{"one two"}));
    EXPECT_EQ(inLines("one two", font_, width("one two") - 1, 3), (Lines{"one", "two"}));
    EXPECT_EQ(inLines("at /usr/share", font_, width("at /usr/") + 1, 3), (Lines{"at /usr/", "share"}));
    EXPECT_EQ(inLines("", font_, 10, 3), (Lines{""}));
    const Lines cut = inLines("one two three four", font_, width("three"), 2);
    ASSERT_EQ(cut.size(), 2U);
    EXPECT_TRUE(cut[1].ends_with(ellipsis));
    EXPECT_EQ(inLines("mmmmmmmmmm", font_, 30, 3).size(), 1U) << "a word is cut, not broken";
}

} // namespace
} // namespace QVM_NAMESPACE
