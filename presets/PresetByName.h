// A preset as a command line calls it: by its name, the factory's first, then the user's as their folder holds them
// now. One of the user's that is called as one of the factory's is found by the name that a session keeps. Whatever
// looks at the user's waits for the disk. Any thread.
#pragma once

#include "presets/UserPresets.h"

#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// One of the three; none of them where nothing has the name.
struct PresetByName {
    std::optional<int> factoryIndex; // into the factory presets
    std::optional<UserPreset> own;
    std::string problem; // that the user's preset of this name cannot be read, and why
};

PresetByName presetByName(const std::string& name);

// The user's, the damaged ones among them.
std::vector<UserPresetEntry> ownPresets();
// What presetByName() takes: the factory's, then the user's.
std::vector<std::string> presetNames();

} // namespace QVM_NAMESPACE
