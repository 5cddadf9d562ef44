#include "editor/session/PresetList.h"

#include "description/Presets.h"
#include "editor/session/MakerSite.h"
#include "presets/PresetName.h"
#include "presets/PresetValues.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

PresetList::PresetList(const QVMConfig& config)
    : config_(config), user_(config, config.metadata ? settingsBaseAddress(makerSite, *config.metadata) : "") {}

std::uint32_t PresetList::factoryCount() const {
    return config_.presets ? static_cast<std::uint32_t>(config_.presets->stringValues.size()) : 0;
}

std::string PresetList::nameOf(std::uint32_t index) const {
    if (index < factoryCount()) return config_.presets->stringValues[index];
    return isUsers(index) ? names_[index - noPreset() - 1] : unknownName;
}

std::uint32_t PresetList::indexOfUsers(const std::string& name) {
    const auto found = std::ranges::find(names_, name);
    const auto place = static_cast<std::uint32_t>(found - names_.begin());
    if (found == names_.end()) names_.push_back(name);
    return noPreset() + 1 + place;
}

std::string PresetList::savedName(std::uint32_t index) const {
    return isUsers(index) ? savedUsersName(nameOf(index)) : nameOf(index);
}

std::uint32_t PresetList::indexOfSaved(const std::string& savedName) {
    if (config_.presets) {
        const std::vector<std::string>& names = config_.presets->stringValues;
        const auto found = std::ranges::find(names, savedName);
        if (found != names.end()) return static_cast<std::uint32_t>(found - names.begin());
        if (const auto name = usersNameIn(savedName); name && isPresetName(*name)) return indexOfUsers(*name);
    }
    return noPreset();
}

std::optional<std::vector<float>> PresetList::valuesOf(std::uint32_t index) {
    if (!isUsers(index)) return PresetIndexToPresetValues(index);
    if (!user_.wasRefreshed()) user_.refresh();
    const UserPresetEntry* const entry = user_.find(nameOf(index));
    return entry ? std::optional(presetValues(entry->preset, config_)) : std::nullopt;
}

std::string PresetList::reasonAgainst(std::uint32_t index) const {
    const auto damaged = std::ranges::find_if(user_.entries(), [&](const UserPresetEntry& entry) {
        return !entry.problem.empty() && entry.preset.name == nameOf(index);
    });
    return damaged == user_.entries().end() ? "its file is gone" : damaged->problem;
}

std::uint32_t PresetList::following(std::uint32_t index, bool forward) {
    const std::uint32_t count = factoryCount();
    if (count == 0) return index;
    const auto factoryAfter = [&](float from) {
        return static_cast<std::uint32_t>(config_.presets->floatValueAfter(from, forward));
    };
    const std::uint32_t first = forward ? 0 : count - 1; // that the factory's begin with
    if (index < count) {
        const std::uint32_t next = factoryAfter(static_cast<float>(index));
        const bool isWithin = forward ? next > index : next < index;
        return isWithin ? next : usersFollowing(std::nullopt, forward).value_or(next);
    }
    return isUsers(index) ? usersFollowing(nameOf(index), forward).value_or(first) : first;
}

// Behind a name, or from the beginning of the way; none at its end.
std::optional<std::uint32_t> PresetList::usersFollowing(const std::optional<std::string>& name, bool forward) {
    user_.refresh();
    std::vector<std::string> sound;
    for (const UserPresetEntry& entry : user_.entries())
        if (entry.problem.empty()) sound.push_back(entry.preset.name);
    if (!forward) std::ranges::reverse(sound);
    auto next = sound.begin();
    if (name) {
        next = std::ranges::find(sound, *name);
        if (next != sound.end()) ++next;
    }
    return next == sound.end() ? std::nullopt : std::optional(indexOfUsers(*next));
}

} // namespace QVM_NAMESPACE
