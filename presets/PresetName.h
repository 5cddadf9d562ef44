// What a user's preset may be called, and the file that is named after it.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>
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

// The file of a name, which must be one. Two names never share a file; what a folder, a shell or another system would
// take amiss ("/", a dot in front, "?") is written as "%2F".
std::string presetFileName(std::string_view name);
// The name for the eye of a file that cannot be read, whatever it is called.
std::string nameFromPresetFile(std::string_view fileName);

} // namespace QVM_NAMESPACE
