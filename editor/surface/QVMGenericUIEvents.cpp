// Keyboard focus, clicks, gestures of the controls, and notifications.
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMLogoStamp.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/view/Window.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double unfocusedLogoAlpha = 0.5;

} // namespace

void QVMGenericUI::focusDidMove(QVMParameterControl* control) {
    sketches_.setFocusedPid(focusedPid());
    if (!presetBar()) return;
    presetBar()->ab().setFocused(&presetBar()->ab() == control);
    if (presetBar()->presetControl()) presetBar()->presetControl()->setFocused(presetBar()->presetControl() == control);
}

// The A/B control stands for no parameter, and the preset control's is none of the unit's.
std::int32_t QVMGenericUI::focusedPid() const {
    const QVMParameterControl* focused = focus_.focused();
    return controls_.contains(focused) ? static_cast<std::int32_t>(focused->parameter()->pid) : -1;
}

void QVMGenericUI::setHasFocus(bool hasFocus) {
    if (powerBox()) powerBox()->logoStamp().setAlpha(hasFocus ? 1 : unfocusedLogoAlpha);
    focus_.setHasFocus(hasFocus);
}

const View* QVMGenericUI::closedDrawer() const {
    return altFrame_ == QVMAltFrameNormal ? advClumpsView() : nullptr;
}

void QVMGenericUI::openClosedDrawer() {
    requestFrame(QVMAltFrameDoubleWide);
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

bool QVMGenericUI::wantsKeys() const {
    return focusedControl() || drawers_.arePresetsOpen();
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
    if (window() && !window()->isKeyWindow()) window()->makeKey();
    ensureFirstResponder();
}

void QVMGenericUI::mouseUp(const Event& event) {
    bringParameterControlIntoFocus(controlAtWindowPoint(event.locationInWindow));
}

QVMParameterControl* QVMGenericUI::controlAtWindowPoint(Point pointInWindow) const {
    return controls_.around(window() ? window()->hitTest(pointInWindow) : nullptr);
}

void QVMGenericUI::parameterControlDidChangeInteractionStateEvent(QVMParameterControl& control, QVMInteraction state,
                                                                  const Event* event) {
    // The release of a double-click leaves the empty field that its press has opened.
    if (state != QVMInteractionEnded || !keyboard_.numberBuffer().empty()) keyboard_.clearNumberBuffer();
    // A range's gesture is performed, and reported, by its two ends.
    if (!controls_.contains(&control)) return;
    const std::uint32_t pid = control.parameter()->pid;
    interactionStates_.at(pid) = state;
    switch (state) {
    case QVMInteractionBegan:
        if (delegate_) delegate_->interfaceBeganInteractionWithParameterKeyedEvent(*this, pid, event);
        bringParameterControlIntoFocus(&control);
        break;
    case QVMInteractionEnded:
        if (delegate_) delegate_->interfaceEndedInteractionWithParameterKeyed(*this, pid);
        potentiallySaveToUndoRedoStack();
        break;
    case QVMInteractionDiscrete:
        if (delegate_) delegate_->interfaceDiscretelyInteractedWithParameterKeyed(*this, pid);
        break;
    }
}

bool QVMGenericUI::togglePresetsDrawer() {
    if (!presetBar()) return false;
    if (presetDrawer()) toggleDrawerForce(*presetDrawer(), false);
    return true;
}

void QVMGenericUI::parameterControlDidTapMeaninglessly(QVMParameterControl& control) {
    if (!presetBar() || &control != presetBar()->presetControl()) return;
    bringParameterControlIntoFocus(drawers_.arePresetsOpen() ? &control : nullptr);
    togglePresetsDrawer();
}

void QVMGenericUI::observePreferences() {
    preferences_.observe(
        [this](const std::string& key, double value) {
            if (delegate_) delegate_->interfaceDidUpdateInterfacePreferenceValue(*this, key, value);
        },
        [this] {
            if (delegate_) delegate_->interfaceShouldRequestUpdatedLayout(*this);
        });
}

} // namespace QVM_NAMESPACE
