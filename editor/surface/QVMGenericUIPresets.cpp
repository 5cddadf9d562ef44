// Presets as they are chosen, shown and reported.
#include "description/ValueMapping.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"

#include <algorithm>

namespace QVM_NAMESPACE {

void QVMGenericUI::requestPresetNamed(const std::string& name) {
    const auto index = session_.presets().indexOf(name);
    if (!index || !session_.presets().isKnown(*index)) return;
    lastSavedPresetWasKeyed(*index);
    presetUpdated();
}

void QVMGenericUI::lastSavedPresetWasNamed(const std::string& name) {
    if (const auto index = session_.presets().indexOf(name)) lastSavedPresetWasKeyed(*index);
}

void QVMGenericUI::presetUpdated() {
    const QVMParameterControl* presets = presetBar_ ? presetBar_->presetControl() : nullptr;
    session_.presets().choose(presets ? static_cast<std::uint32_t>(std::max(IntegerPart(presets->floatValue()), 0))
                                      : 0);
    const bool drawerIsOpen = presetDrawer_ && presetDrawer_->visible();
    if (presetBar_ && !drawerIsOpen) bringParameterControlIntoFocus(presetBar_->presetControl());
}

// Straight to the inner control: an index that no preset has stays what it is, and is shown as such.
void QVMGenericUI::showPreset(std::uint32_t index) {
    QVMParameterControl* presets = presetBar_ ? presetBar_->presetControl() : nullptr;
    if (presets && presets->primaryControl()) presets->primaryControl()->setFloatValue(static_cast<float>(index));
    if (presetDrawer_) presetDrawer_->showCurrentPreset();
}

void QVMGenericUI::showPresetDirty(bool dirty) {
    if (presetBar_) presetBar_->setDirty(dirty);
}

void QVMGenericUI::presetDidBecomeCurrent(const std::string& name, std::uint32_t index) {
    if (presetDrawer_) presetDrawer_->presetSelected(index);
    if (delegate_) delegate_->interfaceDidUpdateCurrentPresetToValueNamedPid(*this, name, index);
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
