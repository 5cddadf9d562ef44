// The text of menus: the toolkit draws it, and who shortens a name for a row measures with it.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

inline constexpr double menuTextPoints = 13;

} // namespace QVM_NAMESPACE
