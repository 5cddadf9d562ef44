// One file of the plug-in's bundle, as the build puts it into the binary.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>
#include <span>
#include <string>

namespace QVM_NAMESPACE {

struct BundleFile {
    std::string name;                 // without folder and extension
    std::string extension;            // without the dot, as the file has it
    std::span<const std::byte> bytes; // not owned; the embedded files' bytes live as long as the binary is loaded
};

} // namespace QVM_NAMESPACE
