// The way of a value from a control to the delegate, and the memoized values.
#include "controls/QVMSymbolButton.h"
#include "description/PartnerRule.h"
#include "editor/session/ModesWithoutControl.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMKeyboardHandler.h"
#include "editor/surface/QVMPowerBox.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double gearFlashLimit = 0.2; // seconds

} // namespace

void QVMGenericUI::handleParameterControlUpdated(QVMParameterControl& control) {
    const std::uint32_t pid = control.parameter()->pid;
    const float value = control.floatValue();
    if (value != getMemoizedPValueDirectly(pid)) keyboard_->clearNumberBuffer(); // it was dragged past what was typed
    notifyParameterUpdatedTo(pid, value);
    const std::optional<PartnerRule> rule = PartnerRuleForPid(pid);
    if (!rule) return;
    const float partnerWas = getMemoizedPValueDirectly(rule->partner);
    const float partnerValue = rule->partnerValue(value, partnerWas);
    if (partnerValue != partnerWas) notifyParameterUpdatedTo(rule->partner, partnerValue);
}

void QVMGenericUI::notifyParameterUpdatedTo(std::uint32_t pid, float value) {
    const QVMParameter* parameter = config_->parameterForPid(pid);
    if (!parameter) return;
    value = parameter->restrictValue(value);
    if (delegate_) delegate_->interfaceUpdatedParameterKeyedValue(*this, pid, parameter->reverseCastValue(value));
    updateMemoizedValueForParameter(value, pid);
    if (sketch_) return; // the value comes back through it
    if (QVMParameterControl* control = parameterControlWithPid(pid)) control->setFloatValue(value);
}

void QVMGenericUI::updateMemoizedValueForParameter(float value, std::uint32_t pid) {
    if (pid >= memoizedPValues_.size() || memoizedPValues_[pid] == value) return; // NaN is always a change
    memoizedPValues_[pid] = value;
    memoizedPValuesChanged_[pid] = 1;
    potentiallySaveToUndoRedoStack();
    if (hud_) hud_->updateWithParamsChanges(memoizedPValues_, memoizedPValuesChanged_);
    const QVMParameter* parameter = config_->parameterForPid(pid);
    if (parameter && isModeWithoutControl(*parameter)) describeMeters();
    QVMSymbolButton* gear = isInClosedDrawer(parameter) && powerBox_ ? powerBox_->gear() : nullptr;
    if (gear) advFlashLim_.fireWithLimitTargetSelector(gearFlashLimit, *gear, &QVMSymbolButton::flash);
}

void QVMGenericUI::chooseValueForParameter(float value, std::uint32_t pid) {
    notifyParameterUpdatedTo(pid, value);
    if (delegate_) delegate_->interfaceDiscretelyInteractedWithParameterKeyed(*this, pid);
}

void QVMGenericUI::setParameterValuePairs(const std::vector<std::pair<std::string, float>>& pairs) {
    for (const auto& [codename, value] : pairs)
        if (const QVMParameter* parameter = config_->parameterForCodename(codename))
            notifyParameterUpdatedTo(parameter->pid, value);
}

void QVMGenericUI::resetInitialValues() {
    for (const QVMParameterControl* control : parameterControls_)
        notifyParameterUpdatedTo(control->parameter()->pid, control->parameter()->initialValue);
}

void QVMGenericUI::applyScratchValues() {
    for (std::uint32_t pid = 0; pid < scratchPValues_.size(); ++pid) {
        if (scratchPValues_[pid] == memoizedPValues_[pid]) continue;
        const QVMParameterControl* control = parameterControlWithPid(pid);
        const QVMFloatControl* primary = control ? control->primaryControl() : nullptr;
        if (primary && primary->isDisabled()) continue;
        notifyParameterUpdatedTo(pid, scratchPValues_[pid]);
    }
}

void QVMGenericUI::setMemoizedPValueDirectlyValue(std::uint32_t pid, float value) {
    if (pid < memoizedPValues_.size()) memoizedPValues_[pid] = value;
}

float QVMGenericUI::getMemoizedPValueDirectly(std::uint32_t pid) const {
    return pid < memoizedPValues_.size() ? memoizedPValues_[pid] : 0;
}

} // namespace QVM_NAMESPACE
