// Access to the one set of records that describes this product.
//
// Every function builds its record on first use and returns the same one ever after; records are never released, so the
// pointers may be kept. A record is stored before it is filled: a parameter names its clump and the clump its
// parameters, and the half-built record is what ends that circle. Main thread only, no locks.
#pragma once

#include "description/ParameterIDs.h"
#include "description/Presets.h"
#include "description/QVMClump.h"
#include "description/QVMMetadata.h"
#include "description/QVMParameter.h"

namespace QVM_NAMESPACE {

inline constexpr std::uint32_t QVMClumpCount = 5;

const QVMMetadata* GetMetadata();

// The clump or parameter of that number, or null when there is none.
QVMClump* GetClump(std::uint32_t cid);
QVMParameter* GetParameter(std::uint32_t pid);

// The pseudo-parameter whose whole value is the index of a factory preset. It is never sent to the audio unit.
QVMParameter* GetPresets();

} // namespace QVM_NAMESPACE
