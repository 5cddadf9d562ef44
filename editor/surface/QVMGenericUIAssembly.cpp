// How the editor builds itself from the configuration.
#include "controls/QVMMeterButton.h"
#include "controls/QVMRangeControl.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/FrameButton.h"
#include "editor/surface/NumericMeterReading.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMInsetShadowBox.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double bandThickness = 14, bandDrop = 1;          // points
constexpr double meterGlyphSize = 12, meterSuffixSize = 10; // points
constexpr double meterShadowDrop = 2;                       // points
constexpr float meterAlpha = 0.7f;

// The band of a low/high pair: as wide as both controls together, centred on them, and a little lower.
Rect bandFrame(const Rect& low, const Rect& high) {
    const Rect both = low.unionWith(high);
    const double thickness = std::min(both.height, bandThickness);
    return {both.x, both.midY() - thickness / 2 + bandDrop, both.width, thickness};
}

} // namespace

void QVMGenericUI::addPowerBox() {
    if (powerBox_) return;
    const auto advanced = config_->hasAdvancedControls() ? AdvancedControls::yes : AdvancedControls::no;
    powerBox_ = &addSubview(std::make_unique<QVMPowerBox>(EditorLayoutForAltFrame(QVMAltFrameNormal).powerBox, advanced,
                                                          *config_->metadata));
    powerBox_->logo().setAction([this](Control&) { logoTapped(); });
    if (QVMSymbolButton* gear = powerBox_->gear()) gear->setAction([this](Control&) { gearTapped(); });
}

void QVMGenericUI::addFrameButton() {
    if (frameButton_ || !powerBox_) return;
    frameButton_ = &addSubview(std::make_unique<FrameButton>());
    frameButton_->setAction([this](Control&) { toggleFrame(); });
    powerBox_->setFrameToggle([this] { toggleFrame(); });
    powerBox_->setHoverHandler([this](bool isInside) { frameButton_->setPointerNear(isInside); });
    layOutFrameButton();
}

void QVMGenericUI::addClumpsView() {
    if (clumpsView_) return;
    clumpsView_ =
        &addSubview(std::make_unique<QVMClumpsView>(EditorLayoutForAltFrame(QVMAltFrameNormal).clumpsView, *config_));
    clumpsView_->setDrawOutsideBorder(false);
}

void QVMGenericUI::addPresetBar() {
    if (presetBar_) return;
    presetBar_ = &addSubview(
        std::make_unique<QVMPresetBar>(EditorLayoutForAltFrame(QVMAltFrameNormal).presetBar, config_->presets));
    if (QVMParameterControl* presets = presetBar_->presetControl()) {
        presets->setAction([this](Control&) { presetUpdated(); });
        presets->setDelegate(this);
    }
    presetBar_->ab().setABDelegate(this);
    presetBar_->undo().setAction([this](Control&) { keyboard_.keyboardShortcutUndo(); });
    presetBar_->redo().setAction([this](Control&) { keyboard_.keyboardShortcutRedo(); });
}

void QVMGenericUI::addPresetDrawer() {
    if (presetDrawer_ || !presetBar_ || !config_->presets) return;
    const Rect frame = EditorLayoutForAltFrame(QVMAltFrameNormal).clumpsView;
    presetDrawer_ = &static_cast<QVMPresetsDrawer&>(addDrawer(std::make_unique<QVMPresetsDrawer>(frame, *config_)));
    presetDrawer_->setPresetControl(presetBar_->presetControl());
    presetDrawer_->setMiniatureDelegate(this);
    presetDrawer_->setAnimatesVisibility(false);
}

void QVMGenericUI::addAndRegisterParameterControls() {
    if (!parameterControls_.empty()) return;
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(QVMAltFrameNormal);
    parameterControls_.reserve(static_cast<std::size_t>(config_->numParameters));
    config_->enumerateClumpsOfType(QVMClumpTypeOrdinary,
                                   [this](QVMClump& clump) { addClumpView(clump, clump.frame, *clumpsView_); });
    if (config_->hasAdvancedControls()) {
        advClumpsView_ =
            &addSubview(std::make_unique<QVMClumpsView>(layout.advClumpsView, *config_, ClumpsArea::advanced));
        config_->enumerateClumpsOfType(QVMClumpTypeAdvanced,
                                       [this](QVMClump& clump) { addClumpView(clump, clump.frame, *advClumpsView_); });
        advClumpsView_->setHidden(true); // until its layout is assumed
    }
    const std::vector<QVMClump*> masters = config_->clumpsOfType(QVMClumpTypeMaster);
    if (!masters.empty()) masterClump_ = &addClumpView(*masters.front(), layout.powerBox, *this);
}

