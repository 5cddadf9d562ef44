#include "theme/QVMUITheme.h"

#include "platform/layer/TextMetrics.h"
#include "platform/runloop/NotificationCenter.h"
#include "platform/system/Log.h"
#include "platform/view/Window.h"
#include "resources/ScopedBundleResources.h"

#include <gtest/gtest.h>

#include <set>

namespace QVM_NAMESPACE {
namespace {

// Knows a set of faces and counts how often it is asked.
class FaceList final : public TextMetrics {
public:
    explicit FaceList(std::set<std::string> faces) : faces_(std::move(faces)) { install(this); }
    ~FaceList() override { install(nullptr); }
    double width(const AttributedString&) const override { return 0; }
    double ascent(const Font&) const override { return 0; }
    double descent(const Font&) const override { return 0; }
    bool hasFace(const std::string& face) const override {
        ++asked;
        return faces_.contains(face);
    }
    mutable int asked = 0;

private:
    std::set<std::string> faces_;
};

const std::set<std::string> kAllFaces = {"HelveticaNeue-Medium", "HelveticaNeue-CondensedBold", "HelveticaNeue-Italic"};

class QVMUIThemeToggling : public testing::Test {
protected:
    ~QVMUIThemeToggling() override {
        if (&QVMUITheme::theme() != &QVMUITheme::light()) QVMUITheme::toggleThemeForWindow(nullptr);
    }
};

TEST_F(QVMUIThemeToggling, StartsLight) {
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::light());
}

TEST_F(QVMUIThemeToggling, TogglingTwiceReturnsToTheLightTheme) {
    EXPECT_EQ(&QVMUITheme::toggleThemeForWindow(nullptr), &QVMUITheme::dark());
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::dark());
    EXPECT_EQ(&QVMUITheme::toggleThemeForWindow(nullptr), &QVMUITheme::light());
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::light());
}

TEST_F(QVMUIThemeToggling, PostsTheNotificationForTheWindowOnceTheNewThemeIsCurrent) {
    Window window, other;
    const QVMUITheme* seen = nullptr;
    int othersHeard = 0;
    auto& center = NotificationCenter::defaultCenter();
    const auto token = center.observe("QVMUIThemeUpdatedNotification", &window,
                                      [&](const Notification&) { seen = &QVMUITheme::theme(); });
    const auto otherToken =
        center.observe("QVMUIThemeUpdatedNotification", &other, [&](const Notification&) { ++othersHeard; });
    QVMUITheme::toggleThemeForWindow(&window);
    EXPECT_EQ(seen, &QVMUITheme::dark());
    EXPECT_EQ(othersHeard, 0);
}

TEST(QVMUITheme, LightHasItsColours) {
    const QVMUITheme& light = QVMUITheme::light();
    EXPECT_EQ(light.textColor, Color::white(0.1f));
    EXPECT_EQ(light.subtleTextColor, Color::white(0.75f));
    EXPECT_EQ(light.symbolColor, Color::white(0.2f));
    EXPECT_EQ(light.backgroundColor, Color::white(1));
    EXPECT_EQ(light.interiorBorderColor, Color::white(0, 0.2f));
    EXPECT_TRUE(light.useSpecifiedForeground);
    EXPECT_FALSE(light.invertLabels);
    EXPECT_TRUE(light.backgroundPattern);
}

TEST(QVMUITheme, DarkHasItsColours) {
    const QVMUITheme& dark = QVMUITheme::dark();
    EXPECT_EQ(dark.textColor, Color::white(1));
    EXPECT_EQ(dark.subtleTextColor, Color::white(0.2f));
    EXPECT_EQ(dark.symbolColor, Color::white(0.5f));
    EXPECT_EQ(dark.backgroundColor, Color::white(0));
    EXPECT_EQ(dark.interiorBorderColor, Color::white(1, 0.3f));
    EXPECT_TRUE(dark.useSpecifiedForeground);
    EXPECT_TRUE(dark.invertLabels);
    EXPECT_TRUE(dark.backgroundPattern);
}

TEST(QVMUITheme, EachHasItsOwnPattern) {
    const auto named = [](const char* name) { return *Image::fromPng(BundleResources::current().find(name, "png")); };
    EXPECT_EQ(QVMUITheme::light().backgroundPattern->pixels, named("noised-ottoman").pixels);
    EXPECT_EQ(QVMUITheme::dark().backgroundPattern->pixels, named("noise_dark").pixels);
}

TEST(QVMUITheme, LabelsAreInvertedWhereTheThemeSaysSo) {
    const Color ink = {0.1f, 0.2f, 0.3f, 0.5f};
    EXPECT_EQ(QVMUITheme::light().labelColorGivenInk(ink), ink);
    EXPECT_EQ(QVMUITheme::dark().labelColorGivenInk(ink), (Color{0.9f, 0.8f, 0.7f, 0.5f}));
}

