// Whether a change of place is seen as a glide or made at once.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

enum class Animate : bool { no, yes };

} // namespace QVM_NAMESPACE
