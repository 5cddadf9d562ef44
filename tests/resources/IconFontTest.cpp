#include "resources/BundleResources.h"
#include "resources/IconGlyphs.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace QVM_NAMESPACE {
namespace {

constexpr int kEm = 1000, kAscent = 800, kDescent = -200;
constexpr int kIconMiddle = (kAscent + kDescent) / 2;

// The ink of a glyph in font units, y up.
struct Box {
    int xMin, yMin, xMax, yMax;
};

// The code point of a text that is one character of the private-use area, three bytes of UTF-8; 0 for any other text.
FT_ULong codePoint(std::string_view text) {
    if (text.size() != 3 || (text[0] & 0xF0) != 0xE0) return 0;
    return static_cast<FT_ULong>((text[0] & 0x0F) << 12 | (text[1] & 0x3F) << 6 | (text[2] & 0x3F));
}

class IconFont : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(FT_Init_FreeType(&library_), 0);
        const auto bytes = BundleResources::current().find("QVM-Icons-Regular", "otf");
        ASSERT_EQ(FT_New_Memory_Face(library_, reinterpret_cast<const FT_Byte*>(bytes.data()),
                                     static_cast<FT_Long>(bytes.size()), 0, &face_),
                  0);
    }
    void TearDown() override { FT_Done_FreeType(library_); }

    Box inkOf(std::string_view text) {
        EXPECT_EQ(FT_Load_Char(face_, codePoint(text), FT_LOAD_NO_SCALE), 0);
        FT_BBox box{};
        FT_Outline_Get_CBox(&face_->glyph->outline, &box);
        return {static_cast<int>(box.xMin), static_cast<int>(box.yMin), static_cast<int>(box.xMax),
                static_cast<int>(box.yMax)};
    }

    int advanceOf(std::string_view text) {
        EXPECT_EQ(FT_Load_Char(face_, codePoint(text), FT_LOAD_NO_SCALE), 0);
        return static_cast<int>(face_->glyph->advance.x);
    }

    FT_Face face_ = nullptr;

private:
    FT_Library library_ = nullptr;
};

TEST_F(IconFont, HasAnOutlineForEveryConstant) {
    for (const std::string_view glyph : icons::all) {
        const FT_ULong code = codePoint(glyph);
        ASSERT_NE(FT_Get_Char_Index(face_, code), 0u) << std::hex << code;
        ASSERT_EQ(FT_Load_Char(face_, code, FT_LOAD_NO_SCALE), 0);
        EXPECT_GT(face_->glyph->outline.n_contours, 0) << std::hex << code;
    }
}

TEST_F(IconFont, HasNoGlyphWithoutAConstantButTheSpace) {
    std::set<FT_ULong> expected = {' '};
    for (const std::string_view glyph : icons::all)
        expected.insert(codePoint(glyph));
    EXPECT_EQ(expected.size(), icons::all.size() + 1) << "two constants share a code point";
    std::set<FT_ULong> mapped;
    FT_UInt index = 0;
    for (FT_ULong code = FT_Get_First_Char(face_, &index); index != 0; code = FT_Get_Next_Char(face_, code, &index))
        mapped.insert(code);
    EXPECT_EQ(mapped, expected);
}

TEST_F(IconFont, ACodePointWithoutADrawingIsMissing) {
    EXPECT_EQ(FT_Get_Char_Index(face_, 0xE199), 0u);
}

TEST_F(IconFont, IsKnownByItsName) {
    EXPECT_STREQ(FT_Get_Postscript_Name(face_), "QVM-Icons-Regular");
    EXPECT_STREQ(face_->family_name, "QVM Icons");
}

TEST_F(IconFont, ALineIsOneEmHighSoThatASizeMeansTheSameHoweverItIsCounted) {
    EXPECT_EQ(face_->units_per_EM, kEm);
    EXPECT_EQ(face_->ascender, kAscent);
    EXPECT_EQ(face_->descender, kDescent);
    EXPECT_EQ(face_->height, kEm);
}

