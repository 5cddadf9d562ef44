// Every live display, for tests that ask the same of each.
#pragma once

#include "viz/displays/LiveDisplay.h"

#include <array>

namespace QVM_NAMESPACE {

struct LiveDisplayEntry {
    const char* name;
    std::unique_ptr<LiveDisplay> (*make)();
};
inline constexpr std::array<LiveDisplayEntry, 4> LiveDisplays = {{
    {"goniometer", makeGoniometerDisplay},
    {"stereoscope", makeStereoscopeDisplay},
    {"gain-reduction", makeGRHistoryDisplay},
    {"histogram", makeHistogramDisplay},
}};

} // namespace QVM_NAMESPACE
