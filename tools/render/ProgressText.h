// The line that tells how far the work is, for a terminal.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>
#include <string>

namespace QVM_NAMESPACE {
namespace render {

struct ProgressState {
    double share = 0;          // of the whole work, 0 to 1
    double elapsedSeconds = 0; // since it began
    std::size_t filesDone = 0, files = 0;
};

// "[=====>    ]  42 %  3 of 8 files  0:12 left", at most so many characters, less of it where there is no room. The
// time is left out for as long as nothing can be said of it.
std::string progressText(const ProgressState& state, std::size_t width);

// "0:07", "12:34" or "1:02:03".
std::string durationText(double seconds);

} // namespace render
} // namespace QVM_NAMESPACE
