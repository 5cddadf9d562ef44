#include "editor/session/PresetSession.h"

#include "description/Presets.h"
#include "description/ValueMapping.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double dirtyCheckDelay = 0.5; // seconds

} // namespace

PresetSession::PresetSession(const QVMConfig& config, EditorValues& values, SessionSurface& surface,
                             std::function<void()> settled)
    : config_(config), values_(values), surface_(surface), settled_(std::move(settled)) {
    if (config.presets) current_ = static_cast<std::uint32_t>(std::max(IntegerPart(config.presets->initialValue), 0));
}

std::optional<std::uint32_t> PresetSession::indexOf(const std::string& name) const {
    if (!config_.presets) return std::nullopt;
    const std::vector<std::string>& names = config_.presets->stringValues;
    return static_cast<std::uint32_t>(std::find(names.begin(), names.end(), name) - names.begin());
}

bool PresetSession::isKnown(std::uint32_t index) const {
    return config_.presets && index < config_.presets->stringValues.size();
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
    current_ = index;
    if (const auto values = PresetIndexToPresetValues(index)) apply(*values);
    surface_.presetWasApplied();
    surface_.showPreset(index);
    announce();
    scheduleDirtyCheck();
}

void PresetSession::apply(std::span<const float> presetValues) {
    auto next = presetValues.begin();
    for (std::uint32_t pid = 0; pid < values_.count() && next != presetValues.end(); ++pid) {
        const QVMParameter* parameter = config_.parameterForPid(pid);
        if (!parameter || parameter->presetWildcard) continue;
        const float value = *next++;
        if (!std::isnan(value)) values_.send(pid, value);
    }
}

void PresetSession::announce() const {
    if (!config_.presets) return;
    surface_.presetDidBecomeCurrent(isKnown(current_) ? config_.presets->stringValues[current_] : unknownName,
                                    current_);
}

bool PresetSession::isDirty() const {
    const auto wantedValues = PresetIndexToPresetValues(current_);
    if (!wantedValues) return true;
    auto next = wantedValues->begin();
    for (std::uint32_t pid = 0; pid < values_.count(); ++pid) {
        const QVMParameter* parameter = config_.parameterForPid(pid);
        if (!parameter || parameter->presetWildcard) continue;
        if (next == wantedValues->end()) return true;
        const float wanted = *next++; // no number: any value will do
        if (!std::isnan(wanted) && values_.memoized(pid) != wanted) return true;
    }
    return next != wantedValues->end();
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
