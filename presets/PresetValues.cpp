#include "presets/PresetValues.h"

#include "description/Presets.h"

#include <algorithm>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

// What is sent for an entry of an address; no number where it leaves its parameter.
float valueFor(const QVMParameter& parameter, const SettingsEntry* entry) {
    if (!entry) return parameter.initialValue;
    return entry->value ? settingsValueFor(parameter, *entry->value) : std::numeric_limits<float>::quiet_NaN();
}

// A file may call a parameter by either of its names; the later one counts.
const SettingsEntry* entryFor(const QVMParameter& parameter, const UserPreset& preset, const QVMConfig& config) {
    const auto found = std::find_if(preset.settings.rbegin(), preset.settings.rend(), [&](const SettingsEntry& entry) {
        return config.parameterForCodename(entry.key) == &parameter;
    });
    return found == preset.settings.rend() ? nullptr : &*found;
}

} // namespace

std::vector<float> presetValues(const UserPreset& preset, const QVMConfig& config) {
    std::vector<float> values;
    for (const std::uint32_t pid : PresetPids()) {
        const QVMParameter* const parameter = config.parameterForPid(pid);
        values.push_back(parameter ? valueFor(*parameter, entryFor(*parameter, preset, config))
                                   : std::numeric_limits<float>::quiet_NaN());
    }
    return values;
}

} // namespace QVM_NAMESPACE
