// Numbers as text, independent of the locale that the host may have set.
#pragma once

#include "BuildNamespace.h"

#include <string>

namespace QVM_NAMESPACE {

// A fixed number of decimals, rounded as printf rounds; 0 decimals leave out the point.
std::string FixedText(double value, int decimals);

// The fewest digits that read back as the same number, never with an exponent; zero has no sign.
std::string ShortestText(double value);

// At most so many significant digits and no trailing zeros, with an exponent where the number calls for one, as
// printf's "%.*g".
std::string SignificantText(double value, int digits);

} // namespace QVM_NAMESPACE
