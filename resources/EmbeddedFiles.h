// The files that the build has put into the binary. The definition is written by EmbedFiles.cmake.
#pragma once

#include "resources/BundleFile.h"

#include <vector>

namespace QVM_NAMESPACE {

// Every embedded file, in no promised order. Any thread.
std::vector<BundleFile> embeddedFiles();

} // namespace QVM_NAMESPACE
