// What the session asks for about values, and the controls that they are set with.
#include "controls/QVMRangeControl.h"
#include "controls/QVMSymbolButton.h"
#include "editor/session/ModesWithoutControl.h"
#include "editor/session/SideEffects.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPowerBox.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double gearFlashLimit = 0.2; // seconds

} // namespace

void QVMGenericUI::handleParameterControlUpdated(QVMParameterControl& control) {
    const std::uint32_t pid = control.parameter()->pid;
    const float value = control.floatValue();
    if (value != getMemoizedPValueDirectly(pid)) keyboard_.clearNumberBuffer(); // it was dragged past what was typed
    session_.values().sendFromControl(pid, value);
}

void QVMGenericUI::chooseValueForParameter(float value, std::uint32_t pid) {
    notifyParameterUpdatedTo(pid, value);
    if (delegate_) delegate_->interfaceDiscretelyInteractedWithParameterKeyed(*this, pid);
}

void QVMGenericUI::resetInitialValues() {
    for (const QVMParameterControl* control : parameterControls_)
        notifyParameterUpdatedTo(control->parameter()->pid, control->parameter()->initialValue);
}

void QVMGenericUI::applyScratchValues() {
    session_.values().sendScratch([this](std::uint32_t pid) {
        const QVMParameterControl* control = parameterControlWithPid(pid);
        const QVMFloatControl* primary = control ? control->primaryControl() : nullptr;
        return primary && primary->isDisabled();
    });
}

void QVMGenericUI::sendValueToUnit(std::uint32_t pid, float hostValue) {
    if (delegate_) delegate_->interfaceUpdatedParameterKeyedValue(*this, pid, hostValue);
}

void QVMGenericUI::showValue(std::uint32_t pid, float value) {
    if (QVMParameterControl* control = parameterControlWithPid(pid)) control->setFloatValue(value);
}

std::vector<ShownValue> QVMGenericUI::shownValues() const {
    std::vector<ShownValue> shown;
    for (const QVMParameterControl* control : parameterControls_)
        shown.push_back({control->parameter()->pid, control->floatValue()});
    return shown;
}

void QVMGenericUI::valueDidChange(std::uint32_t pid) {
    if (hud_) hud_->updateWithParamsChanges(session_.values().memoized(), session_.values().changed());
    const QVMParameter* parameter = config_->parameterForPid(pid);
    if (parameter && isModeWithoutControl(*parameter)) describeMeters();
    QVMSymbolButton* gear = focus_.isInClosedDrawer(parameter) && powerBox_ ? powerBox_->gear() : nullptr;
    if (gear) advFlashLim_.fireWithLimitTargetSelector(gearFlashLimit, *gear, &QVMSymbolButton::flash);
}

void QVMGenericUI::valueWasReceived(std::uint32_t pid, float value, float was) {
    QVMParameterControl* control = parameterControlWithPid(pid);
    if (!control) return;
    const QVMParameter& cause = *control->parameter();
    applySideEffects(sideEffectsOf(cause, value), *control);
    if (control->range()) control->range()->updateRangeAnimated(Animate::yes);
    if (receivedParamUpdateCount() == 0 || value != 0 || value == was) return;
    for (const std::vector<std::string>& link : cause.links) {
        const QVMParameterControl* linked = link.empty() ? nullptr : parameterControlWithCodename(link.front());
        if (linked) propagateLinkForPidNotify(linked->parameter()->pid, true);
    }
}

} // namespace QVM_NAMESPACE
