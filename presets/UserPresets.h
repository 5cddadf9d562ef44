// The user's presets as a list: what the files hold, by name, and what can be done with them.
//
// The files are those of a store, which other processes may change at any time: what is known here is as it was when
// refresh() was called last. A name is one preset's; of two files with the same name the second counts as damaged. Main
// thread; whatever reads or writes waits for the disk.
#pragma once

#include "presets/PresetStore.h"
#include "presets/PresetText.h"

#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

struct UserPresetEntry {
    UserPreset preset;   // of a damaged one the name alone, made from that of its file
    std::string problem; // what is wrong with it, in a few words; empty: nothing
    std::string fileName;
    std::optional<std::string> text; // as it is in the file; none where that cannot be read
};

// What came of a request. `reason` is one line in plain words.
struct PresetOutcome {
    enum class Status : unsigned char { done, nameTaken, failed };
    Status status = Status::done;
    std::string reason;
};

class UserPresets {
public:
    // The configuration is borrowed. `baseAddress` is the settings address up to the "/?".
    UserPresets(const QVMConfig& config, std::string baseAddress);

    // Borrowed; null, as at first, is a store that holds nothing and takes nothing.
    void setStore(PresetStore* store);
    void refresh();
    bool wasRefreshed() const { return wasRefreshed_; }
    // As people sort: capitals with small letters; what is damaged stands in its place.
    const std::vector<UserPresetEntry>& entries() const { return entries_; }
    // One that is not damaged, or null. Valid until the next refresh.
    const UserPresetEntry* find(const std::string& name) const;

    // Each refreshes the list. With `keep` nothing is written under a name that is taken, and never under one of the
    // factory's, in whatever letters; a preset that is replaced leaves its note to the one in its place.
    PresetOutcome save(const std::string& name, std::vector<SettingsEntry> settings, ExistingFile existing);
    PresetOutcome remove(const std::string& name);
    // What is damaged goes by its file's name. One that cannot be read could not be put back, and stays.
    PresetOutcome removeDamaged(const std::string& fileName);
    // The one that was removed last comes back, once, unless the name is taken by now.
    PresetOutcome putBack();
    // Its name; none when there is none to put back.
    std::optional<std::string> removed() const;

private:
    PresetOutcome take(UserPresetEntry entry);
    PresetOutcome written(const std::error_code& error);

    const QVMConfig& config_;
    const std::string baseAddress_;
    PresetStore* store_ = nullptr;
    bool wasRefreshed_ = false;
    std::vector<UserPresetEntry> entries_;
    std::optional<UserPresetEntry> removed_;
};

} // namespace QVM_NAMESPACE
