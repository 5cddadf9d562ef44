#include "toolkit/FontFace.h"

#include "resources/BundleResources.h"

#include <gtest/gtest.h>

#include <array>

namespace QVM_NAMESPACE {
namespace {

std::unique_ptr<FontFace> embedded(const char* name, const char* extension) {
    return FontFace::fromMemory(BundleResources::current().find(name, extension));
}

TEST(FontFace, MeasuresAreThoseOfTheFontFile) {
    const auto face = embedded("Roboto-Medium", "ttf");
    ASSERT_NE(face, nullptr);
    EXPECT_DOUBLE_EQ(face->ascent(), 1900.0 / 2048);
    EXPECT_DOUBLE_EQ(face->descent(), 500.0 / 2048);
    EXPECT_DOUBLE_EQ(face->capHeight(), 1456.0 / 2048);
}

TEST(FontFace, CapitalsStandOnTheBaselineAndAreAsHighAsTheFaceSays) {
    const auto face = embedded("Roboto-Medium", "ttf");
    const juce::Rectangle<float> h = face->glyph(U'H').outline.getBounds();
    EXPECT_NEAR(h.getBottom(), 0, 1e-6);
    EXPECT_NEAR(h.getY(), -face->capHeight(), 1e-6);
    EXPECT_GT(face->glyph(U'H').advance, h.getWidth());
}

TEST(FontFace, FaceWithoutCapitalsCentresTheMiddleOfItsLine) {
    const auto face = embedded("QVM-Icons-Regular", "otf");
    ASSERT_NE(face, nullptr);
    EXPECT_NEAR(face->capHeight(), 0.6, 1e-9); // ascent 0.8, descent 0.2: the middle is 0.3 above the baseline
}

TEST(FontFace, TellsMissingGlyphs) {
    const auto face = embedded("QVM-Icons-Regular", "otf");
    EXPECT_FALSE(face->glyph(0xE101).isMissing);
    EXPECT_FALSE(face->glyph(0xE101).outline.isEmpty());
    EXPECT_TRUE(face->glyph(0xE199).isMissing);
}

TEST(FontFace, GlyphIsLoadedOnce) {
    const auto face = embedded("Roboto-Medium", "ttf");
    const FontFace::Glyph* first = &face->glyph(U'a');
    for (char32_t c = U'!'; c < 0x300; ++c)
        face->glyph(c);
    EXPECT_EQ(&face->glyph(U'a'), first);
}

TEST(FontFace, RefusesWhatIsNoFont) {
    EXPECT_EQ(FontFace::fromMemory({}), nullptr);
    std::array<std::byte, 64> noise{};
    EXPECT_EQ(FontFace::fromMemory(noise), nullptr);
    const auto whole = BundleResources::current().find("Roboto-Medium", "ttf");
    EXPECT_EQ(FontFace::fromMemory(whole.first(100)), nullptr);
    EXPECT_EQ(FontFace::fromFile("no/such/file.ttf", 0), nullptr);
}

TEST(FontFace, EmptyFaceHasWidthsAndNoOutlines) {
    const auto face = FontFace::empty();
    EXPECT_EQ(face->glyph(U'x').advance, 0.5);
    EXPECT_TRUE(face->glyph(U'x').outline.isEmpty());
    EXPECT_TRUE(face->glyph(U'x').isMissing);
}

} // namespace
} // namespace QVM_NAMESPACE
