#include "editor/surface/ElidedText.h"

#include "platform/layer/TextMetrics.h"
#include "platform/system/Utf8.h"
#include "theme/QVMUITheme.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace QVM_NAMESPACE
