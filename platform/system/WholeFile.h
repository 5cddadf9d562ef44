// Files of the user's, written whole or not at all: whoever reads one finds what was there or what is there now,
// whenever a process dies, a disk is full, or several processes write the same one.
//
// What is written goes to a file of its own beside the other, to the disk, and only then to its name. What a process
// left behind that died in between is taken away by a later one. These calls wait for the disk: any thread but the
// render thread, and only where the user asked for it.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <variant>

namespace QVM_NAMESPACE {

// What becomes of a file that has the name already. `keep`: nothing is written, and the error is
// std::errc::file_exists; of several that write at once one alone gets the name.
enum class ExistingFile : bool { keep, replace };

// No error: the file holds the content. Any error: what was there before is there still; its message() is in plain
// words. The folder has to be there. A symbolic link stays one, and what it names is written; the permissions stay.
[[nodiscard]] std::error_code writeWholeFile(const std::filesystem::path& file, std::string_view content,
                                             ExistingFile existing);

// The content of a plain file of at most so many bytes, or why there is none. Nothing that waits for somebody, as a
// pipe does, is opened.
[[nodiscard]] std::variant<std::string, std::error_code> readWholeFile(const std::filesystem::path& file,
                                                                       std::size_t mostBytes);

} // namespace QVM_NAMESPACE
