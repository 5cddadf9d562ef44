#include "controls/TextFitting.h"

#include "platform/layer/TextMetrics.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

AttributedString textOf(const std::string& text, double size) {
    return {text, {"Any", size}, Color::white(0)};
}

TEST(TextFitting, ATextThatFitsIsLeftAlone) {
    const AttributedString text = textOf("Auto", 16);
    EXPECT_EQ(shrunkenToWidth(text, TextMetrics::current().width(text)), text);
}

TEST(TextFitting, ATextThatIsTooWideShrinksAPointAtATime) {
    const AttributedString wide = textOf("Treble", 16);
    const double room = TextMetrics::current().width(textOf("Treble", 13));
    EXPECT_EQ(shrunkenToWidth(wide, room).runs[0].font.pointSize, 13);
    EXPECT_EQ(shrunkenToWidth(wide, room - 0.1).runs[0].font.pointSize, 12);
}

TEST(TextFitting, AllRunsShrinkTogether) {
    AttributedString text = textOf("12.5", 16);
    text.append(textOf("dB", 12));
    const AttributedString shrunken = shrunkenToWidth(text, TextMetrics::current().width(text) - 0.1);
    EXPECT_EQ(shrunken.runs[0].font.pointSize, 15);
    EXPECT_EQ(shrunken.runs[1].font.pointSize, 11);
}

TEST(TextFitting, GlyphsKeepTheirSize) {
    EXPECT_EQ(shrunkenToWidth(textOf("\uE101", 40), 1).runs[0].font.pointSize, 40);
}

TEST(TextFitting, StopsWhereItCouldNoLongerBeRead) {
    EXPECT_GE(shrunkenToWidth(textOf("Treble", 16), 0).runs[0].font.pointSize, 6);
}

} // namespace
} // namespace QVM_NAMESPACE
