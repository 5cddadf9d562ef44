// Presets: choosing, naming, and whether the settings still are those of the chosen one.
#include "description/Presets.h"
#include "description/ValueMapping.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMKeyboardHandler.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetControl.h"
#include "editor/surface/QVMPresetsDrawer.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double dirtyCheckDelay = 0.5; // seconds

// The number of the preset with a name; with none, one that no preset has.
std::uint32_t indexOfPresetNamed(const std::vector<std::string>& names, const std::string& name) {
    return static_cast<std::uint32_t>(std::find(names.begin(), names.end(), name) - names.begin());
}

} // namespace

std::uint32_t QVMGenericUI::currentPreset() const {
    const QVMParameterControl* presets = presetBar_ ? presetBar_->presetControl() : nullptr;
    return presets ? static_cast<std::uint32_t>(std::max(IntegerPart(presets->floatValue()), 0)) : 0;
}

void QVMGenericUI::requestPresetNamed(const std::string& name) {
    if (!config_->presets) return;
    const std::vector<std::string>& names = config_->presets->stringValues;
    const std::uint32_t index = indexOfPresetNamed(names, name);
    if (index >= names.size()) return;
    lastSavedPresetWasKeyed(index);
    presetUpdated();
}

void QVMGenericUI::presetUpdated() {
    const std::uint32_t index = currentPreset();
    if (const auto values = PresetIndexToPresetValues(index)) applyPresetValues(*values);
    const bool drawerIsOpen = presetDrawer_ && presetDrawer_->visible();
    if (presetBar_ && !drawerIsOpen) bringParameterControlIntoFocus(presetBar_->presetControl());
    if (presetDrawer_) presetDrawer_->showCurrentPreset();
    notifyPresetChange(index);
    schedulePresetDirtyCheck();
}

void QVMGenericUI::applyPresetValues(std::span<const float> values) {
    auto next = values.begin();
    for (std::uint32_t pid = 0; pid < memoizedPValues_.size() && next != values.end(); ++pid) {
        const QVMParameter* parameter = config_->parameterForPid(pid);
        if (!parameter || parameter->presetWildcard) continue;
        const float value = *next++;
        if (!std::isnan(value)) notifyParameterUpdatedTo(pid, value);
    }
}

void QVMGenericUI::lastSavedPresetWasNamed(const std::string& name) {
    if (config_->presets) lastSavedPresetWasKeyed(indexOfPresetNamed(config_->presets->stringValues, name));
}

// Straight to the inner control: an index that no preset has stays what it is, and is shown as such.
void QVMGenericUI::lastSavedPresetWasKeyed(std::uint32_t index) {
    QVMParameterControl* presets = presetBar_ ? presetBar_->presetControl() : nullptr;
    if (!presets || !presets->primaryControl()) return;
    presets->primaryControl()->setFloatValue(static_cast<float>(index));
    if (presetDrawer_) presetDrawer_->showCurrentPreset();
    schedulePresetDirtyCheck();
}

void QVMGenericUI::notifyPresetChange(std::uint32_t index) {
    if (!config_->presets) return;
    const std::vector<std::string>& names = config_->presets->stringValues;
    const std::string name = index < names.size() ? names[index] : QVMPresetControl::unknownName;
    if (presetDrawer_) presetDrawer_->presetSelected(index);
    if (delegate_) delegate_->interfaceDidUpdateCurrentPresetToValueNamedPid(*this, name, index);
}

void QVMGenericUI::schedulePresetDirtyCheck() {
    dirtyCall_.schedule(dirtyCheckDelay, [this] {
        checkPresetDirtyState();
        // A name that came with no other values is no step of the history; with others it comes with their snapshot.
        keyboard_->undoRedoStack().adoptPreset(presentSnapshot());
    });
}

void QVMGenericUI::checkPresetDirtyState() {
    // What was read at the opening is not yet what the unit holds; the first values that come from it ask again.
    if (!presetBar_ || receivedParamUpdateCount_ == 0) return;
    // No settings equal a preset that does not exist.
    const auto values = PresetIndexToPresetValues(currentPreset());
    presetBar_->setDirty(!values || !equalsPreset(*values));
}

bool QVMGenericUI::equalsPreset(std::span<const float> presetValues) const {
    auto next = presetValues.begin();
    for (std::uint32_t pid = 0; pid < memoizedPValues_.size(); ++pid) {
        const QVMParameter* parameter = config_->parameterForPid(pid);
        if (!parameter || parameter->presetWildcard) continue;
        if (next == presetValues.end()) return false;
        const float wanted = *next++; // no number: any value will do
        if (!std::isnan(wanted) && memoizedPValues_[pid] != wanted) return false;
    }
    return next == presetValues.end();
}

bool QVMGenericUI::togglePresetsDrawer() {
    if (!presetBar_) return false;
    if (presetDrawer_) toggleDrawerForce(*presetDrawer_, false);
    return true;
}

void QVMGenericUI::parameterControlDidTapMeaninglessly(QVMParameterControl& control) {
    if (!presetBar_ || &control != presetBar_->presetControl()) return;
    const bool closes = presetDrawer_ && presetDrawer_->visible();
    bringParameterControlIntoFocus(closes ? &control : nullptr);
    togglePresetsDrawer();
}

} // namespace QVM_NAMESPACE
