// The manual that was installed with this binary: the page that the desktop opens in place of the manual's address on
// the web, with no network.
#pragma once

#include "BuildNamespace.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

// What an address below this version's manual asks for: the name of a heading, empty for the whole; null for an address
// that is not the manual's.
std::optional<std::string> manualTopicOf(std::string_view address);

// Where the manual may stand, the nearest first: in a bundle with the binary, beside the programs of its prefix, in the
// build folder, and in the folders of data, as `XDG_DATA_HOME` and `XDG_DATA_DIRS` name them.
std::vector<std::filesystem::path> manualFolders(const std::filesystem::path& binary,
                                                 const std::vector<std::filesystem::path>& dataFolders);

// The file for a topic in the first folder that has this version's manual; the whole manual where the topic has none.
// Null when there is no manual.
std::optional<std::string> manualPage(const std::string& topic, const std::vector<std::filesystem::path>& folders);

// All of it for an address and the binary that this is part of.
std::optional<std::string> installedManualPage(std::string_view address);

} // namespace QVM_NAMESPACE
