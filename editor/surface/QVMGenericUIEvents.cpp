// Keyboard focus, clicks, gestures of the controls, and notifications.
#include "controls/QVMRangeControl.h"
#include "description/NumberText.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMLogoStamp.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/view/Window.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double unfocusedLogoAlpha = 0.5;

} // namespace

void QVMGenericUI::focusDidMove(QVMParameterControl* control) {
    if (sketch_) sketch_->setFocusedPid(focusedPid());
    if (!presetBar_) return;
    presetBar_->ab().setFocused(&presetBar_->ab() == control);
    if (presetBar_->presetControl()) presetBar_->presetControl()->setFocused(presetBar_->presetControl() == control);
}

// The A/B control stands for no parameter, and the preset control's is none of the unit's.
std::int32_t QVMGenericUI::focusedPid() const {
    const QVMParameterControl* focused = focus_.focused();
    const bool isOfUnit =
        std::find(parameterControls_.begin(), parameterControls_.end(), focused) != parameterControls_.end();
    return isOfUnit ? static_cast<std::int32_t>(focused->parameter()->pid) : -1;
}

void QVMGenericUI::setHasFocus(bool hasFocus) {
    if (powerBox_) powerBox_->logoStamp().setAlpha(hasFocus ? 1 : unfocusedLogoAlpha);
    focus_.setHasFocus(hasFocus);
}

const View* QVMGenericUI::closedDrawer() const {
    return altFrame_ == QVMAltFrameNormal ? advClumpsView_ : nullptr;
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
    return focusedControl() || (presetDrawer_ && presetDrawer_->visible());
}

bool QVMGenericUI::keyDown(const Event& event) {
    // The list that covers the controls takes the keys as well.
    if (presetDrawer_ && presetDrawer_->keyDown(event)) return true;
    return keyboard_.handleKeyDownEvent(event) || keyboard_.handleUnfocusedKeyEvent(event) || popUpMenuForKey(event) ||
           View::keyDown(event);
}

bool QVMGenericUI::performKeyEquivalent(const Event& event) {
    if (presetDrawer_ && presetDrawer_->performKeyEquivalent(event)) return true;
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
    const View* hit = window() ? window()->hitTest(pointInWindow) : nullptr;
    for (; hit; hit = hit->superview()) {
        const auto found = std::find(parameterControls_.begin(), parameterControls_.end(), hit);
        if (found != parameterControls_.end()) return *found;
    }
    return nullptr;
}

void QVMGenericUI::parameterControlDidChangeInteractionStateEvent(QVMParameterControl& control, QVMInteraction state,
                                                                  const Event* event) {
    // The release of a double-click leaves the empty field that its press has opened.
    if (state != QVMInteractionEnded || !keyboard_.numberBuffer().empty()) keyboard_.clearNumberBuffer();
    // A range's gesture is performed, and reported, by its two ends.
    if (std::find(parameterControls_.begin(), parameterControls_.end(), &control) == parameterControls_.end()) return;
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

void QVMGenericUI::observePreferences() {
    NotificationCenter& center = NotificationCenter::defaultCenter();
    observations_.push_back(center.observe(preferenceNotification, nullptr, [this](const Notification& notification) {
        interfacePreferencesUpdated(notification);
    }));
    observations_.push_back(center.observe(preferencesSavedNotification, nullptr, [this](const Notification&) {
        if (delegate_) delegate_->interfaceShouldRequestUpdatedLayout(*this);
    }));
}

void QVMGenericUI::interfacePreferencesUpdated(const Notification& notification) {
    const auto major = notification.userInfo.find("major"), minor = notification.userInfo.find("minor");
    const auto end = notification.userInfo.end();
    if (!delegate_ || major == end || minor == end) return;
    delegate_->interfaceDidUpdateInterfacePreferenceValue(*this, ShortestText(major->second), minor->second);
}

void QVMGenericUI::updateLayoutKeyNumerical(std::int32_t key, double number) {
    NotificationCenter::defaultCenter().post(
        {preferenceNotification, this, {{"major", static_cast<double>(key)}, {"minor", number}}});
}

} // namespace QVM_NAMESPACE
