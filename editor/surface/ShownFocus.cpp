#include "editor/surface/ShownFocus.h"

#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMLogoStamp.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double unfocusedLogoAlpha = 0.5;

} // namespace

const std::vector<QVMParameterControl*>& ShownFocus::parameterControls() const {
    return ui_.controls().all();
}

QVMParameterControl* ShownFocus::parameterControlWithCodename(std::string_view codesafeName) const {
    return ui_.controls().withCodename(codesafeName);
}

const View* ShownFocus::closedDrawer() const {
    return ui_.altFrame() == QVMAltFrameNormal ? ui_.advClumpsView() : nullptr;
}

void ShownFocus::openClosedDrawer() {
    ui_.requestFrame(QVMAltFrameDoubleWide);
}

void ShownFocus::focusWillMove() {
    ui_.keyboard().clearNumberBuffer();
}

void ShownFocus::focusDidMove(FocusableControl* control) {
    showInCurve();
    QVMPresetBar* const bar = ui_.presetBar();
    if (!bar) return;
    bar->ab().setFocused(&bar->ab() == control);
    if (bar->presetControl()) bar->presetControl()->setFocused(bar->presetControl() == control);
}

// The preset control's parameter is none of the unit's.
void ShownFocus::showInCurve() const {
    const QVMParameterControl* control = ui_.controls().around(ui_.focusedControl());
    ui_.sketches().setFocusedPid(control ? static_cast<std::int32_t>(control->parameter()->pid) : -1);
}

void ShownFocus::windowHasKeyboard(bool hasKeyboard) const {
    if (ui_.powerBox()) ui_.powerBox()->logoStamp().setAlpha(hasKeyboard ? 1 : unfocusedLogoAlpha);
}

} // namespace QVM_NAMESPACE
