#include "editor/surface/ShownSession.h"

#include "controls/QVMRangeControl.h"
#include "controls/QVMSymbolButton.h"
#include "editor/session/ModesWithoutControl.h"
#include "editor/session/SideEffects.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/view/Window.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double gearFlashLimit = 0.2; // seconds

} // namespace

ShownSession::ShownSession(QVMGenericUI& ui) : ui_(ui) {
    gearFlashes_.setTrailing(false);
}

void ShownSession::controlWillChangeValue() {
    ui_.keyboard().clearNumberBuffer();
}

void ShownSession::valueDidChange(std::uint32_t pid) {
    const EditorValues& values = ui_.session().values();
    if (ui_.hud()) ui_.hud()->updateWithParamsChanges(values.memoized(), values.changed());
    const QVMParameter* parameter = ui_.config().parameterForPid(pid);
    if (parameter && isModeWithoutControl(*parameter)) ui_.sketches().describeMeters();
    flashGearFor(parameter);
}

// What changes in the closed drawer is seen on the button that opens it.
void ShownSession::flashGearFor(const QVMParameter* parameter) {
    QVMSymbolButton* gear =
        ui_.focus().isInClosedDrawer(parameter) && ui_.powerBox() ? ui_.powerBox()->gear() : nullptr;
    if (gear) gearFlashes_.fireWithLimitTargetSelector(gearFlashLimit, *gear, &QVMSymbolButton::flash);
}

void ShownSession::valueWasReceived(std::uint32_t pid, float value, float was) {
    QVMParameterControl* control = ui_.parameterControlWithPid(pid);
    if (!control) return;
    const QVMParameter& cause = *control->parameter();
    const SideEffects effects = sideEffectsOf(cause, value);
    ui_.controls().apply(effects, *control, ui_.parts().areas());
    if (effects.scope == SideEffects::Scope::editor) ui_.sketches().setGhosted(effects.dimsScope);
    if (control->range()) control->range()->updateRangeAnimated(Animate::yes);
    if (ui_.receivedParamUpdateCount() == 0 || value != 0 || value == was) return;
    for (const std::vector<std::string>& link : cause.links) {
        const QVMParameterControl* linked = link.empty() ? nullptr : ui_.parameterControlWithCodename(link.front());
        if (linked) ui_.propagateLinkForPidNotify(linked->parameter()->pid, true);
    }
}

std::vector<ShownValue> ShownSession::shownValues() const {
    return ui_.controls().shownValues();
}

// A reset by a modifier is never reported to have ended.
bool ShownSession::isGestureUnderWay() const {
    const Window* const window = ui_.window();
    if (!window) return false;
    const View* pressed = window->mouseCapture();
    while (pressed && !dynamic_cast<const FocusableControl*>(pressed))
        pressed = pressed->superview();
    return pressed || window->isKeyHeld();
}

void ShownSession::historyDidChange() {
    if (!ui_.presetBar()) return;
    const QVMUndoRedoStack& stack = ui_.session().history().stack();
    ui_.presetBar()->undo().setButtonEnabled(stack.canUndo());
    ui_.presetBar()->redo().setButtonEnabled(stack.canRedo());
}

void ShownSession::sideDidChange(std::uint32_t side, SideMove move) {
    const Animate animate = move == SideMove::glides ? Animate::yes : Animate::no;
    if (ui_.presetBar()) ui_.presetBar()->ab().updatePositionAnimated(side, animate);
}

// Straight to the inner control: an index that no preset has stays what it is, and is shown as such.
void ShownSession::showPreset(std::uint32_t index) {
    QVMParameterControl* presets = ui_.presetBar() ? ui_.presetBar()->presetControl() : nullptr;
    if (presets && presets->primaryControl()) presets->primaryControl()->setFloatValue(static_cast<float>(index));
    if (ui_.presetDrawer()) ui_.presetDrawer()->showCurrentPreset();
}

void ShownSession::showPresetDirty(bool dirty) {
    if (ui_.presetBar()) ui_.presetBar()->setDirty(dirty);
}

void ShownSession::presetWasApplied() {
    if (ui_.presetBar() && !ui_.drawers().arePresetsOpen())
        ui_.bringParameterControlIntoFocus(ui_.presetBar()->presetControl());
}

void ShownSession::presetDidBecomeCurrent(const std::string& savedName, std::uint32_t index) {
    if (ui_.presetDrawer()) ui_.presetDrawer()->presetSelected(index);
    if (ui_.delegate()) ui_.delegate()->interfaceDidUpdateCurrentPresetToValueNamedPid(ui_, savedName, index);
}

void ShownSession::presetListDidChange() {
    if (ui_.presetDrawer()) ui_.presetDrawer()->presetListDidChange();
}

void ShownSession::presetWasRefused(const std::string& what, const std::string& why) {
    ui_.parts().showNotice(what, why);
}

void ShownSession::settingsWereRefused(const std::string& why) {
    ui_.parts().showNotice("Not pasted", why);
}

} // namespace QVM_NAMESPACE
