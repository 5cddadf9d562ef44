// What a user's preset may be called, and the file that is named after it.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

inline constexpr std::size_t longestPresetName = 48; // characters
inline constexpr std::string_view presetFileEnding = ".slantwise-preset";

// One line of UTF-8 with something to be seen in it, no blanks around it, and not too long. Any thread, as all here.
bool isPresetName(std::string_view name);
// What is nearest to a text that somebody typed or pasted: its first line, without blanks around it and without what no
// name can hold, as much as fits. Empty where nothing is left.
std::string presetNameFrom(std::string_view text);

// The name of one of the user's where a session keeps which preset it had: it says whose it is. And back; absent for
// what is not of this form.
std::string savedUsersName(std::string_view name);
std::optional<std::string> usersNameIn(std::string_view savedName);

// A text with each of the marks, and "%", as "%2F": for where those mean something else; and back. What is no such
// escape stays as it is.
std::string withEscapes(std::string_view text, std::string_view marks);
std::string withoutEscapes(std::string_view text);

// The file of a name, which must be one. Two names never share a file; what a folder, a shell or another system would
// take amiss ("/", a dot in front, "?") is written as "%2F".
std::string presetFileName(std::string_view name);
// The name for the eye of a file that cannot be read, whatever it is called.
std::string nameFromPresetFile(std::string_view fileName);

} // namespace QVM_NAMESPACE
