// How much slower than the pointer a fine drag is, on sliders and in number boxes alike.
#pragma once

#include "description/QVMParameter.h"

namespace QVM_NAMESPACE {

// The share of the pointer's way that counts at a value (shown domain), where the whole range is `points` of drag. 1
// where the formula has no finite value. Any thread.
double fineDragMultiplier(const QVMParameter& parameter, float value, double points);

} // namespace QVM_NAMESPACE
