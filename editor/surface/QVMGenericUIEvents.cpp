// Keyboard focus, clicks, gestures of the controls, and notifications.
#include "controls/QVMRangeControl.h"
#include "description/NumberText.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMKeyboardHandler.h"
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

bool isInClumpOfType(const QVMParameter* parameter, std::int32_t type) {
    return parameter && parameter->clump && parameter->clump->clumpType == type;
}

} // namespace

void QVMGenericUI::bringParameterControlIntoFocus(QVMParameterControl* control) {
    if (control && isInClumpOfType(control->parameter(), QVMClumpTypeMaster)) return;
    if (control && !canBeShown(*control)) control = nullptr;
    if (control != focusedControl_) keyboard_->clearNumberBuffer();
    focusedControl_ = control;
    for (QVMParameterControl* each : parameterControls_)
        each->setFocused(each == control);
    showFocusInSketch();
    if (!presetBar_) return;
    presetBar_->ab().setFocused(&presetBar_->ab() == control);
    if (presetBar_->presetControl()) presetBar_->presetControl()->setFocused(presetBar_->presetControl() == control);
}

// The A/B control stands for no parameter, and the preset control's is none of the unit's.
void QVMGenericUI::showFocusInSketch() {
    if (!sketch_) return;
    const bool isOfUnit =
        std::find(parameterControls_.begin(), parameterControls_.end(), focusedControl_) != parameterControls_.end();
    sketch_->setFocusedPid(isOfUnit ? static_cast<std::int32_t>(focusedControl_->parameter()->pid) : -1);
}

void QVMGenericUI::setHasFocus(bool hasFocus) {
    hasFocus_ = hasFocus;
    if (powerBox_) powerBox_->logoStamp().setAlpha(hasFocus ? 1 : unfocusedLogoAlpha);
    if (!hasFocus) {
        if (focusedControl_) rememberedFocus_ = focusedControl_;
        bringParameterControlIntoFocus(nullptr);
        return;
    }
    QVMParameterControl* remembered = rememberedFocus_;
    rememberedFocus_ = nullptr;
    // A click on a control that brought the window to the front has chosen already.
    if (!remembered || focusedControl_) return;
    if (!isInClosedDrawer(remembered->parameter())) bringParameterControlIntoFocus(remembered);
}

bool QVMGenericUI::isInClosedDrawer(const QVMParameter* parameter) const {
    return altFrame_ == QVMAltFrameNormal && isInClumpOfType(parameter, QVMClumpTypeAdvanced);
}

bool QVMGenericUI::canBeShown(const QVMParameterControl& control) const {
    for (const View* view = &control; view && view != this; view = view->superview()) {
        const bool isClosedDrawer = view == advClumpsView_ && altFrame_ == QVMAltFrameNormal;
        if (view->isHidden() && !isClosedDrawer) return false;
    }
    return true;
}

void QVMGenericUI::revealFocusedControl() {
    if (focusedControl_ && isInClosedDrawer(focusedControl_->parameter())) requestFrame(QVMAltFrameDoubleWide);
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
    return focusedControl_ || (presetDrawer_ && presetDrawer_->visible());
}

bool QVMGenericUI::keyDown(const Event& event) {
    // The list that covers the controls takes the keys as well.
    if (presetDrawer_ && presetDrawer_->keyDown(event)) return true;
    return keyboard_->handleKeyDownEvent(event) || keyboard_->handleUnfocusedKeyEvent(event) ||
           popUpMenuForKey(event) || View::keyDown(event);
}

bool QVMGenericUI::performKeyEquivalent(const Event& event) {
    if (presetDrawer_ && presetDrawer_->performKeyEquivalent(event)) return true;
    return keyboard_->handlePerformKeyEquivalent(event) || View::performKeyEquivalent(event);
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
    if (state != QVMInteractionEnded || !keyboard_->numberBuffer().empty()) keyboard_->clearNumberBuffer();
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
