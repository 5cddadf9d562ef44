// What somebody may have meant who misspelt a name.
#pragma once

#include "BuildNamespace.h"

#include <span>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

// The name that takes the fewest letters changed, left out or put in; of several the first. Capitals count for nothing.
// At least one name.
std::string nearestName(std::string_view misspelt, std::span<const std::string> names);

// What is said of such a name of a thing of this kind, with the nearest one.
std::string unknownName(const std::string& kind, const std::string& misspelt, std::span<const std::string> names);

} // namespace QVM_NAMESPACE