TEST(QVMUITheme, ForegroundIsTheSpecifiedColourUnlessTheThemeForbidsIt) {
    QVMUITheme theme = QVMUITheme::light();
    const Color red = colorFromHex(0xFF0000);
    EXPECT_EQ(theme.foregroundGivenSpecified(red), red);
    theme.useSpecifiedForeground = false;
    EXPECT_EQ(theme.foregroundGivenSpecified(red), theme.textColor);
}

TEST(QVMUITheme, AMissingIconFontFileYieldsTheValueFontAtTheSameSize) {
    const FaceList faces(kAllFaces);
    const ScopedBundleResources nothing{BundleResources({})};
    std::vector<std::string> lines;
    const ScopedLogSink sink([&](const std::string& line) { lines.push_back(line); });
    EXPECT_EQ(QVMUITheme::iconFontOfSize(22), (Font{"HelveticaNeue-Medium", 22}));
    EXPECT_EQ(ExternalFontNamed("QVM-Icons-Regular", 9), (Font{"HelveticaNeue-Medium", 9}));
    ASSERT_EQ(lines.size(), 1u) << "logged, and logged once";
    EXPECT_NE(lines[0].find("QVM-Icons-Regular"), std::string::npos);
}

TEST(QVMUITheme, TheIconFontComesFromTheResources) {
    EXPECT_EQ(QVMUITheme::iconFontOfSize(9), (Font{"QVM-Icons-Regular", 9}));
    EXPECT_EQ(QVMUITheme::theme().iconFont, (Font{"QVM-Icons-Regular", 22}));
}

TEST(QVMUITheme, ANamedFontThatIsNowhereFoundIsTheSystemFont) {
    const FaceList faces(kAllFaces);
    EXPECT_EQ(QVMUITheme::safeFontWithNameSize("HelveticaNeue-Italic", 9), (Font{"HelveticaNeue-Italic", 9}));
    const Font fallback = QVMUITheme::safeFontWithNameSize("NoSuch-Face", 9);
    EXPECT_NE(fallback.face, "NoSuch-Face");
    EXPECT_EQ(fallback.pointSize, 9);
}

TEST(QVMUITheme, UnitsAreCondensedBoldAndNotesItalic) {
    const FaceList faces(kAllFaces);
    EXPECT_EQ(QVMUITheme::unitFontOfSize(12), (Font{"HelveticaNeue-CondensedBold", 12}));
    EXPECT_EQ(QVMUITheme::unitFontOfSize(11), (Font{"HelveticaNeue-CondensedBold", 11}));
    EXPECT_EQ(QVMUITheme::italicFontOfSize(9), (Font{"HelveticaNeue-Italic", 9}));
}

TEST(QVMUITheme, TextIsSetInTheValueFontAndGlyphsInTheIconFont) {
    const FaceList faces(kAllFaces);
    const auto font = QVMUITheme::appropriateFontForValueSizeIconSize;
    EXPECT_EQ(font("-12.5", 16, 22), (Font{"HelveticaNeue-Medium", 16}));
    EXPECT_EQ(font("\uE101", 16, 22), (Font{"QVM-Icons-Regular", 22}));
    EXPECT_EQ(font("\uE101", 16, 0), (Font{"QVM-Icons-Regular", 16}));
    EXPECT_EQ(font("", 16, 22), (Font{"HelveticaNeue-Medium", 16}));
}

TEST(QVMUITheme, OnlySizes10And14And16AreCached) {
    const FaceList faces(kAllFaces);
    QVMUITheme::theme(); // fills the cache
    faces.asked = 0;
    for (const double size : {10.0, 14.0, 16.0})
        QVMUITheme::appropriateFontForValueSizeIconSize("1", size, 0);
    EXPECT_EQ(faces.asked, 0);
    for (int i = 0; i < 2; ++i)
        QVMUITheme::appropriateFontForValueSizeIconSize("1", 12, 0);
    EXPECT_EQ(faces.asked, 2) << "made anew each time";
}

TEST(QVMUITheme, TheTwelvePointUnitFontIsCached) {
    const FaceList faces(kAllFaces);
    QVMUITheme::theme();
    faces.asked = 0;
    QVMUITheme::unitFontOfSize(12);
    EXPECT_EQ(faces.asked, 0);
}

TEST(QVMUITheme, ThePicturesThatBelongToNoThemeAreThere) {
    EXPECT_TRUE(QVMUITheme::newBackgroundPattern());
    EXPECT_TRUE(QVMUITheme::staticBackgroundImage());
}

} // namespace
} // namespace QVM_NAMESPACE
