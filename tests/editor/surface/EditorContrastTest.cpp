// Whether everything that is written in the editor can be read on what it stands on, in both themes.
#include "editor/EditorFixture.h"

#include "editor/surface/OutlineView.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/layer/LayerGeometry.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"
#include "resources/IconGlyphs.h"
#include "theme/Colors.h"

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

constexpr double leastForIcons = 3, leastForDimmedValues = 3;
constexpr float faintAlpha = 0.5f; // an icon this faint says that its switch is off

// Follows a layer tree in the order in which it is painted and notes, for each text and each picture of a text, how far
// it stands out from the colours below its place. What is faded, as a layer or by its own colour, counts as inactive
// and is left out.
class LegibilityCheck {
public:
    struct Finding {
        std::string what;
        double ratio;
        double least;
    };

    void walk(const Layer& layer, const AffineTransform& toRoot, double opacity, Rect clip = everywhere) {
        if (layer.isHidden()) return;
        const PresentedLayer presented = layer.presentation();
        const double faint = opacity * presented.opacity;
        if (faint <= 0) return;
        const auto* const text = dynamic_cast<const TextLayer*>(&layer);
        const double seen = text ? std::max(faint, text->leastOpacity()) : faint;
        const Rect box = {0, 0, presented.bounds.width, presented.bounds.height};
        addGround(toRoot.apply(box), presented.backgroundColor, seen);
        if (layer.masksToBounds()) clip = clip.intersectionWith(toRoot.apply(box));
        const AffineTransform own = ownToBox(layer.yAxis(), presented.bounds).then(toRoot);
        if (const auto* shape = dynamic_cast<const ShapeLayer*>(&layer))
            addGround(own.apply(shape->path().bounds()), shape->fillColor(), seen);
        if (seen >= 1 && clip.contains(toRoot.apply(box).center())) note(layer, toRoot.apply(box));
        if (faint < seen) noteDimmed(layer, toRoot.apply(box), static_cast<float>(seen));
        for (const auto& sublayer : layer.tree().sublayers())
            walk(*sublayer,
                 boxToSuperBox(sublayer->presentation(), sublayer->anchorPoint(), layer.yAxis(), presented.bounds)
                     .then(toRoot),
                 seen, clip);
    }
    const std::vector<Finding>& findings() const { return findings_; }

private:
    static constexpr Rect everywhere = {-1e4, -1e4, 2e4, 2e4};
    struct Ground {
        Rect rect;
        Color color;
    };

    void addGround(const Rect& rect, Color color, double opacity) {
        if (color.a > 0 && !rect.isEmpty())
            grounds_.push_back({rect, color.withAlpha(color.a * static_cast<float>(opacity))});
    }
    Color groundAt(Point at) const {
        Color below = Color::white(0);
        for (const Ground& ground : grounds_)
            if (ground.rect.contains(at)) below = composite(ground.color, below);
        return below;
    }
    static bool isIcon(const TextRun& run) {
        return !isUnit(run) && run.text.starts_with('\xEE'); // the private characters of the icon font
    }
    static bool isUnit(const TextRun& run) { return run.text >= icons::dbPerOctave && run.text <= icons::percent; }
    void noteDimmed(const Layer& layer, const Rect& box, float opacity) {
        const auto* text = dynamic_cast<const TextLayer*>(&layer);
        if (!text) return;
        for (const TextRun& run : text->string().runs)
            if (!run.text.empty())
                note(layer.name() + " \"" + run.text + "\"", run.color.withAlpha(run.color.a * opacity), box.center(),
                     leastForDimmedValues);
    }
    void note(const Layer& layer, const Rect& box) {
        if (layer.contents() && layer.look().contentsTint().a > 0)
            note(layer.name(), layer.look().contentsTint(), box.center(), minimumTextContrast);
        const auto* text = dynamic_cast<const TextLayer*>(&layer);
        if (!text) return;
        constexpr double inside = 2;
        const double x = text->alignment() == TextAlignment::left    ? box.minX() + inside
                         : text->alignment() == TextAlignment::right ? box.maxX() - inside
                                                                     : box.midX();
        for (const TextRun& run : text->string().runs)
            if (!run.text.empty() && run.color.a > faintAlpha)
                note(layer.name() + " \"" + run.text + "\"", run.color, {x, box.midY()},
                     isIcon(run) ? leastForIcons : minimumTextContrast);
    }
    void note(std::string what, Color color, Point at, double least) {
        const Color below = groundAt(at);
        findings_.push_back({std::move(what), contrastRatio(composite(color, below), below), least});
    }

