// A web address in its parts, by a parser that keeps to the standard of addresses to the letter.
#pragma once

#include "BuildNamespace.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

// All parts decoded: "%3A" is ":". Bytes that were encoded may be anything, zero included.
struct AddressParts {
    std::string host;
    std::vector<std::string> pathSegments; // between the slashes, empty ones left out
    std::optional<std::string> query;      // what follows the first "?"; none when there is none
};

// Any thread. None for what is no address: one with a scheme, whichever it is, and a host.
[[nodiscard]] std::optional<AddressParts> addressParts(std::string_view text);

} // namespace QVM_NAMESPACE
