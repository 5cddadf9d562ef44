// Giving a file its name. Any thread but the render thread.
#pragma once

#include "BuildNamespace.h"

#include <filesystem>
#include <system_error>

namespace QVM_NAMESPACE {

// Where a symbolic link leads, though that may not be there yet; a file that is none, or a link that leads nowhere, is
// itself.
std::filesystem::path withoutLinks(const std::filesystem::path& file);

// Gives a file a name in the same folder that nobody has; std::errc::file_exists where somebody has it, and of several
// at once one alone gets it. On older file systems, and on some in a network, it keeps the former name beside the new
// one.
[[nodiscard]] std::error_code renameToNew(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace QVM_NAMESPACE
