// Undo snapshots, the A/B slots, and presets: everything that keeps or recalls all values at once.
#include "controls/QVMSymbolButton.h"
#include "description/Presets.h"
#include "editor/QVMGenericUI.h"
#include "editor/QVMKeyboardHandler.h"
#include "editor/QVMPresetBar.h"

#include <algorithm>
#include <charconv>

namespace QVM_NAMESPACE {

namespace {

constexpr double snapshotDelay = 0.5; // seconds
constexpr std::uint32_t nothingSavedState = 2;
constexpr const char* unknownPresetName = "N/A";

// A leading number, the decimal sign a point whatever the locale; 0 where there is none.
float numberFrom(std::string_view text) {
    float number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

} // namespace

void QVMGenericUI::potentiallySaveToUndoRedoStack() {
    undoCall_.cancel();
    if (keyboard_->undoRedoStack().locks()) return;
    undoCall_.schedule(snapshotDelay, [this] { saveParametersToUndoRedoStack(); });
}

// A parameter in the middle of a gesture keeps its previous value until the gesture ends.
void QVMGenericUI::saveParametersToUndoRedoStack() {
    QVMUndoRedoStack& stack = keyboard_->undoRedoStack();
    const QVMSnapshot* current = stack.currentValues();
    QVMSnapshot snapshot;
    for (std::uint32_t pid = 0; pid < memoizedPValues_.size(); ++pid) {
        const bool inGesture = interactionStates_[pid] == QVMInteractionBegan;
        const bool hasPrevious = current && current->values.contains(pid);
        snapshot.values[pid] = inGesture && hasPrevious ? current->values.at(pid) : memoizedPValues_[pid];
    }
    snapshot.abState = abState_;
    stack.pushNew(std::move(snapshot));
    syncUndoRedoButtonsToStackState();
}

void QVMGenericUI::syncUndoRedoButtonsToStackState() {
    if (!presetBar_) return;
    presetBar_->undo().setButtonEnabled(keyboard_->undoRedoStack().canUndo());
    presetBar_->redo().setButtonEnabled(keyboard_->undoRedoStack().canRedo());
}

void QVMGenericUI::undoRedoABState(std::uint32_t state) {
    abState_ = state;
}

void QVMGenericUI::restoreABStateSettings(std::uint32_t state, std::string_view settings) {
    if (state == nothingSavedState || state >= abValues_.size()) return;
    std::vector<float>& slot = abValues_[state];
    for (std::size_t i = 0; i < slot.size() && !settings.empty(); ++i) {
        const std::size_t end = std::min(settings.find(';'), settings.size());
        slot[i] = numberFrom(settings.substr(0, end));
        settings.remove_prefix(std::min(end + 1, settings.size()));
    }
    abState_ = 1 - state;
    potentiallySaveToUndoRedoStack();
}

void QVMGenericUI::copyValuesToPreset(std::vector<float>& slot, float preset) const {
    slot = memoizedPValues_;
    slot.push_back(preset);
}

void QVMGenericUI::requestPresetNamed(const std::string& name) {
    lastSavedPresetWasNamed(name);
    presetUpdated();
}

void QVMGenericUI::presetUpdated() {
    const auto values = PresetIndexToPresetValues(currentPreset_);
    if (!values) return;
    auto next = values->begin();
    for (std::uint32_t pid = 0; pid < memoizedPValues_.size() && next != values->end(); ++pid) {
        const QVMParameter* parameter = config_->parameterForPid(pid);
        if (!parameter || parameter->presetWildcard) continue;
        const float value = *next++;
        if (value == value) notifyParameterUpdatedTo(pid, value); // an entry that is no number changes nothing
    }
    notifyPresetChange(currentPreset_);
}

void QVMGenericUI::lastSavedPresetWasNamed(const std::string& name) {
    const std::vector<std::string>& names = config_->presets->stringValues;
    const auto found = std::find(names.begin(), names.end(), name);
    if (found != names.end()) lastSavedPresetWasKeyed(static_cast<std::uint32_t>(found - names.begin()));
}

void QVMGenericUI::lastSavedPresetWasKeyed(std::uint32_t index) {
    currentPreset_ = index;
}

void QVMGenericUI::notifyPresetChange(std::uint32_t index) {
    const std::vector<std::string>& names = config_->presets->stringValues;
    const std::string name = index < names.size() ? names[index] : unknownPresetName;
    if (delegate_) delegate_->interfaceDidUpdateCurrentPresetToValueNamedPid(*this, name, index);
}

void QVMGenericUI::checkPresetDirtyState() {
    if (!presetBar_) return;
    std::vector<float> values;
    for (std::uint32_t pid = 0; pid < memoizedPValues_.size(); ++pid) {
        const QVMParameter* parameter = config_->parameterForPid(pid);
        if (parameter && !parameter->presetWildcard) values.push_back(memoizedPValues_[pid]);
    }
    // No settings equal a preset that does not exist.
    presetBar_->setDirty(PresetIndexToPresetValues(currentPreset_) != values);
}

} // namespace QVM_NAMESPACE
