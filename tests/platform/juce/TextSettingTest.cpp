#include "platform/juce/TextSetting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;

const Font medium10{"HelveticaNeue-Medium", 10};

class TextSettingTest : public ::testing::Test {
protected:
    std::vector<std::string> linesOf(const std::string& text, double width) {
        std::vector<std::string> lines;
        for (const SetLine& line : setText({text, medium10, {}}, faces, width)) {
            std::string characters;
            for (const SetGlyph& glyph : line.glyphs)
                characters += static_cast<char>(glyph.character);
            lines.push_back(characters);
        }
        return lines;
    }
    double widthOf(const std::string& text) { return setText({text, medium10, {}}, faces)[0].width; }
    FaceLibrary faces;
};

TEST_F(TextSettingTest, GlyphsStandAtTheSumOfAdvancesAndKerns) {
    AttributedString text("ab", medium10, {});
    text.runs[0].kern = 2;
    text.append({"c", {"HelveticaNeue-Medium", 20}, {}});
    const auto lines = setText(text, faces);
    const auto em = [&](char32_t c) { return faces.face(medium10.face).glyph(c).advance; };
    ASSERT_EQ(lines.size(), 1u);
    ASSERT_EQ(lines[0].glyphs.size(), 3u);
    EXPECT_DOUBLE_EQ(lines[0].glyphs[1].x, em(U'a') * 10 + 2);
    EXPECT_DOUBLE_EQ(lines[0].glyphs[2].x, (em(U'a') + em(U'b')) * 10 + 4);
    EXPECT_DOUBLE_EQ(lines[0].width, (em(U'a') + em(U'b')) * 10 + 4 + em(U'c') * 20);
}

TEST_F(TextSettingTest, TallestRunMakesTheLine) {
    AttributedString text("a", medium10, {});
    text.append({"b", {"HelveticaNeue-Medium", 20}, {}});
    const SetLine line = setText(text, faces)[0];
    EXPECT_DOUBLE_EQ(line.ascent, faces.face(medium10.face).ascent() * 20);
    EXPECT_DOUBLE_EQ(line.capHeight, faces.face(medium10.face).capHeight() * 20);
}

TEST_F(TextSettingTest, BreaksAtSpaces) {
    EXPECT_THAT(linesOf("one two three", widthOf("one two") + 0.1), ElementsAre("one two", "three"));
    EXPECT_THAT(linesOf("one two three", widthOf("three") + 0.1), ElementsAre("one", "two", "three"));
    EXPECT_THAT(linesOf("one two three", 1e9), ElementsAre("one two three"));
}

TEST_F(TextSettingTest, LongWordBreaksAnywhere) {
    EXPECT_THAT(linesOf("iiiiii", widthOf("ii") + 0.1), ElementsAre("ii", "ii", "ii"));
    EXPECT_THAT(linesOf("WW", 1), ElementsAre("W", "W")); // at least one letter a line
}

TEST_F(TextSettingTest, LineFeedsAlwaysBreak) {
    EXPECT_THAT(linesOf("a\n\nb", 1e9), ElementsAre("a", "", "b"));
    EXPECT_GT(setText({"a\n\nb", medium10, {}}, faces)[1].ascent, 0);
}

TEST_F(TextSettingTest, EmptyTextIsOneEmptyLine) {
    EXPECT_THAT(linesOf("", 100), ElementsAre(""));
    EXPECT_EQ(setText({}, faces).size(), 1u);
}

TEST(CharactersOf, ReadsUtf8AndReplacesWhatIsBroken) {
    EXPECT_EQ(charactersOf("aé\uE101\U0001F600"), U"aé\uE101\U0001F600");
    EXPECT_EQ(charactersOf("a\x80z"), U"a\uFFFDz");
    EXPECT_EQ(charactersOf("\xE2\x82"), U"\uFFFD");
    EXPECT_EQ(charactersOf("\xC3z"), U"\uFFFDz");
    EXPECT_EQ(charactersOf(""), U"");
}

} // namespace
} // namespace QVM_NAMESPACE
