#include "editor/session/PresetSession.h"

#include "description/ParameterIDs.h"
#include "description/Presets.h"
#include "description/ValueMapping.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double dirtyCheckDelay = 0.5; // seconds

} // namespace

PresetSession::PresetSession(const QVMConfig& config, EditorValues& values, SessionSurface& surface,
                             std::function<void()> settled)
    : config_(config), values_(values), surface_(surface), settled_(std::move(settled)), list_(config) {
    if (config.presets) current_ = static_cast<std::uint32_t>(std::max(IntegerPart(config.presets->initialValue), 0));
}

std::optional<std::uint32_t> PresetSession::indexOf(const std::string& savedName) {
    return config_.presets ? std::optional(list_.indexOfSaved(savedName)) : std::nullopt;
}

void PresetSession::setCurrent(std::uint32_t index) {
    if (!config_.presets) return;
    current_ = index;
    surface_.showPreset(index);
    scheduleDirtyCheck();
}

void PresetSession::switchTo(std::uint32_t index) {
    setCurrent(index);
    announce();
}

void PresetSession::choose(std::uint32_t index) {
    if (list_.isUsers(index)) list_.user().refresh(); // somebody else may have written it since
    const auto values = list_.valuesOf(index);
    if (!values && list_.isUsers(index)) {
        surface_.presetListDidChange();
        surface_.presetWasRefused("Not loaded", list_.nameOf(index) + ": " + list_.reasonAgainst(index));
        return surface_.showPreset(current_);
    }
    current_ = index;
    if (values) apply(*values);
    surface_.presetWasApplied();
    surface_.showPreset(index);
    announce();
    scheduleDirtyCheck();
}

void PresetSession::apply(std::span<const float> presetValues) {
    for (const auto& [pid, value] : ValuesThatPresetSets(presetValues))
        values_.send(pid, value);
}

void PresetSession::announce() const {
    if (config_.presets) surface_.presetDidBecomeCurrent(list_.savedName(current_), current_);
}

// The master switch is never in it, as in an address that is shared.
std::vector<SettingsEntry> PresetSession::presentSettings() const {
    std::vector<SettingsEntry> settings;
    for (const std::uint32_t pid : PresetPids()) {
        const QVMParameter* const parameter = config_.parameterForPid(pid);
        if (!parameter || pid == pidMasterOnOff) continue;
        if (values_.memoized(pid) != parameter->initialValue)
            settings.push_back({settingsKeyFor(*parameter), values_.memoized(pid)});
    }
    return settings;
}

PresetOutcome PresetSession::saveAs(const std::string& name, ExistingFile existing) {
    if (!config_.presets) return {PresetOutcome::Status::failed, "this product has no presets"};
    PresetOutcome outcome = list_.user().save(name, presentSettings(), existing);
    if (outcome.status != PresetOutcome::Status::done) return outcome;
    switchTo(list_.indexOfUsers(name));
    surface_.presetListDidChange();
    return outcome;
}

bool PresetSession::removeCurrent() {
    return list_.isUsers(current_) && listDidChange(list_.user().remove(list_.nameOf(current_)), "Not deleted");
}

bool PresetSession::removeDamaged(const std::string& fileName) {
    return listDidChange(list_.user().removeDamaged(fileName), "Not deleted");
}

void PresetSession::putBackRemoved() {
    listDidChange(list_.user().putBack(), "Not put back");
}

// True when it was done.
bool PresetSession::listDidChange(const PresetOutcome& outcome, const char* whatFailed) {
    const bool isDone = outcome.status == PresetOutcome::Status::done;
    if (!isDone) surface_.presetWasRefused(whatFailed, outcome.reason);
    surface_.presetListDidChange();
    scheduleDirtyCheck();
    return isDone;
}

bool PresetSession::isDirty() {
    const auto wantedValues = list_.valuesOf(current_);
    if (!wantedValues || wantedValues->size() != PresetPids().size()) return true;
    return std::ranges::any_of(ValuesThatPresetSets(*wantedValues), [this](const QVMPresetValue& wanted) {
        const QVMParameter* const parameter = config_.parameterForPid(wanted.pid);
        return parameter && !equals(*parameter, wanted.value);
    });
}

// A preset of the user's may hold a value that is not on the fine step, and a session gives back what the unit made of
// it.
bool PresetSession::equals(const QVMParameter& parameter, float wanted) const {
    const float value = values_.memoized(parameter.pid);
    return value == wanted || value == parameter.heldValueFromHostValue(parameter.reverseCastValue(wanted));
}

void PresetSession::scheduleDirtyCheck() {
    dirtyCall_.schedule(dirtyCheckDelay, [this] {
        checkDirtyState();
        settled_();
    });
}

// What was read at the opening is not yet what the unit holds; the first values that come from it ask again.
void PresetSession::checkDirtyState() {
    if (values_.receivedFrames() > 0) surface_.showPresetDirty(isDirty());
}

} // namespace QVM_NAMESPACE
