// A file in the folder of the user's presets, which is one of the test's own.
#pragma once

#include "presets/PresetFolder.h"
#include "presets/PresetName.h"

#include <gtest/gtest.h>

#include <string>

namespace QVM_NAMESPACE {

inline void writeOwnPresetFile(const std::string& name, const std::string& text) {
    PresetFolder folder(PresetFolder::ofUser());
    ASSERT_FALSE(folder.write(presetFileName(name), text, ExistingFile::replace));
}

// With the settings of an address, from behind its "?" on.
inline void writeOwnPreset(const std::string& name, const std::string& settings) {
    writeOwnPresetFile(name,
                       "Slantwise preset 1\nName: " + name + "\nSettings: https://a.example/s/2/?" + settings + "\n");
}

} // namespace QVM_NAMESPACE
