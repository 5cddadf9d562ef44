#include "editor/surface/QVMPresetBar.h"

#include "controls/QVMParameterControl.h"
#include "controls/QVMSymbolButton.h"
#include "editor/surface/BorderRect.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMABControl.h"
#include "editor/surface/QVMPresetControl.h"
#include "editor/surface/ToolTips.h"
#include "resources/IconGlyphs.h"

#include <string>

namespace QVM_NAMESPACE {

namespace {

constexpr Rect undoFrame = {18, 1, 27, 27}, redoFrame = {46, 1, 27, 27};
constexpr double toolGlyphSize = 22;    // points
constexpr double restingContrast = 2.1; // of a tool that cannot be used now

// The alpha with which a colour stands out that much from a ground.
float faintest(Color color, Color ground) {
    constexpr float step = 0.01f;
    float alpha = 0;
    while (alpha < 1 && contrastRatio(composite(color.withAlpha(alpha), ground), ground) < restingContrast)
        alpha += step;
    return alpha;
}

} // namespace

QVMPresetBar::QVMPresetBar(const Rect& frame, const QVMParameter* presets) : ThemedView(frame) {
    layer()->setName("presetBar");
    edge_ = std::make_shared<Layer>();
    edge_->setName("edge");
    edge_->setFrame(QVMBorderRectWithBorderSpec(bounds(), {.edge = QVMEdge::bottom}));
    layer()->tree().add(edge_);

    const QVMEditorLayout& layout = EditorLayoutForAltFrame(QVMAltFrameNormal);
    if (presets) {
        presetControl_ = &addSubview(
            std::make_unique<QVMParameterControl>(layout.presetControl, presets, presets->initialValue,
                                                  &makeFloatControl<QVMPresetControl>, presets->controlFrame));
        presetControl_->layer()->setName("presetControl");
        presetControl_->setToolTip(toolTipOf(Button::presets));
    }
    ab_ = &addSubview(std::make_unique<QVMABControl>(layout.abControl));

    const Color color = QVMUITheme::theme().symbolColor;
    undo_ = &addSubview(std::make_unique<QVMSymbolButton>(undoFrame, std::string(icons::undo), toolGlyphSize, color));
    undo_->layer()->setName("undoButton");
    undo_->setToolTip(toolTipOf(Button::undo));
    redo_ = &addSubview(std::make_unique<QVMSymbolButton>(redoFrame, std::string(icons::redo), toolGlyphSize, color));
    redo_->layer()->setName("redoButton");
    redo_->setToolTip(toolTipOf(Button::redo));
    QVMPresetBar::themeUpdated();
}

void QVMPresetBar::setDirty(bool dirty) {
    if (dirty == dirty_) return;
    dirty_ = dirty;
    auto* name = presetControl_ ? dynamic_cast<QVMCycleControl*>(presetControl_->primaryControl()) : nullptr;
    if (name) name->setInaccurate(dirty);
}

void QVMPresetBar::themeUpdated() {
    const QVMUITheme& theme = QVMUITheme::theme();
    layer()->look().setBackgroundColor(theme.palette.sidePanel);
    edge_->look().setBackgroundColor(theme.interiorBorderColor);
    const float resting = faintest(theme.symbolColor, theme.palette.sidePanel);
    for (QVMSymbolButton* const tool : {undo_, redo_}) {
        tool->resetGlyphColor(tool->symbol(), theme.symbolColor);
        tool->setRestingAlpha(resting);
    }
}

} // namespace QVM_NAMESPACE
