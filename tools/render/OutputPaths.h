// Where each file is written to.
#pragma once

#include "tools/render/RenderOptions.h"

#include <string>
#include <variant>
#include <vector>

namespace QVM_NAMESPACE {
namespace render {

struct FilePair {
    std::string input, output;
    bool operator==(const FilePair&) const = default;
};

struct PathsProblem {
    std::string message; // one line
};

// For every file in its order; or that two of them would be written to one place, or one over another that is still to
// be read. Beside the file, with the suffix before its ending, or into the folder that is named, or to the file that
// is. Looks at the disk for whether that is a folder.
[[nodiscard]] std::variant<std::vector<FilePair>, PathsProblem> outputPaths(const RenderOptions& options);

} // namespace render
} // namespace QVM_NAMESPACE
