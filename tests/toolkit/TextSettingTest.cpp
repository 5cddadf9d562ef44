#include "toolkit/TextSetting.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

const Font medium10{"HelveticaNeue-Medium", 10};

class TextSettingTest : public ::testing::Test {
protected:
    FaceLibrary faces;
};

TEST_F(TextSettingTest, GlyphsStandAtTheSumOfAdvancesAndKerns) {
    AttributedString text("ab", medium10, {});
    text.runs[0].kern = 2;
    text.append({"c", {"HelveticaNeue-Medium", 20}, {}});
    const SetLine line = setText(text, faces);
    const auto em = [&](char32_t c) { return faces.face(medium10.face).glyph(c).advance; };
    ASSERT_EQ(line.glyphs.size(), 3u);
    EXPECT_DOUBLE_EQ(line.glyphs[1].x, em(U'a') * 10 + 2);
    EXPECT_DOUBLE_EQ(line.glyphs[2].x, (em(U'a') + em(U'b')) * 10 + 4);
    EXPECT_DOUBLE_EQ(line.width, (em(U'a') + em(U'b')) * 10 + 4 + em(U'c') * 20);
}

TEST_F(TextSettingTest, TallestRunMakesTheLine) {
    AttributedString text("a", medium10, {});
    text.append({"b", {"HelveticaNeue-Medium", 20}, {}});
    const SetLine line = setText(text, faces);
    EXPECT_DOUBLE_EQ(line.ascent, faces.face(medium10.face).ascent() * 20);
    EXPECT_DOUBLE_EQ(line.capHeight, faces.face(medium10.face).capHeight() * 20);
}

TEST_F(TextSettingTest, RaisedRunReachesHigherAndLessLow) {
    AttributedString text("a", medium10, {});
    text.runs[0].baselineOffset = 3;
    const SetLine line = setText(text, faces);
    const FontFace& face = faces.face(medium10.face);
    EXPECT_DOUBLE_EQ(line.ascent, face.ascent() * 10 + 3);
    EXPECT_DOUBLE_EQ(line.descent, std::max(0.0, face.descent() * 10 - 3));
}

TEST_F(TextSettingTest, EmptyTextIsAnEmptyLine) {
    EXPECT_TRUE(setText({}, faces).glyphs.empty());
    EXPECT_EQ(setText({"", medium10, {}}, faces).width, 0);
}

} // namespace
} // namespace QVM_NAMESPACE
