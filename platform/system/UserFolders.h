// Where a user's own files stand, by the desktop's base-directory rules: a folder of the product's in $XDG_DATA_HOME
// ("~/.local/share" where that is not set or relative) and one in $XDG_CONFIG_HOME ("~/.config").
//
// Nothing is made or looked at before it is asked for. Any thread but the render thread.
#pragma once

#include "BuildNamespace.h"

#include <filesystem>
#include <system_error>
#include <vector>

namespace QVM_NAMESPACE {

// For what the user makes. Empty where the user has no home; the folder need not be there.
std::filesystem::path userDataFolder();
// For what the user prefers; as above.
std::filesystem::path userConfigFolder();
// Where data of all programs stands, the user's own folder first: $XDG_DATA_HOME, then $XDG_DATA_DIRS
// ("/usr/local/share" and "/usr/share").
std::vector<std::filesystem::path> sharedDataFolders();

// Makes a folder and those above it that are missing, which only the user may enter. No error: it is there.
[[nodiscard]] std::error_code makeUserFolder(const std::filesystem::path& folder);

} // namespace QVM_NAMESPACE
