// Whether the theme is the only source of what the editor is drawn in.
#include "editor/surface/DrawnColorsFixture.h"

#include "theme/Radii.h"
#include "theme/ScopedTheme.h"

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

class EditorTheme : public DrawnColorsFixture {
protected:
    // An editor that is opened while the present theme is in force.
    std::vector<DrawnColor> openedNow() {
        open(QVMConfig::inlinedConfig());
        openEverything();
        return drawn();
    }
    static void expectSame(const std::vector<DrawnColor>& drawn, const std::vector<DrawnColor>& expected) {
        for (const DrawnColor& each : drawn)
            EXPECT_TRUE(std::ranges::count(expected, each)) << testing::PrintToString(each) << " is drawn";
        for (const DrawnColor& each : expected)
            EXPECT_TRUE(std::ranges::count(drawn, each)) << testing::PrintToString(each) << " is missing";
    }
    // The colours of what has these names somewhere on its way down and ends in the last of them.
    std::vector<Color> colorsOf(std::initializer_list<std::string> names) const {
        std::vector<Color> found;
        for (const DrawnColor& each : drawn()) {
            std::size_t at = 0;
            const bool isThere = std::ranges::all_of(names, [&](const std::string& name) {
                at = each.where.find("/" + name, at);
                return at != std::string::npos;
            });
            if (isThere && each.where.ends_with(*(names.end() - 1))) found.push_back(each.color);
        }
        return found;
    }
    void expectDrawnIn(Color color, std::initializer_list<std::string> names) const {
        const std::vector<Color> found = colorsOf(names);
        EXPECT_FALSE(found.empty()) << "nothing is named " << *(names.end() - 1);
        for (const Color each : found)
            EXPECT_EQ(each, color) << *(names.end() - 1);
    }
    void expectRoles(const QVMUITheme& theme) const {
        const QVMPalette& p = theme.palette;
        const auto label = [&theme](Color ink) { return theme.invertLabels ? ink.inverted() : ink; };
        expectDrawnIn(theme.backgroundColor, {"clumpsView background"});
        expectDrawnIn(theme.backgroundColor, {"panel:Tilt background"});
        expectDrawnIn(p.sidePanel, {"presetBar background"});
        expectDrawnIn(p.sidePanel, {"panel:Output background"});
        expectDrawnIn(p.drawer, {"drawerBackdrop background"});
        expectDrawnIn(p.drawer, {"advClumpsView background"});
        expectDrawnIn(theme.interiorBorderColor, {"clumpsView", "divider background"});
        expectDrawnIn(theme.interiorBorderColor, {"advClumpsView", "divider background"});
        expectDrawnIn(theme.interiorBorderColor, {"advClumpsView", "interiorBorder background"});
        expectDrawnIn(theme.interiorBorderColor, {"presetBar", "edge background"});
        expectDrawnIn(theme.interiorBorderColor, {"presetControl", "divider background"});
        expectDrawnIn(theme.textColor, {"presetControl", "value text"});
        expectDrawnIn(theme.textColor, {"control:FilterSlopeLow", "value text"});
        expectDrawnIn(theme.textColor, {"presetsDrawer", "Air text"});
        expectDrawnIn(theme.symbolColor, {"undoButton", "glyph text"});
        expectDrawnIn(theme.symbolColor, {"redoButton", "glyph text"});
        expectDrawnIn(theme.symbolColor, {"presetControl", "incArrow text"});
        expectDrawnIn(theme.symbolColor, {"presetControl", "decArrow text"});
        expectDrawnIn(theme.symbolColor, {"arrowButton", "glyph text"});
        expectDrawnIn(p.drawerSelection, {"selectionMark background"});
        expectDrawnIn(theme.backgroundColor, {"presetsDrawer", "Berlin Condenser text"});
        expectDrawnIn(theme.subtleTextColor, {"presetsDrawer", "Typical large diaphragm condenser text"});
        expectDrawnIn(p.note, {"presetsDrawer", "Cheap dynamic microphone text"});
        expectDrawnIn(label(p.labelInk), {"label:RANGE text"});
        expectDrawnIn(label(p.labelInk), {"label:Slope tint"});
        expectDrawnIn(label(p.labelInk), {"mark -12 text"});
        expectDrawnIn(label(p.headingInk), {"label:FILTER tint"});
        EXPECT_EQ(layerNamed(*ui_->layer(), "drawerBackdrop")->look().backgroundPattern(), theme.backgroundPattern);
        EXPECT_EQ(layerNamed(*ui_->layer(), "advClumpsView")->look().backgroundPattern(), theme.backgroundPattern);
    }
    static const Layer* layerNamed(const Layer& layer, const std::string& name) {
        if (layer.name() == name) return &layer;
        for (const auto& sublayer : layer.tree().sublayers())
            if (const Layer* found = layerNamed(*sublayer, name)) return found;
        return nullptr;
    }
};

