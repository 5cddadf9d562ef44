#include "theme/QVMPalette.h"

#include "theme/Colors.h"
#include "theme/QVMUITheme.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

struct Named {
    const char* name;
    Color color;
};

class QVMPaletteOfTheme : public testing::TestWithParam<const QVMUITheme*> {
protected:
    const QVMUITheme& theme() const { return *GetParam(); }
    const QVMPalette& palette() const { return theme().palette; }
};

TEST_P(QVMPaletteOfTheme, EveryTextIsLegibleOnEverySurface) {
    const QVMPalette& p = palette();
    const Named texts[] = {{"heading", theme().labelColorGivenInk(p.headingInk)},
                           {"label", theme().labelColorGivenInk(p.labelInk)},
                           {"unit", p.unit},
                           {"note", p.note},
                           {"textColor", theme().textColor}};
    const Named surfaces[] = {{"the ground", theme().backgroundColor},
                              {"sidePanel", p.sidePanel},
                              {"drawer", p.drawer},
                              {"a row under the pointer", composite(p.hover, p.drawer)},
                              {"boxFill", p.boxFill},
                              {"boxFill under the pointer", composite(p.hover, p.boxFill)}};
    for (const Named& text : texts) {
        for (const Named& surface : surfaces) {
            EXPECT_GE(contrastRatio(text.color, surface.color), minimumTextContrast)
                << text.name << " on " << surface.name;
        }
    }
}

TEST_P(QVMPaletteOfTheme, TheChosenRowsTextsAreLegibleOnIt) {
    for (const Color text : {theme().backgroundColor, theme().subtleTextColor})
        EXPECT_GE(contrastRatio(text, palette().drawerSelection), minimumTextContrast);
}

TEST_P(QVMPaletteOfTheme, GlyphsStandOutFromEverySurface) {
    for (const Color surface : {theme().backgroundColor, palette().sidePanel, palette().boxFill})
        EXPECT_GE(contrastRatio(theme().symbolColor, surface), 3);
    EXPECT_GE(contrastRatio(theme().symbolColor, palette().sidePanel), minimumTextContrast) << "the tools of the bar";
}

// So that what is legible on the drawer's colour is on its pattern as well.
TEST_P(QVMPaletteOfTheme, ThePatternHardlyLeavesTheDrawersColour) {
    const Color drawer = palette().drawer;
    for (const std::uint32_t pixel : theme().backgroundPattern->pixels) {
        const Color seen = colorFromHex(pixel & 0xFFFFFFu);
        ASSERT_EQ(pixel >> 24, 0xFFu);
        for (const float off : {seen.r - drawer.r, seen.g - drawer.g, seen.b - drawer.b})
            ASSERT_LE(std::abs(off), 6 / 255.0f);
    }
}

TEST_P(QVMPaletteOfTheme, SurfacesAndTextsAreOpaque) {
    const QVMPalette& p = palette();
    for (const Color& color : {p.sidePanel, p.drawer, p.drawerSelection, p.trackFill, p.boxFill, p.headingInk,
                               p.labelInk, p.unit, p.note, p.onAccent, p.glow, p.shade, p.litGround}) {
        EXPECT_FLOAT_EQ(color.a, 1.0f);
    }
}

TEST_P(QVMPaletteOfTheme, LinesAndMarksStandOutFromWhatTheyLieOn) {
    const QVMPalette& p = palette();
    EXPECT_NE(p.trackBorder, p.trackFill);
    EXPECT_NE(p.boxBorder, p.boxFill);
    EXPECT_GE(contrastRatio(p.tick, theme().backgroundColor), 3)
        << "scale marks are graphics: 3 to 1 is enough for them";
    for (const Color surface : {theme().backgroundColor, p.sidePanel, p.drawer})
        EXPECT_GE(contrastRatio(composite(theme().interiorBorderColor, surface), surface), 1.3);
}

TEST_P(QVMPaletteOfTheme, MenusAreOfTheThemesKind) {
    const bool isLight = contrastRatio(theme().backgroundColor, Color::white(0)) > 10;
    EXPECT_EQ(contrastRatio(palette().menu, Color::white(0)) > 10, isLight);
}

TEST_P(QVMPaletteOfTheme, MenusAreLegible) {
    const QVMPalette& p = palette();
    const Color behind = composite(p.menu, Color::white(1)), mark = composite(p.menuMark, behind);
    EXPECT_GE(contrastRatio(p.menuText, behind), minimumTextContrast);
    EXPECT_GE(contrastRatio(composite(p.menuHeading, behind), behind), minimumTextContrast);
    EXPECT_GE(contrastRatio(p.onAccent, mark), minimumTextContrast);
}

INSTANTIATE_TEST_SUITE_P(Both, QVMPaletteOfTheme, testing::Values(&QVMUITheme::light(), &QVMUITheme::dark()),
                         [](const auto& test) { return test.param->invertLabels ? "dark" : "light"; });

} // namespace
} // namespace QVM_NAMESPACE
