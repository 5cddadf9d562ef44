#include "theme/QVMPalette.h"

#include "theme/Colors.h"
#include "theme/QVMUITheme.h"

#include <gtest/gtest.h>

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
    const Named texts[] = {{"heading", p.heading},
                           {"label", p.label},
                           {"value", p.value},
                           {"unit", p.unit},
                           {"note", p.note},
                           {"symbol", p.symbol},
                           {"textColor", theme().textColor}};
    const Named surfaces[] = {{"panel", p.panel},     {"sidePanel", p.sidePanel},
                              {"drawer", p.drawer},   {"drawerSelection", p.drawerSelection},
                              {"boxFill", p.boxFill}, {"boxFill under the pointer", composite(p.hover, p.boxFill)}};
    for (const Named& text : texts) {
        for (const Named& surface : surfaces) {
            EXPECT_GE(contrastRatio(text.color, surface.color), minimumTextContrast)
                << text.name << " on " << surface.name;
        }
    }
}

TEST_P(QVMPaletteOfTheme, SurfacesAndTextsAreOpaque) {
    const QVMPalette& p = palette();
    for (const Color& color : {p.panel, p.sidePanel, p.drawer, p.drawerSelection, p.trackFill, p.boxFill, p.heading,
                               p.label, p.value, p.unit, p.note, p.symbol, p.onAccent}) {
        EXPECT_FLOAT_EQ(color.a, 1.0f);
    }
}

TEST_P(QVMPaletteOfTheme, LinesAndMarksStandOutFromWhatTheyLieOn) {
    const QVMPalette& p = palette();
    EXPECT_NE(p.divider, p.panel);
    EXPECT_NE(p.trackBorder, p.trackFill);
    EXPECT_NE(p.boxBorder, p.boxFill);
    EXPECT_GE(contrastRatio(p.tick, p.panel), 3) << "scale marks are graphics: 3 to 1 is enough for them";
}

INSTANTIATE_TEST_SUITE_P(Both, QVMPaletteOfTheme, testing::Values(&QVMUITheme::light(), &QVMUITheme::dark()),
                         [](const auto& test) { return test.param->invertLabels ? "dark" : "light"; });

} // namespace
} // namespace QVM_NAMESPACE
