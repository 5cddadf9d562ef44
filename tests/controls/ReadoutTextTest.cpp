// The value text of handles and boxes.
#include "controls/ReadoutText.h"

#include "controls/QVMVerticalSlider.h"
#include "theme/QVMUITheme.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

AttributedString text(const std::string& value, const std::optional<std::string>& suffix, double size = 16) {
    return QVMVerticalSlider::formattedReadoutStringForValueSuffixFontSize(value, suffix, size);
}

TEST(ReadoutText, ASuffixHzShowsItsGlyph) {
    const AttributedString shown = text("125", "Hz");
    EXPECT_EQ(shown.string(), "125\uE802");
    EXPECT_EQ(shown.runs.back().font, QVMUITheme::iconFontOfSize(16));
    EXPECT_EQ(shown.runs.back().color, Color::white(1, 0.85f));
}

TEST(ReadoutText, ASuffixMsIsShownAsText) {
    const AttributedString shown = text("12", "ms");
    EXPECT_EQ(shown.string(), "12ms");
    EXPECT_EQ(shown.runs.back().font, QVMUITheme::unitFontOfSize(12));
    EXPECT_EQ(shown.runs.back().color, Color::white(1, 0.85f));
}

TEST(ReadoutText, TheUnitKeepsItsDistanceFromTheValue) {
    const AttributedString shown = text("5", "dB");
    EXPECT_GT(shown.runs.front().kern, 0);
    EXPECT_DOUBLE_EQ(shown.runs.back().kern, 0);
    EXPECT_EQ(text("", "dB").string(), "\uE803");
}

TEST(ReadoutText, EveryKnownUnitHasAGlyphOfItsOwn) {
    const std::pair<const char*, const char*> units[] = {
        {"dB/Oct", "\uE800"}, {"kHz", "\uE801"}, {"Hz", "\uE802"}, {"dB", "\uE803"}, {"%", "\uE804"}};
    for (const auto& [unit, glyph] : units)
        EXPECT_EQ(text("1", unit).string(), std::string("1") + glyph);
}

TEST(ReadoutText, PlainTextIsSixteenPointsWhateverSizeIsAsked) {
    EXPECT_EQ(text("-Inf", "", 30).runs[0].font, QVMUITheme::appropriateFontForValueSizeIconSize("1", 16, 0));
    EXPECT_EQ(text("-Inf", "", 30).runs[0].color, Color::white(1));
}

TEST(ReadoutText, AGlyphForAValueHasTheSizeAsked) {
    EXPECT_EQ(text("\uE101", {}, 30).runs[0].font, QVMUITheme::iconFontOfSize(30));
}

TEST(ReadoutText, AMissingOrEmptySuffixAddsNothing) {
    EXPECT_EQ(text("5", {}), text("5", ""));
    EXPECT_EQ(text("5", {}).string(), "5");
}

} // namespace
} // namespace QVM_NAMESPACE
