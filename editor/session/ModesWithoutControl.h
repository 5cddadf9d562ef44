// The modes of a clump that no control shows, as what its meter measures: they are in menus, and what is chosen in tool
// tips.
#pragma once

#include "description/QVMClump.h"
#include "description/QVMParameter.h"

#include <vector>

namespace QVM_NAMESPACE {

bool isModeWithoutControl(const QVMParameter& parameter);
// In the clump's order; the clump may be null and then has none.
std::vector<const QVMParameter*> modesWithoutControl(const QVMClump* clump);

} // namespace QVM_NAMESPACE
