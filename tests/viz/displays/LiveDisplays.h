// Every live display, for tests that ask the same of each.
#pragma once

#include "viz/displays/GRHistoryDisplay.h"
#include "viz/displays/GoniometerDisplay.h"
#include "viz/displays/HistogramDisplay.h"
#include "viz/displays/StereoscopeDisplay.h"

#include <array>
#include <memory>

namespace QVM_NAMESPACE {

struct LiveDisplayEntry {
    const char* name;
    std::unique_ptr<LiveDisplay> (*make)();
};
template <class Display>
std::unique_ptr<LiveDisplay> makeDisplay() {
    return std::make_unique<Display>();
}
inline constexpr std::array<LiveDisplayEntry, 4> LiveDisplays = {{
    {"goniometer", makeDisplay<GoniometerDisplay>},
    {"stereoscope", makeDisplay<StereoscopeDisplay>},
    {"gain-reduction", makeDisplay<GRHistoryDisplay>},
    {"histogram", makeDisplay<HistogramDisplay>},
}};

} // namespace QVM_NAMESPACE
