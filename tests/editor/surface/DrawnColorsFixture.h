// Every colour that an editor is drawn in, and a theme that is told apart from all others.
#pragma once

#include "editor/EditorFixture.h"

#include "editor/surface/OutlineView.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"

#include <algorithm>

namespace QVM_NAMESPACE {

struct DrawnColor {
    std::string where; // the names of the layers down to it, and what of the last one is drawn in it
    Color color;
    bool operator==(const DrawnColor&) const = default;
};

inline void PrintTo(const DrawnColor& drawn, std::ostream* out) {
    const Color c = drawn.color;
    *out << drawn.where << " (" << c.r << ' ' << c.g << ' ' << c.b << ' ' << c.a << ')';
}

// Every colour in a layer tree, also of what is hidden for the time being; a band's handle is for ever.
inline void collect(const Layer& layer, const std::string& above, std::vector<DrawnColor>& all) {
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

class DrawnColorsFixture : public EditorFixture {
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
    std::vector<DrawnColor> drawn() const {
        std::vector<DrawnColor> all;
        collect(*ui_->layer(), "", all);
        return all;
    }
};

} // namespace QVM_NAMESPACE
