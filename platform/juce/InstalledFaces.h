// Finds fonts that are installed on the machine, without scanning them.
#pragma once

#include "description/BuildNamespace.h"

#include <optional>
#include <string>

namespace QVM_NAMESPACE {

// The file of an installed face with exactly this PostScript name; absent when there is none, or when the file is a
// collection in which it is not the first. Any thread; the first call loads the system's font index.
std::optional<std::string> fileOfInstalledFace(const std::string& postScriptName);

} // namespace QVM_NAMESPACE
