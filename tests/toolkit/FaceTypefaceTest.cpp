#include "toolkit/FaceTypeface.h"

#include "resources/BundleResources.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(FaceTypeface, PointHeightIsTheEm) {
    const auto face = FontFace::fromMemory(BundleResources::current().find("Roboto-Medium", "ttf"));
    const juce::Font font = juce::Font(new FaceTypeface(*face, "Test")).withPointHeight(100);
    EXPECT_NEAR(font.getStringWidthFloat("H"), face->glyph(U'H').advance * 100, 0.01);
    EXPECT_NEAR(font.getAscent(), face->ascent() * 100, 0.01);
    juce::GlyphArrangement text;
    text.addLineOfText(font, "H", 0, 0);
    juce::Path outline;
    text.createPath(outline);
    EXPECT_NEAR(outline.getBounds().getHeight(), face->capHeight() * 100, 0.01);
}

} // namespace
} // namespace QVM_NAMESPACE
