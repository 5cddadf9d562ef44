// The layout variants, the backing scale, and what the side column's buttons do.
#include "controls/QVMSymbolButton.h"
#include "editor/EditorLayout.h"
#include "editor/QVMClumpsView.h"
#include "editor/QVMGenericUI.h"
#include "editor/QVMPowerBox.h"
#include "editor/QVMPresetBar.h"
#include "platform/Transaction.h"
#include "platform/Window.h"
#include "theme/QVMUITheme.h"
#include "viz/QVMParameterSketch.h"

namespace QVM_NAMESPACE {

namespace {

constexpr std::int32_t altFrameCount = 3, frameStep = 2;

// What has no room in a layout is not part of it; its content would show all the same.
void place(View* view, const Rect& frame) {
    if (!view) return;
    view->setFrame(frame);
    view->setHidden(frame.isEmpty());
}

} // namespace

void QVMGenericUI::requestFrame(std::int32_t altFrame) {
    if (delegate_) delegate_->interfaceWantsToAssumeFrame(*this, altFrame);
}

void QVMGenericUI::assumeAltFrameScaleChanged(std::int32_t altFrame, bool scaleChanged) {
    altFrame_ = altFrame;
    assumeFrames();
    if (scaleChanged) viewDidChangeBackingProperties();
    if (powerBox_) {
        powerBox_->themeUpdated();
        if (QVMSymbolButton* gear = powerBox_->gear()) gear->setSelected(altFrame_ == QVMAltFrameDoubleWide);
    }
    if (delegate_) delegate_->interfaceWantsToSaveUIState(*this, static_cast<std::uint32_t>(altFrame_));
}

void QVMGenericUI::assumeFrames() {
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(altFrame_);
    setFrame(layout.editor);
    place(clumpsView_, layout.clumpsView);
    place(presetBar_, layout.presetBar);
    place(powerBox_, layout.powerBox);
    place(parameterControlWithPid(0), layout.powerControl);
    place(advClumpsView_, layout.advClumpsView);
    if (powerBox_) powerBox_->assumeLayout(layout);
    if (sketch_) sketch_->setFrame(layout.sketchPlace);
}

void QVMGenericUI::restoreUIState(std::uint32_t state) {
    const auto altFrame = static_cast<std::int32_t>(state);
    if (state < altFrameCount && altFrame != altFrame_) requestFrame(altFrame);
}

void QVMGenericUI::toggleFrame() {
    toggleFrameCall_.cancel();
    assumeNextFrame();
}

void QVMGenericUI::assumeNextFrame() {
    const std::int32_t next = altFrame_ + frameStep;
    requestFrame(next < altFrameCount ? next : QVMAltFrameNormal);
}

void QVMGenericUI::gearTapped() {
    requestFrame(altFrame_ == QVMAltFrameDoubleWide ? QVMAltFrameNormal : QVMAltFrameDoubleWide);
}

void QVMGenericUI::meterTapped() {
    if (delegate_) delegate_->interfaceWantsToResetMetering(*this);
}

void QVMGenericUI::setBackingScaleOnViewRecursively(View& view) {
    setBackingScaleOnLayerRecursively(*view.layer());
}

// A view's layers include those of its subviews.
void QVMGenericUI::setBackingScaleOnLayerRecursively(Layer& layer) {
    if (!window()) return;
    layer.setContentsScale(window()->backingScaleFactor());
    for (const auto& sublayer : layer.sublayers())
        setBackingScaleOnLayerRecursively(*sublayer);
}

void QVMGenericUI::viewDidChangeBackingProperties() {
    const auto immediately = Transaction::disablingActions();
    setBackingScaleOnViewRecursively(*this);
    sketchScaleDidChange();
}

void QVMGenericUI::toggleUITheme() {
    QVMUITheme::toggleThemeForWindow(window());
    if (powerBox_) powerBox_->layer()->setNeedsDisplay();
    layer()->setNeedsDisplay();
    if (delegate_) delegate_->interfaceDidUpdateInterfacePreferenceValue(*this, "theme", 1);
}

} // namespace QVM_NAMESPACE
