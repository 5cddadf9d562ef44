// How finely a gesture moves the value, handed to every gesture hook.
#pragma once

#include "description/ParameterTypes.h"

#include <cstdint>

namespace QVM_NAMESPACE {

struct QVMGranularities {
    std::int32_t is = QVMGranularityNormal;  // in force for this event
    std::int32_t was = QVMGranularityNormal; // in force for the previous event of the same gesture
    bool changed = false;                    // a modifier went down or up in between: relative drags re-anchor
    bool operator==(const QVMGranularities&) const = default;
};

} // namespace QVM_NAMESPACE
