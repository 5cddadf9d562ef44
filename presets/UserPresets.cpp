#include "presets/UserPresets.h"

#include "presets/PresetName.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

using Status = PresetOutcome::Status;

// Small letters for capitals, of the ASCII alone: the same order in every locale.
std::string sortingKey(const std::string& name) {
    std::string key = name;
    std::ranges::transform(key, key.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    return key;
}

bool standsBefore(const UserPresetEntry& one, const UserPresetEntry& other) {
    const std::string &a = one.preset.name, &b = other.preset.name;
    return std::tuple(sortingKey(a), a) < std::tuple(sortingKey(b), b);
}

// Two presets of one name in the list would not be told apart, nor could a program be asked for one of them.
bool isFactoryName(const std::string& name, const QVMConfig& config) {
    return config.presets && std::ranges::any_of(config.presets->stringValues, [&](const std::string& factory) {
               return sortingKey(factory) == sortingKey(name);
           });
}

bool isCalledAfterItsPreset(const UserPresetEntry& entry) {
    return entry.fileName == presetFileName(entry.preset.name);
}

UserPresetEntry damaged(const PresetStore::File& file, std::string problem, std::optional<std::string> text) {
    return {{nameFromPresetFile(file.fileName), {}, {}}, std::move(problem), file.fileName, std::move(text)};
}

UserPresetEntry entryFrom(PresetStore::File&& file, const QVMConfig& config) {
    if (const auto* error = std::get_if<std::error_code>(&file.content))
        return damaged(file, error->message(), std::nullopt);
    std::string& text = std::get<std::string>(file.content);
    auto read = readPresetText(text, config);
    if (const auto* refusal = std::get_if<PresetRefusal>(&read)) return damaged(file, refusal->text(), std::move(text));
    return {std::move(std::get<UserPreset>(read)), {}, std::move(file.fileName), std::move(text)};
}

} // namespace

UserPresets::UserPresets(const QVMConfig& config, std::string baseAddress)
    : config_(config), baseAddress_(std::move(baseAddress)) {}

void UserPresets::setStore(PresetStore* store) {
    store_ = store;
    wasRefreshed_ = false;
    entries_.clear();
    removed_.reset();
}

void UserPresets::refresh() {
    wasRefreshed_ = true;
    entries_.clear();
    if (!store_) return;
    for (PresetStore::File& file : store_->readAll())
        entries_.push_back(entryFrom(std::move(file), config_));
    // A file that is called after its preset comes before a copy of it.
    std::stable_partition(entries_.begin(), entries_.end(), isCalledAfterItsPreset);
    std::set<std::string> names;
    for (UserPresetEntry& entry : entries_)
        if (entry.problem.empty() && !names.insert(entry.preset.name).second)
            entry.problem = "another file has this name";
    std::ranges::stable_sort(entries_, standsBefore);
}

const UserPresetEntry* UserPresets::find(const std::string& name) const {
    const auto found = std::ranges::find_if(
        entries_, [&](const UserPresetEntry& each) { return each.problem.empty() && each.preset.name == name; });
    return found == entries_.end() ? nullptr : &*found;
}

PresetOutcome UserPresets::save(const std::string& name, std::vector<SettingsEntry> settings, ExistingFile existing) {
    if (!store_) return {Status::failed, "there is no place for presets"};
    if (!isPresetName(name)) return {Status::failed, "this name cannot be used"};
    if (isFactoryName(name, config_)) return {Status::failed, "a factory preset has this name"};
    refresh();
    UserPreset preset{name, {}, std::move(settings)};
    std::string fileName = presetFileName(name);
    if (const UserPresetEntry* taken = find(name)) {
        if (existing == ExistingFile::keep) return {Status::nameTaken, "this name is taken"};
        preset.note = taken->preset.note;
        fileName = taken->fileName;
    }
    return written(store_->write(fileName, writePresetText(preset, baseAddress_), existing));
}

PresetOutcome UserPresets::remove(const std::string& name) {
    refresh();
    const UserPresetEntry* const found = find(name);
    return found ? take(*found) : PresetOutcome{Status::failed, "its file is gone"};
}

PresetOutcome UserPresets::removeDamaged(const std::string& fileName) {
    refresh();
    const auto found = std::ranges::find_if(
        entries_, [&](const UserPresetEntry& each) { return !each.problem.empty() && each.fileName == fileName; });
    if (found == entries_.end()) return {Status::failed, "its file is gone"};
    return found->text ? take(*found) : PresetOutcome{Status::failed, found->problem};
}

PresetOutcome UserPresets::take(UserPresetEntry entry) {
    if (const std::error_code error = store_->remove(entry.fileName)) return written(error);
    removed_ = std::move(entry);
    return written({});
}

PresetOutcome UserPresets::putBack() {
    if (!store_ || !removed_) return {Status::failed, "nothing was deleted"};
    refresh();
    if (removed_->problem.empty() && find(removed_->preset.name))
        return {Status::nameTaken, "its name is taken by now"};
    const std::error_code error = store_->write(removed_->fileName, *removed_->text, ExistingFile::keep);
    if (!error) removed_.reset();
    return written(error);
}

std::optional<std::string> UserPresets::removed() const {
    return removed_ ? std::optional(removed_->preset.name) : std::nullopt;
}

PresetOutcome UserPresets::written(const std::error_code& error) {
    if (error == std::errc::file_exists) return {Status::nameTaken, "this name is taken"};
    if (error) return {Status::failed, error.message()};
    refresh();
    return {};
}

} // namespace QVM_NAMESPACE
