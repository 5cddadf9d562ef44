// What must be composed again when one composition follows another.
#pragma once

#include "platform/renderer/DamageRegion.h"
#include "platform/renderer/Placement.h"

#include <vector>

namespace QVM_NAMESPACE {

// Adds the bounds, before and after, of every step that appeared, vanished, looks different or changed its place in the
// order. Outside of them both lists give the same pixels.
void addDifferences(const std::vector<Placement>& before, const std::vector<Placement>& after, DamageRegion& damage);

} // namespace QVM_NAMESPACE
