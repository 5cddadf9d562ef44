// The layout variants, the backing scale, and what the side column's buttons do.
#include "controls/QVMSymbolButton.h"
#include "description/ParameterIDs.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/layer/Transaction.h"
#include "platform/view/Window.h"
#include "theme/QVMUITheme.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr std::int32_t altFrameCount = 3, frameStep = 2;
constexpr double drawerEndSeconds = 0.5; // until a drawer that was told to close is out of the way

} // namespace

void QVMGenericUI::requestFrame(std::int32_t altFrame) {
    if (delegate_) delegate_->interfaceWantsToAssumeFrame(*this, altFrame);
}

void QVMGenericUI::assumeAltFrameScaleChanged(std::int32_t altFrame, bool scaleChanged) {
    altFrame_ = altFrame;
    if (altFrame_ == QVMAltFrameCompact) hideAllDrawers(); // they would lie over the whole of it
    assumeFrames();
    if (scaleChanged) viewDidChangeBackingProperties();
    if (powerBox()) {
        if (QVMSymbolButton* gear = powerBox()->gear()) gear->setSelected(altFrame_ == QVMAltFrameDoubleWide);
        powerBox()->themeUpdated();
    }
    if (delegate_) delegate_->interfaceWantsToSaveUIState(*this, static_cast<std::uint32_t>(altFrame_));
}

void QVMGenericUI::assumeFrames() {
    parts_.assumeLayout(altFrame_, parameterControlWithPid(pidMasterOnOff), drawerPlace_);
    sketches_.assumeLayout(EditorLayoutForAltFrame(altFrame_));
    focus_.dropIfHidden();
}

void QVMGenericUI::setDrawerPlace(DrawerPlace place) {
    if (std::exchange(drawerPlace_, place) != place && altFrame_ == QVMAltFrameDoubleWide) assumeFrames();
}

void QVMGenericUI::restoreUIState(std::uint32_t state) {
    const auto altFrame = static_cast<std::int32_t>(state);
    if (state < altFrameCount && altFrame != altFrame_) requestFrame(altFrame);
}

void QVMGenericUI::toggleFrame() {
    toggleFrameCall_.cancel();
    if (!drawers_.arePresetsOpen()) {
        assumeNextFrame();
        return;
    }
    hideDrawerIfVisible(presetDrawer());
    toggleFrameCall_.schedule(drawerEndSeconds, [this] { assumeNextFrame(); });
}

void QVMGenericUI::assumeNextFrame() {
    const std::int32_t next = altFrame_ + frameStep;
    requestFrame(next < altFrameCount ? next : QVMAltFrameNormal);
}

void QVMGenericUI::gearTapped() {
    requestFrame(altFrame_ == QVMAltFrameDoubleWide ? QVMAltFrameNormal : QVMAltFrameDoubleWide);
}

void QVMGenericUI::setBackingScaleOnViewRecursively(View& view) {
    setBackingScaleOnLayerRecursively(*view.layer());
}

// A view's layers include those of its subviews.
void QVMGenericUI::setBackingScaleOnLayerRecursively(Layer& layer) {
    if (!window()) return;
    layer.look().setContentsScale(window()->backingScaleFactor());
    for (const auto& sublayer : layer.tree().sublayers())
        setBackingScaleOnLayerRecursively(*sublayer);
}

void QVMGenericUI::viewDidChangeBackingProperties() {
    const auto immediately = Transaction::disablingActions();
    setBackingScaleOnViewRecursively(*this);
    sketches_.scaleDidChange();
}

void QVMGenericUI::toggleUITheme() {
    QVMUITheme::toggleThemeForWindow(window());
    if (powerBox()) powerBox()->layer()->look().setNeedsDisplay();
    layer()->look().setNeedsDisplay();
    if (delegate_) delegate_->interfaceDidUpdateInterfacePreferenceValue(*this, "theme", 1);
}

} // namespace QVM_NAMESPACE