QVMClumpView& QVMGenericUI::addClumpView(QVMClump& clump, const Rect& frame, View& container) {
    QVMClumpView& clumpView = container.addSubview(std::make_unique<QVMClumpView>(frame, clump));
    addParameterControlsForClump(clump, clumpView);
    return clumpView;
}

void QVMGenericUI::addParameterControlsForClump(QVMClump& clump, QVMClumpView& clumpView) {
    std::vector<std::unique_ptr<QVMParameterControl>> displaced;
    ControlList controls;
    for (const QVMParameter* parameter : clump.parameters) {
        if (parameter->hidden || parameter->frame.isEmpty()) continue;
        auto made = std::make_unique<QVMParameterControl>(parameter->frame, Rect{}, parameter,
                                                          getMemoizedPValueDirectly(parameter->pid));
        made->layer()->setName("control:" + parameter->codesafeName);
        made->setClumpView(&clumpView);
        controls.push_back(made.get());
        if (parameter->isDisplaced)
            displaced.push_back(std::move(made));
        else
            clumpView.addSubview(std::move(made));
    }
    registerParameterControls(controls, clumpView);
    View& around = clump.clumpType == QVMClumpTypeAdvanced ? *advClumpsView_ : *clumpsView_;
    for (auto& control : displaced)
        around.addSubview(std::move(control));
}

void QVMGenericUI::registerParameterControls(const ControlList& controls, QVMClumpView& clumpView) {
    parameterControls_.insert(parameterControls_.end(), controls.begin(), controls.end());
    for (QVMParameterControl* control : controls) {
        control->setAction([this, control](Control&) { handleParameterControlUpdated(*control); });
        control->setDelegate(this);
    }
    for (QVMParameterControl* high : controls) {
        const std::string& partner = high->parameter()->rangeWith;
        QVMParameterControl* low = partner.empty() ? nullptr : parameterControlWithCodename(partner);
        if (low) addRangeControls(*low, *high, clumpView);
    }
}

// Two controls on one band: one above the handles to be dragged, and one below them that draws it.
void QVMGenericUI::addRangeControls(QVMParameterControl& low, QVMParameterControl& high, QVMClumpView& clumpView) {
    const Rect band = bandFrame(low.frame(), high.frame());
    const auto make = [&](bool interactive) {
        auto range = std::make_unique<QVMRangeControl>(band, Rect{}, high.parameter(), high.floatValue());
        range->layer()->setName((interactive ? "range:" : "band:") + high.parameter()->clumpName);
        range->setDelegate(this);
        range->setLow(&low);
        range->setHigh(&high);
        range->setInteractive(interactive);
        return range;
    };
    QVMRangeControl& upper = clumpView.addSubview(make(true));
    QVMRangeControl& lower = clumpView.addSubview(make(false), Order::below, clumpView.subviews().front().get());
    low.setRange(&upper);
    high.setRange(&upper);
    upper.updateRangeAnimated(Animate::no);
    lower.updateRangeAnimated(Animate::no);
}

void QVMGenericUI::addHudAndNumericMeter() {
    if (hud_) return;
    hud_ = &addSubview(std::make_unique<QVMHUDDisplay>(Rect{}, session_.values().memoized()));
    hud_->setDelegate(this);
    if (!config_->metadata->numericMeter) return;
    // Its frame is empty until whoever draws the sketch finds a place for it.
    powerBox_->addSubview(std::make_unique<QVMInsetShadowBox>(Rect{0, meterShadowDrop, 0, 0}));
    const Color color = QVMUITheme::theme().palette.onAccent.withAlpha(meterAlpha);
    numericMeter_ = &powerBox_->addSubview(std::make_unique<QVMMeterButton>(Rect{}, "", meterGlyphSize, color));
    numericMeter_->setAction([this](Control&) { meterTapped(); });
    numericMeter_->setToolTip(config_->metadata->numericMeter->tooltip);
    numericMeter_->setSuffixSize(meterSuffixSize);
    numericMeterReading_ = std::make_unique<NumericMeterReading>(*numericMeter_);
}

} // namespace QVM_NAMESPACE
