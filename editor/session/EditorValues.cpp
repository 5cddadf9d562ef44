#include "editor/session/EditorValues.h"

#include "description/PartnerRule.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

EditorValues::EditorValues(const QVMConfig& config, SessionSurface& surface, EditorValuesObserver& observer)
    : config_(config), surface_(surface), observer_(observer) {
    const auto count = static_cast<std::size_t>(config.numParameters);
    memoizedPValues_.resize(count);
    memoizedPValuesChanged_.assign(count, 1);
    receivedPValues_.assign(count, nothingReceived);
    heldRanges_.resize(count);
    scratchPValues_.resize(count);
    displays_.resize(count);
    config.enumerateParametersWithBlock([this](QVMParameter& parameter, QVMClump&) {
        setDirectly(parameter.pid, parameter.initialValue);
        if (parameter.pid < heldRanges_.size()) heldRanges_[parameter.pid] = parameter.heldRange();
    });
}

void EditorValues::setDisplay(std::uint32_t pid, ParameterDisplay& display) {
    if (pid < count()) displays_[pid] = &display;
}

float EditorValues::memoizedInRange(std::uint32_t pid) const {
    if (pid >= count()) return 0;
    return std::min(std::max(heldRanges_[pid].min, memoizedPValues_[pid]), heldRanges_[pid].max); // NaN is the least
}

void EditorValues::show(std::uint32_t pid, float value) const {
    if (pid < count() && displays_[pid]) displays_[pid]->setFloatValue(value);
}

void EditorValues::setDirectly(std::uint32_t pid, float value) {
    if (pid < count()) memoizedPValues_[pid] = value;
}

void EditorValues::memoize(std::uint32_t pid, float value) {
    if (pid >= count() || memoizedPValues_[pid] == value) return; // NaN is always a change
    memoizedPValues_[pid] = value;
    memoizedPValuesChanged_[pid] = 1;
    observer_.memoizedValueDidChange(pid);
}

void EditorValues::send(std::uint32_t pid, float value) {
    const QVMParameter* parameter = config_.parameterForPid(pid);
    if (!parameter) return;
    value = parameter->restrictValue(value);
    const float hostValue = parameter->reverseCastValue(value);
    if (!std::isfinite(hostValue)) return; // as of a frequency below zero: the unit would refuse it and never answer
    if (delegate_) delegate_->interfaceUpdatedParameterKeyedValue(pid, hostValue);
    memoize(pid, value);
    if (!comesBack_) show(pid, value);
}

void EditorValues::sendFromControl(std::uint32_t pid, float value) {
    if (value != memoized(pid)) surface_.controlWillChangeValue();
    send(pid, value);
    const std::optional<PartnerRule> rule = PartnerRuleForPid(pid);
    if (!rule) return;
    const float partnerWas = memoized(rule->partner);
    const float partnerValue = rule->partnerValue(value, partnerWas);
    if (partnerValue != partnerWas) send(rule->partner, partnerValue);
}

void EditorValues::sendPairs(const std::vector<std::pair<std::string, float>>& pairs) {
    for (const auto& [codename, value] : pairs)
        if (const QVMParameter* parameter = config_.parameterForCodename(codename)) send(parameter->pid, value);
}

void EditorValues::sendScratch(const std::function<bool(std::uint32_t pid)>& isLeftOut) {
    for (std::uint32_t pid = 0; pid < count(); ++pid)
        if (scratchPValues_[pid] != memoizedPValues_[pid] && !isLeftOut(pid)) send(pid, scratchPValues_[pid]);
}

void EditorValues::receiveIfNew(std::uint32_t pid, float value, bool wasStored) {
    if (pid >= count()) return;
    const QVMParameter* const parameter = wasStored ? config_.parameterForPid(pid) : nullptr;
    const bool wasTakenBack = parameter && !isEcho(*parameter, value);
    if (value != receivedPValues_[pid] || !isMemoizedValueHeld(pid) || wasTakenBack) receive(pid, value);
}

void EditorValues::receive(std::uint32_t pid, float value) {
    const QVMParameter* parameter = config_.parameterForPid(pid);
    if (!parameter || pid >= count()) return;
    const float was = std::exchange(receivedPValues_[pid], value);
    if (was == nothingReceived) rereadMemoizedValue(*parameter, value);
    const bool isWhole = parameter->unit == QVMUnitIndexed || parameter->unit == QVMUnitSwitch;
    if (isEcho(*parameter, value) && !isWhole) value = memoizedPValues_[pid]; // what is whole is as the unit made it
    show(pid, value);
    memoize(pid, value);
    surface_.valueWasReceived(pid, value, was);
    observer_.receivedValueWasAdopted(pid);
}

// The unit stores less than the editor sends: fewer bits of a frequency, and no value beside the fine step. What it
// makes of a value that was sent is that value, but not where it has moved it to an end of its range.
bool EditorValues::isEcho(const QVMParameter& parameter, float value) const {
    const float sent = parameter.reverseCastValue(memoizedPValues_[parameter.pid]);
    return isMemoizedValueHeld(parameter.pid) && parameter.heldValueFromHostValue(sent) == value;
}

// A value that was sent outside the unit's range, as by the rule that pushes partners apart, is another in the unit,
// which may have held that one all along and then posts nothing new.
bool EditorValues::isMemoizedValueHeld(std::uint32_t pid) const {
    return heldRanges_[pid].contains(memoizedPValues_[pid]);
}

// What was memoized at the opening is the unit's value inside the parameter's range, and the range links start below
// theirs. The value as the unit holds it then takes that one's place, wherever it was kept: nobody changed anything.
void EditorValues::rereadMemoizedValue(const QVMParameter& parameter, float held) {
    const float read = memoizedPValues_[parameter.pid];
    if (read == held || parameter.shownValueFromHostValue(parameter.reverseCastValue(held)) != read) return;
    memoizedPValues_[parameter.pid] = held;
    observer_.valueWasReread(parameter.pid, read, held);
}

} // namespace QVM_NAMESPACE
