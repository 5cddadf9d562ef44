// Undo snapshots and the A/B slots.
#include "controls/QVMSymbolButton.h"
#include "description/ValueMapping.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMKeyboardHandler.h"
#include "editor/surface/QVMPresetBar.h"
#include "platform/view/Window.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace QVM_NAMESPACE {

namespace {

constexpr double snapshotDelay = 0.5; // seconds
constexpr std::uint32_t nothingSavedState = 2;

// A leading number, the decimal sign a point whatever the locale; 0 where there is none.
float numberFrom(std::string_view text) {
    float number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return std::isfinite(number) ? number : 0;
}

// Decimal numbers that read back as the same values.
std::string settingsText(const std::vector<float>& values) {
    std::string text;
    for (const float value : values) {
        std::array<char, 64> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
        if (!text.empty()) text += ';';
        text.append(digits.data(), end.ptr);
    }
    return text;
}

} // namespace

void QVMGenericUI::potentiallySaveToUndoRedoStack() {
    undoCall_.cancel();
    if (keyboard_->undoRedoStack().locks()) return;
    undoCall_.schedule(snapshotDelay, [this] { saveParametersToUndoRedoStack(); });
}

// Nothing in the middle of a gesture is a state to come back to: not one value of it, nor what it does to others.
void QVMGenericUI::saveParametersToUndoRedoStack() {
    if (isGestureUnderWay()) return potentiallySaveToUndoRedoStack();
    keyboard_->undoRedoStack().pushNew(presentSnapshot());
    syncUndoRedoButtonsToStackState();
}

QVMSnapshot QVMGenericUI::presentSnapshot() const {
    QVMSnapshot snapshot;
    for (std::uint32_t pid = 0; pid < memoizedPValues_.size(); ++pid)
        snapshot.values[pid] = memoizedPValues_[pid];
    snapshot.abState = abState_;
    snapshot.preset = currentPreset();
    return snapshot;
}

// By what is held, whoever was told of it: a reset by a modifier is never reported to have ended.
bool QVMGenericUI::isGestureUnderWay() const {
    if (!window()) return false;
    const View* pressed = window()->mouseCapture();
    while (pressed && !dynamic_cast<const QVMParameterControl*>(pressed))
        pressed = pressed->superview();
    return pressed || window()->isKeyHeld();
}

void QVMGenericUI::syncUndoRedoButtonsToStackState() {
    if (!presetBar_) return;
    presetBar_->undo().setButtonEnabled(keyboard_->undoRedoStack().canUndo());
    presetBar_->redo().setButtonEnabled(keyboard_->undoRedoStack().canRedo());
}

void QVMGenericUI::undoRedoABState(std::uint32_t state) {
    if (state == abState_ || state >= abValues_.size()) return;
    abState_ = state;
    if (presetBar_) presetBar_->ab().updatePositionAnimated(abState_, Animate::no);
}

void QVMGenericUI::undoRedoPreset(std::uint32_t index) {
    if (index == currentPreset()) return;
    lastSavedPresetWasKeyed(index);
    notifyPresetChange(index);
}

// Every button switches sides, also the letter of the side that is active.
void QVMGenericUI::abControlChangeTriggeredByButton(QVMABControl& control, std::uint32_t button) {
    const std::uint32_t left = abState_, entered = 1 - abState_;
    copyValuesToPreset(abValues_[left], static_cast<float>(currentPreset()));
    if (button == QVMABButtonArrow) abValues_[entered] = abValues_[left];
    abState_ = entered;
    control.updatePositionAnimated(abState_, button == QVMABButtonArrow ? Animate::yes : Animate::no);

    const std::vector<float> slotLeft = abValues_[left], slotEntered = abValues_[entered];
    for (std::uint32_t pid = 0; pid < memoizedPValues_.size(); ++pid)
        if (slotEntered[pid] != memoizedPValues_[pid]) notifyParameterUpdatedTo(pid, slotEntered[pid]);
    const auto preset = static_cast<std::uint32_t>(std::max(IntegerPart(slotEntered.back()), 0));
    lastSavedPresetWasKeyed(preset);
    notifyPresetChange(preset);
    bringParameterControlIntoFocus(&control);
    if (delegate_) delegate_->interfaceWantsToSaveAlternateStateSettings(*this, left, settingsText(slotLeft));
}

void QVMGenericUI::restoreABStateSettings(std::uint32_t state, std::string_view settings) {
    if (state == nothingSavedState || state >= abValues_.size()) return;
    std::vector<float>& slot = abValues_[state];
    for (float& value : slot) {
        const std::size_t end = settings.find(';');
        value = numberFrom(settings.substr(0, end));
        if (end == std::string_view::npos) break;
        settings.remove_prefix(end + 1);
    }
    abState_ = 1 - state;
    if (presetBar_) presetBar_->ab().updatePositionAnimated(abState_, Animate::no);
    potentiallySaveToUndoRedoStack();
}

void QVMGenericUI::copyValuesToPreset(std::vector<float>& slot, float preset) const {
    slot = memoizedPValues_;
    slot.push_back(preset);
}

} // namespace QVM_NAMESPACE
