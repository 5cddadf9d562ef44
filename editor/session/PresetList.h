// The presets that there are, by index: the factory's, and behind them the user's.
//
// A user's preset is known by its name, and its index is the editor's own: the name that is met first gets the next one
// and keeps it as long as the list lives, whatever becomes of its file. So history and comparison can refer to it. Main
// thread; what looks at the user's presets waits for the disk.
#pragma once

#include "description/QVMConfig.h"
#include "presets/UserPresets.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class PresetList {
public:
    // The name of an index that no preset has.
    static constexpr const char* unknownName = "N/A";

    // The configuration is borrowed.
    explicit PresetList(const QVMConfig& config);

    UserPresets& user() { return user_; }
    const UserPresets& user() const { return user_; }

    // How many the factory has; 0 in a product without presets.
    std::uint32_t factoryCount() const;
    // An index that no preset ever has: the one behind the factory's. Those of the user's come after it.
    std::uint32_t noPreset() const { return factoryCount(); }
    bool isUsers(std::uint32_t index) const { return index > noPreset() && index - noPreset() <= names_.size(); }
    bool isKnown(std::uint32_t index) const { return index < factoryCount() || isUsers(index); }
    std::string nameOf(std::uint32_t index) const;
    // The index of the user's preset with a name, whether it has a file or not.
    std::uint32_t indexOfUsers(const std::string& name);

    // What a session keeps of a preset: a name, in front of which stands whose it is where it is the user's. Of an
    // index that no preset has it is the unknown name, and of any name that no preset has the index is one that no
    // preset has.
    std::string savedName(std::uint32_t index) const;
    std::uint32_t indexOfSaved(const std::string& savedName);

    // One value for each parameter that is no preset wildcard, in pid order; what is no number leaves its parameter.
    // None for an index that no preset has, and where the user's preset cannot be read. Looks at the user's presets if
    // nobody has.
    std::optional<std::vector<float>> valuesOf(std::uint32_t index);
    // Why there are none, in a few words.
    std::string reasonAgainst(std::uint32_t index) const;
    // The next or previous one, round and round: the factory's by index, then the user's by name. Looks at the user's
    // presets where the way leads there.
    std::uint32_t following(std::uint32_t index, bool forward);

private:
    std::optional<std::uint32_t> usersFollowing(const std::optional<std::string>& name, bool forward);

    const QVMConfig& config_;
    UserPresets user_;
    std::vector<std::string> names_; // of the user's, by index
};

} // namespace QVM_NAMESPACE