TEST_F(IconFont, EveryGlyphStaysInItsAdvanceAndLine) {
    for (const std::string_view glyph : icons::all) {
        const Box ink = inkOf(glyph);
        EXPECT_GE(ink.xMin, 0) << glyph;
        EXPECT_LE(ink.xMax, advanceOf(glyph)) << glyph;
        EXPECT_GE(ink.yMin, kDescent) << glyph;
        EXPECT_LE(ink.yMax, kAscent) << glyph;
    }
}

TEST_F(IconFont, IconsFillAboutNineteenPointsAtSizeTwentyTwoInTheMiddleOfTheLine) {
    for (const std::string_view glyph : {icons::power, icons::gear, icons::listenLow, icons::listenHigh, icons::undo,
                                         icons::redo, icons::speaker, icons::qualityOff, icons::qualityOn}) {
        const Box ink = inkOf(glyph);
        const double widest = 22.0 * std::max(ink.xMax - ink.xMin, ink.yMax - ink.yMin) / kEm;
        EXPECT_GE(widest, 17) << glyph;
        EXPECT_LE(widest, 20) << glyph;
        EXPECT_NEAR((ink.xMin + ink.xMax) / 2, kEm / 2, 25) << glyph;
        EXPECT_NEAR((ink.yMin + ink.yMax) / 2, kIconMiddle, 35) << glyph;
    }
}

TEST_F(IconFont, TheListenCurvesMirrorEachOther) {
    const Box low = inkOf(icons::listenLow), high = inkOf(icons::listenHigh);
    EXPECT_NEAR(low.xMin, kEm - high.xMax, 2);
    EXPECT_NEAR(low.yMin, high.yMin, 2);
    EXPECT_NEAR(low.yMax, high.yMax, 2);
    // Their left ends tell which is which: the low filter's curve starts at the bottom.
    const auto leftEndHeight = [this](std::string_view glyph) {
        EXPECT_EQ(FT_Load_Char(face_, codePoint(glyph), FT_LOAD_NO_SCALE), 0);
        const FT_Outline& outline = face_->glyph->outline;
        return std::min_element(outline.points, outline.points + outline.n_points,
                                [](const FT_Vector& a, const FT_Vector& b) { return a.x < b.x; })
            ->y;
    };
    EXPECT_LT(leftEndHeight(icons::listenLow), kIconMiddle);
    EXPECT_GT(leftEndHeight(icons::listenHigh), kIconMiddle);
}

TEST_F(IconFont, UnitCapitalsStandOnTheBaselineHalfAnEmHigh) {
    const Box hertz = inkOf(icons::Hz); // no round letter and none below the line: its box is that of the H
    EXPECT_NEAR(hertz.yMin, 0, 1);
    EXPECT_NEAR(hertz.yMax, 500, 1);
    for (const std::string_view glyph : {icons::kHz, icons::dB, icons::percent}) {
        EXPECT_NEAR(inkOf(glyph).yMin, 0, 12) << glyph;
        EXPECT_NEAR(inkOf(glyph).yMax, 520, 30) << glyph;
    }
}

TEST_F(IconFont, UnitsHaveTheSameGapOnBothSides) {
    for (const std::string_view glyph : {icons::dbPerOctave, icons::kHz, icons::Hz, icons::dB, icons::percent}) {
        EXPECT_NEAR(inkOf(glyph).xMin, 110, 2) << glyph;
        EXPECT_NEAR(advanceOf(glyph) - inkOf(glyph).xMax, 110, 2) << glyph;
    }
}

TEST_F(IconFont, TheQualitySwitchKeepsItsWidthWhenItIsSwitched) {
    EXPECT_EQ(advanceOf(icons::qualityOff), advanceOf(icons::qualityOn));
    EXPECT_EQ(inkOf(icons::qualityOff).xMin, inkOf(icons::qualityOn).xMin);
}

TEST_F(IconFont, TheQualitySwitchHasTheSameLettersOffAndOn) {
    const Box off = inkOf(icons::qualityOff), on = inkOf(icons::qualityOn);
    EXPECT_EQ(off.xMax, on.xMax);
    EXPECT_EQ(off.yMin, on.yMin);
    EXPECT_EQ(off.yMax, on.yMax);
}

} // namespace
} // namespace QVM_NAMESPACE
