#include "editor/surface/QVMGenericUI.h"

#include "controls/QVMSymbolButton.h"
#include "editor/surface/EditorPreferences.h"
#include "editor/surface/FrameButton.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double backingScaleDelay = 0.35, sketchDelay = 0.5; // seconds

} // namespace

QVMGenericUI::QVMGenericUI(const Rect& frame, std::shared_ptr<QVMConfig> config, std::uint32_t chanIn,
                           std::uint32_t chanOut)
    : View(frame), config_(std::move(config)), chanIn_(chanIn), chanOut_(chanOut), shown_(*this),
      session_(*config_, shown_), shownFocus_(*this), focus_(*config_, session_.values(), *this, shownFocus_),
      keyboard_(session_, focus_, *this), reports_(*this, session_.values().count()),
      controls_(reports_, session_.values()), parts_(*this, *config_), drawers_(*this, *this),
      sketches_(*config_, session_.values(), controls_), handover_(*this, {chanIn_, chanOut_}), layouts_(*this),
      scale_(*this, layouts_), menus_(*this) {
    layer()->setName("editor");
    config_->chanIn = chanIn_;
    config_->chanOut = chanOut_;
}

// Subviews go here, not in the base's destructor: the controls report to this object while they live.
QVMGenericUI::~QVMGenericUI() {
    preferences_.stop();
    while (!subviews().empty())
        subviews().back()->removeFromSuperview();
}

void QVMGenericUI::setDelegate(QVMGenericUIDelegate* delegate) {
    delegate_ = delegate;
    session_.values().setDelegate(delegate);
}

void QVMGenericUI::completeInterfaceSetup() {
    if (config_->presets) {
        config_->presets->chanIn = chanIn_;
        config_->presets->chanOut = chanOut_;
    }
    config_->enumerateParametersWithBlock([this](QVMParameter& parameter, QVMClump&) {
        parameter.chanIn = chanIn_;
        parameter.chanOut = chanOut_;
    });
    setConfig(config_);
    addPresetDrawer();
    addFrameButton();
    parts_.addScaleGrip(scale_);
    syncUndoRedoButtonsToStackState();
    potentiallySaveToUndoRedoStack();
    controls_.applyChannelLayoutRules(*config_, {chanIn_, chanOut_});
    observePreferences(*this);
    addHudAndNumericMeter();
    sketchCall_.schedule(sketchDelay, [this] { addSketch(); });
    backingScaleCall_.schedule(backingScaleDelay, [this] { viewDidChangeBackingProperties(); });
}

void QVMGenericUI::setConfig(std::shared_ptr<QVMConfig> config) {
    config_ = std::move(config);
    parts_.addFrame();
    wireParts();
    parts_.addClumps(controls_);
    drawers_.setClumpsView(*clumpsView());
    resetABState(session_.values().memoized());
}

void QVMGenericUI::wireParts() {
    powerBox()->logo().setAction([this](Control&) { logoTapped(); });
    if (QVMSymbolButton* gear = powerBox()->gear()) gear->setAction([this](Control&) { gearTapped(); });
    QVMPresetBar& bar = *presetBar();
    if (QVMParameterControl* presets = bar.presetControl()) {
        presets->setAction([this](Control&) { presetUpdated(); });
        presets->setDelegate(&reports_);
    }
    bar.ab().setDelegate(this);
    bar.undo().setAction([this](Control&) { keyboard_.keyboardShortcutUndo(); });
    bar.redo().setAction([this](Control&) { keyboard_.keyboardShortcutRedo(); });
}

void QVMGenericUI::addPresetDrawer() {
    if (presetDrawer() || !config_->presets) return;
    const Rect frame = EditorLayoutForAltFrame(QVMAltFrameNormal).clumpsView;
    drawers_.addPresets(std::make_unique<QVMPresetsDrawer>(frame, *config_), presetBar())
        .connect(presetBar()->presetControl(), session_.presets());
}

QVMDrawerView& QVMGenericUI::addDrawer(std::unique_ptr<QVMDrawerView> drawer) {
    return drawers_.add(std::move(drawer), presetBar());
}

void QVMGenericUI::addFrameButton() {
    parts_.addFrameButton().setAction([this](Control&) { toggleFrame(); });
    powerBox()->setFrameToggle([this] { toggleFrame(); });
    powerBox()->setHoverHandler([this](bool isInside) { parts_.frameButton()->setPointerNear(isInside); });
}

void QVMGenericUI::addHudAndNumericMeter() {
    if (hud_) return;
    hud_ = &addSubview(std::make_unique<QVMHUDDisplay>(Rect{}, session_.values().memoized()));
    hud_->setDelegate(this);
    sketches_.addNumericMeter(*powerBox(), [this] { meterTapped(); });
}

void QVMGenericUI::addSketch() {
    handover_.addSketches();
    shownFocus_.showInCurve();
}

} // namespace QVM_NAMESPACE
