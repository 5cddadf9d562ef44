// What reaches the session from the controls, the bar and the host, and what leaves it for the browser and the unit.
#include "description/ValueMapping.h"
#include "editor/surface/DesktopRequests.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"

#include <algorithm>

namespace QVM_NAMESPACE {

void QVMGenericUI::chooseValueForParameter(float value, std::uint32_t pid) {
    notifyParameterUpdatedTo(pid, value);
    if (delegate_) delegate_->interfaceDiscretelyInteractedWithParameterKeyed(*this, pid);
}

void QVMGenericUI::resetInitialValues() {
    for (const QVMParameterControl* control : parameterControls())
        notifyParameterUpdatedTo(control->parameter()->pid, control->parameter()->initialValue);
}

void QVMGenericUI::applyScratchValues() {
    session_.values().sendScratch([this](std::uint32_t pid) {
        const QVMParameterControl* control = parameterControlWithPid(pid);
        const QVMFloatControl* primary = control ? control->primaryControl() : nullptr;
        return primary && primary->isDisabled();
    });
}

// Every button switches sides, also the letter of the side that is active.
void QVMGenericUI::abControlChangeTriggeredByButton(QVMABControl& control, std::uint32_t button) {
    const auto left = session_.comparison().flip(ABComparison::Copy{button == QVMABButtonArrow});
    bringParameterControlIntoFocus(&control);
    if (delegate_) delegate_->interfaceWantsToSaveAlternateStateSettings(*this, left.side, left.settings);
}

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
    QVMParameterControl* presets = presetBar() ? presetBar()->presetControl() : nullptr;
    session_.presets().choose(presets ? static_cast<std::uint32_t>(std::max(IntegerPart(presets->floatValue()), 0))
                                      : 0);
}

void QVMGenericUI::presetSaveTapped() {
    openSettings(*this);
}

void QVMGenericUI::openManualWithExtension(const std::string& extension) {
    openManual(*this, session_.settings().baseAddress() + "/manual/" + extension);
}

void QVMGenericUI::meterTapped() {
    if (delegate_) delegate_->interfaceWantsToResetMetering(*this);
}

} // namespace QVM_NAMESPACE
