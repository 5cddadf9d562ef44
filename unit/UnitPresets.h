// The factory presets as the unit stores them: host-domain values by parameter, worked out beforehand so that the
// render thread can put one in place.
#pragma once

#include "unit/UnitParameters.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace QVM_NAMESPACE {

class UnitPresets {
public:
    // By pid; none for a parameter that presets leave alone.
    using Values = std::array<std::optional<float>, UnitParameters::count>;

    // Main thread, or whichever makes the unit: it reads the description.
    UnitPresets();

    // Null for a number that no preset has. Any thread; lives as long as this object, which never changes.
    const Values* values(std::int32_t index) const;

private:
    std::vector<Values> presets_;
};

} // namespace QVM_NAMESPACE
