// Whether the theme is the only source of what the editor is drawn in.
#include "editor/EditorFixture.h"

#include "editor/surface/OutlineView.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"
#include "theme/Radii.h"
#include "theme/ScopedTheme.h"

#include <algorithm>
#include <functional>

namespace QVM_NAMESPACE {
namespace {

struct DrawnColor {
    std::string where; // the names of the layers down to it, and what of the last one is drawn in it
    Color color;
    bool operator==(const DrawnColor&) const = default;
};

void PrintTo(const DrawnColor& drawn, std::ostream* out) {
    const Color c = drawn.color;
    *out << drawn.where << " (" << c.r << ' ' << c.g << ' ' << c.b << ' ' << c.a << ')';
}

// Every colour in a layer tree, also of what is hidden for the time being; a band's handle is for ever.
void collect(const Layer& layer, const std::string& above, std::vector<DrawnColor>& all) {
    if (layer.isHidden() && layer.name() == "readoutBulb") return;
    const auto* text = dynamic_cast<const TextLayer*>(&layer);
    const std::string path = above + "/" + (layer.name().empty() && text ? text->string().string() : layer.name());
    const auto add = [&](const char* what, Color color) {
        if (!(color.a > 0)) return;
        DrawnColor drawn{path + " " + what, color};
        if (all.empty() || all.back() != drawn) all.push_back(std::move(drawn)); // a text may have more runs or fewer
    };
    add("background", layer.look().backgroundColor());
    if (layer.look().borderWidth() > 0) add("border", layer.look().borderColor());
    if (layer.look().shadow().opacity > 0) add("shadow", layer.look().shadow().color);
    add("tint", layer.look().contentsTint());
    if (const auto* shape = dynamic_cast<const ShapeLayer*>(&layer)) {
        add("fill", shape->fillColor());
        add("stroke", shape->strokeColor());
    }
    if (text)
        for (const TextRun& run : text->string().runs)
            if (!run.text.empty()) add("text", run.color);
    for (const auto& sublayer : layer.tree().sublayers())
        collect(*sublayer, path, all);
}

// A theme of greens, in which nothing is grey: what is, or is of another colour, does not come from it. Each field has
// a colour of its own. Texts are light and grounds dark, so that none has to be moved to be legible.
class Greens {
public:
    QVMUITheme theme() {
        QVMUITheme made = QVMUITheme::dark();
        made.textColor = light();
        made.subtleTextColor = dark();
        made.symbolColor = light();
        made.backgroundColor = dark();
        made.interiorBorderColor = light().withAlpha(0.3f);
        made.invertLabels = false;
        QVMPalette& p = made.palette;
        for (Color* each : {&p.sidePanel, &p.drawer, &p.trackFill, &p.boxFill, &p.trackBorder, &p.boxBorder,
                            &p.pillBorder, &p.shade, &p.litGround})
            *each = dark();
        for (Color* each : {&p.drawerSelection, &p.tick, &p.unit, &p.note, &p.headingInk, &p.labelInk, &p.onAccent,
                            &p.glow, &p.meterBar, &p.meterClip})
            *each = light();
        p.hover = light().withAlpha(0.1f);
        return made;
    }
    Color accent() { return {0, 0.2f, next() / 4, 1}; }
    static bool made(Color color) { return color.r + 0.01f < std::max(color.g, color.b); }

private:
    float next() { return static_cast<float>(++count_) / 64; }
    Color dark() { return {0, 0.1f, next() / 10, 1}; }
    Color light() { return {0.6f, 1, next(), 1}; }
    int count_ = 0;
};

class EditorTheme : public EditorFixture {
protected:
    static constexpr std::uint32_t presetWithNote = 14;

    // Every part there is, made once: the drawers are open, the filters on.
    void openEverything() {
        hostSets(pidFilterRangeLow, GetParameter(pidFilterRangeLow)->reverseCastValue(80));
        hostSets(pidFilterRangeHigh, GetParameter(pidFilterRangeHigh)->reverseCastValue(9000));
        ui_->gearTapped();
        ui_->presetDrawer()->toggleVisibility();
        ui_->presetDrawer()->outline().select(presetWithNote);
        frames(1.5);
        control(pidTiltGain).setFocused(true);
    }
    // An editor that is opened while the present theme is in force.
    std::vector<DrawnColor> openedNow() {
        open(QVMConfig::inlinedConfig());
        openEverything();
        return drawn();
    }
    std::vector<DrawnColor> drawn() const {
        std::vector<DrawnColor> all;
        collect(*ui_->layer(), "", all);
        return all;
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

// The description's colours are green here as well; the product's alone is its own, or is moved towards what it has to
// stand out from.
class EditorInGreen : public EditorTheme {
protected:
    void SetUp() override {
        for (QVMParameter* parameter : described()) {
            const Color accent = greens_.accent();
            colors_.push_back(std::exchange(parameter->color, {accent.r, accent.g, accent.b, 1}));
        }
        scoped_.emplace(greens_.theme());
        EditorTheme::SetUp();
        openEverything();
    }
    void TearDown() override {
        EditorTheme::TearDown();
        scoped_.reset();
        const std::vector<QVMParameter*> parameters = described();
        for (std::size_t i = 0; i < parameters.size(); ++i)
            parameters[i]->color = colors_[i];
    }
    static std::vector<QVMParameter*> described() {
        std::vector<QVMParameter*> all = {GetPresets()};
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            all.push_back(GetParameter(pid));
        return all;
    }
    // Whether it is the product's colour, or that moved towards white, black or the theme's shade.
    static bool isTheProducts(Color color) {
        const Color product = QVMCGColor(GetMetadata()->color), shade = QVMUITheme::theme().palette.shade;
        const auto isNear = [&color](Color there) {
            return std::max({std::abs(color.r - there.r), std::abs(color.g - there.g), std::abs(color.b - there.b)}) <
                   1.0f / 256;
        };
        for (int step = 0; step <= 256; ++step)
            if (isNear(product.mixedWith(shade, static_cast<float>(step) / 256))) return true;
        const float share = (color.r - color.g) / (product.r - product.g), white = color.g - share * product.g;
        const float blue = share * product.b + white;
        return share > 0.02f && white > -0.01f && share + white < 1.01f && isNear({color.r, color.g, blue, 1});
    }
    std::vector<DrawnColor> strangers() const {
        std::vector<DrawnColor> found = drawn();
        std::erase_if(found,
                      [](const DrawnColor& each) { return Greens::made(each.color) || isTheProducts(each.color); });
        return found;
    }

private:
    Greens greens_;
    std::optional<ScopedTheme> scoped_;
    std::vector<QVMColor> colors_;
};

TEST_F(EditorInGreen, NothingIsDrawnInAColourOfItsOwn) {
    EXPECT_GT(drawn().size(), 150u);
    EXPECT_EQ(strangers(), std::vector<DrawnColor>{});
}

TEST_F(EditorInGreen, FindsAColourOfItsOwn) {
    for (const Color color : {Color::white(1), Color::white(0, 0.3f), colorFromHex(0x71343A)}) {
        auto stranger = std::make_shared<Layer>();
        stranger->look().setBackgroundColor(color);
        const std::size_t others = strangers().size();
        ui_->layer()->tree().add(stranger);
        EXPECT_EQ(strangers().size(), others + 1);
        stranger->tree().removeFromSuperlayer();
    }
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
