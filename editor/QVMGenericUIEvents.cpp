// Keyboard focus, clicks, gestures of the controls, notifications, and the context menu.
#include "controls/QVMRangeControl.h"
#include "description/NumberText.h"
#include "editor/EditorLayout.h"
#include "editor/MakerSite.h"
#include "editor/QVMGenericUI.h"
#include "editor/QVMKeyboardHandler.h"
#include "editor/QVMLogoStamp.h"
#include "editor/QVMPowerBox.h"
#include "platform/Menu.h"
#include "platform/Window.h"
#include "platform/Workspace.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double unfocusedLogoAlpha = 0.5;

bool isInClumpOfType(const QVMParameterControl& control, std::int32_t type) {
    const QVMClump* clump = control.parameter()->clump;
    return clump && clump->clumpType == type;
}

} // namespace

void QVMGenericUI::bringParameterControlIntoFocus(QVMParameterControl* control) {
    if (control && isInClumpOfType(*control, QVMClumpTypeMaster)) return;
    if (control != focusedControl_) keyboard_->clearNumberBuffer();
    focusedControl_ = control;
    for (QVMParameterControl* each : parameterControls_)
        each->setFocused(each == control);
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
    const bool outOfSight = altFrame_ == QVMAltFrameNormal && isInClumpOfType(*remembered, QVMClumpTypeAdvanced);
    if (!outOfSight) bringParameterControlIntoFocus(remembered);
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

bool QVMGenericUI::keyDown(const Event& event) {
    return keyboard_->handleKeyDownEvent(event) || keyboard_->handleUnfocusedKeyEvent(event) || View::keyDown(event);
}

bool QVMGenericUI::performKeyEquivalent(const Event& event) {
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
    keyboard_->clearNumberBuffer();
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

std::unique_ptr<Menu> QVMGenericUI::menuForEvent(const Event& event) {
    if (event.has(EventModifier::option) || event.has(EventModifier::command)) return nullptr;
    lastRightClickedControl_ = controlAtWindowPoint(event.locationInWindow);
    auto menu = std::make_unique<Menu>();
    const QVMMetadata& metadata = *config_->metadata;
    menu->title = metadata.pluginName;
    if (QVMParameterControl* control = lastRightClickedControl_; control && control->primaryControl()) {
        const QVMParameter& parameter = *control->parameter();
        menu->title = parameter.name;
        MenuItem reset;
        reset.title = "Reset " + parameter.name + " to default";
        reset.enabled = control->floatValue() != parameter.initialValue;
        reset.action = [control] { control->primaryControl()->contextMenuResetInitialValue(); };
        menu->items.push_back(std::move(reset));
        menu->items.push_back(MenuItem::separator());
    }
    MenuItem copy;
    copy.title = "Copy all settings as URL to Clipboard";
    copy.action = [this] { keyboard_->keyboardShortcutHandleCopy(); };
    menu->items.push_back(std::move(copy));
    MenuItem paste;
    paste.title = "Paste all settings from Clipboard";
    paste.enabled = keyboard_->canPasteSettings();
    paste.action = [this] { keyboard_->keyboardShortcutHandlePaste(); };
    menu->items.push_back(std::move(paste));
    MenuItem version;
    version.title = std::string(makerName) + " " + metadata.pluginName + ", " + metadata.version;
    version.action = [address = productPage(metadata)] { Workspace::current().openUrl(address); };
    menu->items.push_back(std::move(version));
    return menu;
}

} // namespace QVM_NAMESPACE
