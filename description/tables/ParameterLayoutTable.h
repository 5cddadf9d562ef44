// Where the parameters' controls stand, in points with y downwards.
//
// A parameter without a row has empty frames: no control of it is laid out.
#pragma once

#include "description/Types.h"

#include <span>

namespace QVM_NAMESPACE {
namespace tables {

struct ParameterLayout {
    std::uint32_t pid = 0;
    QVMRect frame = {};        // in the clump; for a displaced parameter, in the view around the clumps
    QVMRect controlFrame = {}; // in the parameter control
    QVMRect labelFrame = {};   // in the parameter control
    std::span<const double> numberOnlyPixelConstants = {};
};

// At most one row a pid. The table lives as long as the process.
std::span<const ParameterLayout> ParameterLayouts();

} // namespace tables
} // namespace QVM_NAMESPACE
