#include "toolkit/FaceLibrary.h"

#include "platform/system/Log.h"
#include "platform/system/Utf8.h"
#include "resources/BundleResources.h"
#include "resources/IconGlyphs.h"
#include "resources/ScopedBundleResources.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

// The advance of a letter tells the embedded faces apart.
double advanceOf(FaceLibrary& faces, const char* name) {
    return faces.face(name).glyph(U'W').advance;
}
double advanceIn(const char* file) {
    return FontFace::fromMemory(BundleResources::current().find(file, "ttf"))->glyph(U'W').advance;
}

TEST(FaceLibrary, EachNamedFaceHasItsStandIn) {
    FaceLibrary faces;
    EXPECT_EQ(advanceOf(faces, "HelveticaNeue-Medium"), advanceIn("Roboto-Medium"));
    EXPECT_EQ(advanceOf(faces, "HelveticaNeue"), advanceIn("Roboto-Medium"));
    EXPECT_EQ(advanceOf(faces, "HelveticaNeue-Italic"), advanceIn("Roboto-Italic"));
    EXPECT_EQ(advanceOf(faces, "HelveticaNeue-CondensedBold"), advanceIn("RobotoCondensed-Bold"));
    EXPECT_NE(advanceIn("Roboto-Medium"), advanceIn("Roboto-Italic"));
    EXPECT_NE(advanceIn("Roboto-Italic"), advanceIn("RobotoCondensed-Bold"));
}

TEST(FaceLibrary, UnknownNameGetsTheSystemFace) {
    FaceLibrary faces;
    EXPECT_FALSE(faces.hasFace("Nobody-Regular"));
    EXPECT_EQ(&faces.face("Nobody-Regular"), &faces.face(FaceLibrary::systemFaceName));
}

TEST(FaceLibrary, IconFontHasEveryGlyph) {
    FaceLibrary faces;
    ASSERT_TRUE(faces.hasFace("QVM-Icons-Regular"));
    for (const std::string_view icon : icons::all) {
        const std::u32string character = charactersOfUtf8(icon);
        ASSERT_EQ(character.size(), 1u);
        EXPECT_FALSE(faces.face("QVM-Icons-Regular").glyph(character[0]).isMissing) << icon;
    }
}

TEST(FaceLibrary, MissingIconFontGivesTheMediumFaceAndALogLine) {
    std::vector<std::string> lines;
    const ScopedLogSink sink([&](const std::string& line) { lines.push_back(line); });
    const auto medium = BundleResources::current().find("Roboto-Medium", "ttf");
    const auto italic = BundleResources::current().find("Roboto-Italic", "ttf");
    const auto condensed = BundleResources::current().find("RobotoCondensed-Bold", "ttf");
    const ScopedBundleResources others(BundleResources({{"Roboto-Medium", "ttf", medium},
                                                        {"Roboto-Italic", "ttf", italic},
                                                        {"RobotoCondensed-Bold", "ttf", condensed}}));
    FaceLibrary faces;
    EXPECT_FALSE(faces.hasFace("QVM-Icons-Regular"));
    EXPECT_EQ(&faces.face("QVM-Icons-Regular"), &faces.face("HelveticaNeue-Medium"));
    EXPECT_EQ(lines, std::vector<std::string>{"fonts: no usable QVM-Icons-Regular.otf\n"}); // once
}

TEST(FaceLibrary, WithoutAnyFontThereIsStillAFace) {
    const ScopedLogSink sink([](const std::string&) {});
    const ScopedBundleResources none{BundleResources({})};
    FaceLibrary faces;
    EXPECT_FALSE(faces.hasFace("HelveticaNeue-Medium"));
    EXPECT_TRUE(faces.face("HelveticaNeue-Medium").glyph(U'a').outline.isEmpty());
}

TEST(FaceLibrary, FaceIsFoundOnce) {
    FaceLibrary faces;
    EXPECT_EQ(&faces.face("HelveticaNeue-Medium"), &faces.face("HelveticaNeue-Medium"));
}

} // namespace
} // namespace QVM_NAMESPACE