TEST_F(EditorTheme, BothThemesColoursAreWhatIsDrawn) {
    openEverything();
    expectRoles(QVMUITheme::light());
    ui_->toggleUITheme();
    expectRoles(QVMUITheme::dark());
}

TEST_F(EditorTheme, AThemesEveryFieldIsWhatIsDrawn) {
    openEverything();
    Greens greens;
    QVMUITheme theme = greens.theme();
    theme.backgroundPattern = std::make_shared<Image>(*QVMUITheme::light().backgroundPattern);
    const ScopedTheme scoped(theme);
    expectRoles(theme);
    theme.invertLabels = true;
    const ScopedTheme inverting(theme);
    expectRoles(theme);
}

TEST_F(EditorTheme, AHeadingInItsOwnColourAsksTheTheme) {
    QVMUITheme theme = QVMUITheme::light();
    theme.textColor = {0, 0.2f, 0, 1};
    const Color own = colorsOf({"label:TILT tint"}).at(0);
    EXPECT_NE(own, theme.textColor);
    theme.useSpecifiedForeground = false;
    const ScopedTheme scoped(theme);
    expectDrawnIn(theme.textColor, {"label:TILT tint"});
}

TEST_F(EditorTheme, AThemeSwitchedToLooksLikeOneOpenedIn) {
    openEverything();
    ui_->toggleUITheme();
    frames(1);
    const std::vector<DrawnColor> switchedTo = drawn();
    expectSame(switchedTo, openedNow());
}

TEST_F(EditorTheme, EveryColourFollowsAChangeOfTheTheme) {
    Greens greens;
    const QVMUITheme theme = greens.theme();
    openEverything();
    const std::vector<DrawnColor> before = drawn();
    std::vector<DrawnColor> switchedTo;
    {
        const ScopedTheme scoped(theme);
        frames(1);
        switchedTo = drawn();
        frames(1);
    }
    frames(1);
    expectSame(drawn(), before);
    const ScopedTheme scoped(theme);
    expectSame(switchedTo, openedNow());
}

// Corners are square, those of a capsule, or of one short scale.
TEST_F(EditorTheme, CornersAreOfOneShortScale) {
    openEverything();
    std::vector<const Layer*> open = {ui_->layer().get()};
    std::size_t round = 0;
    while (!open.empty()) {
        const Layer& layer = *open.back();
        open.pop_back();
        for (const auto& sublayer : layer.tree().sublayers())
            open.push_back(sublayer.get());
        const double radius = layer.look().cornerRadius(), side = std::min(layer.bounds().width, layer.bounds().height);
        if (radius == 0 || side == 0) continue;
        ++round;
        EXPECT_TRUE(radius == radii::box || radius == radii::mark || std::abs(radius - side / 2) < 0.01)
            << layer.name() << ": " << radius << " of " << side;
    }
    EXPECT_GT(round, 20u);
}

} // namespace
} // namespace QVM_NAMESPACE
