// The text of an A/B side, as an editor keeps it in the unit: each parameter's shown value in pid order, then the
// preset's index, joined by ";".
//
// To the unit it is bytes, save where a build with other parameters wrote it: an editor counts the elements from the
// front, and would take that build's preset for the value of a parameter that the build did not have.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

// The side as this build would have written it, of a text by a build with the first `savedCount` parameters: those that
// it did not have are at their initial values, and those that only it has are gone. A text that has not so many
// elements stays as it is. Any thread.
std::string comparisonTextOf(std::string_view text, std::size_t savedCount);

} // namespace QVM_NAMESPACE