    std::vector<Ground> grounds_;
    std::vector<Finding> findings_;
};

enum class ThemeName : bool { light, dark };

class EditorContrast : public EditorFixture, public testing::WithParamInterface<ThemeName> {
protected:
    void SetUp() override {
        EditorFixture::SetUp();
        if (GetParam() == ThemeName::dark) ui_->toggleUITheme();
    }
    // Nothing dimmed: filters on.
    void turnEverythingOn() {
        hostSets(pidFilterRangeLow, GetParameter(pidFilterRangeLow)->reverseCastValue(80));
        hostSets(pidFilterRangeHigh, GetParameter(pidFilterRangeHigh)->reverseCastValue(9000));
        time_.advance(1);
    }
    std::vector<LegibilityCheck::Finding> findings() {
        LegibilityCheck check;
        check.walk(*ui_->layer(), {}, 1);
        return check.findings();
    }
    void expectLegible() {
        for (const auto& finding : findings())
            EXPECT_GE(finding.ratio, finding.least) << finding.what;
    }
};

TEST_P(EditorContrast, EverythingWrittenCanBeRead) {
    turnEverythingOn();
    ui_->gearTapped();
    time_.advance(1);
    std::string all;
    for (const auto& finding : findings())
        all += finding.what + ";";
    for (const char* seen :
         {"label:TILT", "label:RANGE", "Auto", "readout \"8\"", "12.0", "label:Slope", "+18", "-Inf"})
        EXPECT_NE(all.find(seen), std::string::npos) << seen << " is not among " << all;
    expectLegible();
}

TEST_P(EditorContrast, WhatIsSwitchedOnCanBeRead) {
    turnEverythingOn();
    ui_->gearTapped();
    for (const std::uint32_t pid : {13u, 20u, 23u})
        hostSets(pid, 1);
    time_.advance(1);
    expectLegible();
}

TEST_P(EditorContrast, ValuesUnderThePointerCanBeRead) {
    turnEverythingOn();
    for (const std::uint32_t pid : {1u, 2u, 3u, 7u, 9u, 10u}) {
        window_.sendEvent(mouseEvent(EventType::mouseMoved, middleOf(*control(pid).primaryControl())));
        time_.advance(1);
        expectLegible();
    }
}

TEST_P(EditorContrast, ValuesCanBeReadWithThePowerOffAndLittleElse) {
    turnEverythingOn();
    ui_->gearTapped();
    hostSets(pidMasterOnOff, 0);
    time_.advance(1);
    const auto found = findings();
    const auto isThere = [&](const char* what) {
        return std::ranges::any_of(found, [what](const auto& finding) { return finding.what == what; });
    };
    for (const char* value : {"readout \"0.\"", "readout \"8\"", "value \"Auto\"", "value \"12.0\""})
        EXPECT_TRUE(isThere(value)) << value;
    EXPECT_FALSE(isThere("mark 0 \"0\""));
    expectLegible();
}

TEST_P(EditorContrast, PresetsCanBeRead) {
    ui_->togglePresetsDrawer();
    time_.advance(1);
    for (const auto& [preset, note] :
         {std::pair{14u, "Typical large diaphragm condenser"}, std::pair{22u, "Tiny, modern cellphone loudspeaker"}}) {
        ui_->presetDrawer()->outline().select(preset);
        const auto found = findings();
        EXPECT_TRUE(std::any_of(found.begin(), found.end(), [sought = note](const auto& finding) {
            return finding.what.find(sought) != std::string::npos;
        })) << note;
        expectLegible();
    }
}

// The check itself: text on its own colour, and on a colour close to it, is found.
TEST_P(EditorContrast, FindsATextThatCannotBeRead) {
    auto text = std::make_shared<TextLayer>();
    text->setName("faint");
    text->setFrame({100, 100, 60, 20});
    text->setString({"faint", QVMUITheme::unitFontOfSize(12), QVMUITheme::theme().backgroundColor});
    ui_->clumpsView()->layer()->tree().add(text);
    const auto found = findings();
    const auto faint =
        std::find_if(found.begin(), found.end(), [](const auto& finding) { return finding.what == "faint \"faint\""; });
    ASSERT_NE(faint, found.end());
    EXPECT_LT(faint->ratio, faint->least);
}

INSTANTIATE_TEST_SUITE_P(Both, EditorContrast, testing::Values(ThemeName::light, ThemeName::dark),
                         [](const auto& which) { return which.param == ThemeName::light ? "Light" : "Dark"; });

} // namespace
} // namespace QVM_NAMESPACE
