// Keyboard focus, keys, clicks, menus, and what the window and the preferences say.
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/layer/Transaction.h"
#include "platform/view/Menu.h"
#include "platform/view/Window.h"
#include "theme/QVMUITheme.h"

namespace QVM_NAMESPACE {

void QVMGenericUI::setHasFocus(bool hasFocus) {
    shownFocus_.windowHasKeyboard(hasFocus);
    focus_.setHasFocus(hasFocus);
}

void QVMGenericUI::ensureFirstResponder() {
    if (window() && window()->firstResponder() != this) window()->makeFirstResponder(this);
}

void QVMGenericUI::viewDidMoveToWindow() {
    windowObservations_.clear();
    if (!window()) return;
    NotificationCenter& center = NotificationCenter::defaultCenter();
    windowObservations_.push_back(center.observe(Window::didBecomeKeyNotification, window(), [this](const auto&) {
        setHasFocus(true);
        ensureFirstResponder();
    }));
    windowObservations_.push_back(
        center.observe(Window::didResignKeyNotification, window(), [this](const auto&) { setHasFocus(false); }));
    ensureFirstResponder();
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

bool QVMGenericUI::wantsKeys() const {
    return focusedControl() || drawers_.isAnyOpen();
}

bool QVMGenericUI::keyDown(const Event& event) {
    // The list that covers the controls takes the keys as well.
    if (presetDrawer() && presetDrawer()->keyDown(event)) return true;
    return keyboard_.handleKeyDownEvent(event) || keyboard_.handleUnfocusedKeyEvent(event) ||
           menus_.popUpForKey(event) || View::keyDown(event);
}

bool QVMGenericUI::performKeyEquivalent(const Event& event) {
    if (presetDrawer() && presetDrawer()->performKeyEquivalent(event)) return true;
    return keyboard_.handlePerformKeyEquivalent(event) || View::performKeyEquivalent(event);
}

void QVMGenericUI::mouseDown(const Event&) {
    if (window()) window()->makeKey();
    ensureFirstResponder();
}

void QVMGenericUI::mouseUp(const Event& event) {
    bringParameterControlIntoFocus(controlAtWindowPoint(event.locationInWindow));
}

QVMParameterControl* QVMGenericUI::controlAtWindowPoint(Point pointInWindow) const {
    return controls_.around(window() ? window()->hitTest(pointInWindow) : nullptr);
}

std::unique_ptr<Menu> QVMGenericUI::menuForEvent(const Event& event) {
    return menus_.menuForEvent(event);
}

std::unique_ptr<Menu> QVMGenericUI::menuForKeyboard() {
    return menus_.menuForKeyboard();
}

bool QVMGenericUI::togglePresetsDrawer() {
    if (!presetBar()) return false;
    if (presetDrawer()) toggleDrawerForce(*presetDrawer(), false);
    return true;
}

} // namespace QVM_NAMESPACE
