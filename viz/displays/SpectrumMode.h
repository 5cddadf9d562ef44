// What a spectrum shows. The numbers are those that are kept with the user's preferences.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

enum class SpectrumMode : unsigned char { off = 0, output = 1, inputAndOutput = 2 };

} // namespace QVM_NAMESPACE
