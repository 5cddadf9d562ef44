// Where an editor of the test, in this process or in one that it starts, keeps a preset of the user's.
#pragma once

#include "presets/PresetName.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace QVM_NAMESPACE {

// The text of the file; empty while there is none.
inline std::string textOfOwnPreset(const std::string& name) {
    const std::filesystem::path folder = std::filesystem::path(std::getenv("XDG_DATA_HOME")) / "slantwise" / "presets";
    std::ifstream file(folder / presetFileName(name));
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace QVM_NAMESPACE
