#include "controls/QVMMeterButton.h"

#include "theme/QVMUITheme.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class QVMMeterButtonTest : public testing::Test {
protected:
    QVMMeterButton button{{0, 0, 54, 20}, "-1.5", 12, Color::white(1, 0.7f)};
};

TEST_F(QVMMeterButtonTest, WithoutASuffixTheReadingStandsAlone) {
    EXPECT_FALSE(button.suffix());
    EXPECT_TRUE(button.suffixAttr().isEmpty());
    EXPECT_EQ(button.attributedStringForGlyphColor("-1.5", std::nullopt).string(), "-1.5");
}

TEST_F(QVMMeterButtonTest, TheSuffixFollowsTheReadingInTheUnitFontAndTheButtonsColour) {
    button.setSuffixSize(10);
    button.setSuffix("dB");
    EXPECT_EQ(button.suffixAttr(), AttributedString("dB", QVMUITheme::unitFontOfSize(10), Color::white(1, 0.7f)));
    const AttributedString text = button.attributedStringForGlyphColor("-2.0", std::nullopt);
    ASSERT_EQ(text.runs.size(), 2u);
    EXPECT_EQ(text.runs[0].text, "-2.0");
    EXPECT_EQ(text.runs[0].font.pointSize, 12);
    EXPECT_EQ(text.runs[1], button.suffixAttr().runs[0]);
    EXPECT_EQ(button.glyph()->string().string(), "-1.5dB");
}

TEST_F(QVMMeterButtonTest, TheSuffixTakesTheColourThatTheReadingIsShownIn) {
    button.setSuffix("dB");
    button.resetGlyphColor("-3.0", Color::white(0.2f));
    for (const TextRun& run : button.glyph()->string().runs)
        EXPECT_EQ(run.color, Color::white(0.2f)) << run.text;
}

TEST_F(QVMMeterButtonTest, TheSuffixCanBeTakenAwayAgain) {
    button.setSuffix("dB");
    button.setSuffix(std::nullopt);
    EXPECT_TRUE(button.suffixAttr().isEmpty());
    EXPECT_EQ(button.glyph()->string().string(), "-1.5");
}

TEST_F(QVMMeterButtonTest, ASuffixSizeCountsForTheNextSuffix) {
    button.setSuffix("dB");
    button.setSuffixSize(8);
    EXPECT_EQ(button.suffixAttr().runs.at(0).font.pointSize, 10);
    button.setSuffix("dB");
    EXPECT_EQ(button.suffixAttr().runs.at(0).font.pointSize, 8);
}

} // namespace
} // namespace QVM_NAMESPACE
