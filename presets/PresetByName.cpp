#include "presets/PresetByName.h"

#include "description/Description.h"
#include "presets/PresetFolder.h"
#include "presets/PresetName.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

std::vector<UserPresetEntry> ownPresets() {
    PresetFolder folder(PresetFolder::ofUser());
    const auto config = QVMConfig::inlinedConfig();
    UserPresets presets(*config, {}); // only read
    presets.setStore(&folder);
    presets.refresh();
    return presets.entries();
}

PresetByName presetByName(const std::string& name) {
    const auto& factory = GetPresets()->stringValues;
    const auto at = std::ranges::find(factory, name);
    if (at != factory.end()) return {static_cast<int>(at - factory.begin()), {}, {}};
    const std::string wanted = usersNameIn(name).value_or(name);
    PresetByName found;
    for (UserPresetEntry& entry : ownPresets()) {
        if (entry.preset.name != wanted) continue;
        if (entry.problem.empty()) return {{}, std::move(entry.preset), {}};
        // Another file may have the name and be sound.
        found.problem = "the preset \"" + wanted + "\" cannot be read: " + entry.problem;
    }
    return found;
}

std::vector<std::string> presetNames() {
    std::vector<std::string> names = GetPresets()->stringValues;
    for (const UserPresetEntry& entry : ownPresets())
        if (entry.problem.empty()) names.push_back(entry.preset.name);
    return names;
}

} // namespace QVM_NAMESPACE
