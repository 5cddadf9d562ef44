// What may stand around a text that a person, a file or a host hands over, and means nothing. Any thread.
#pragma once

#include "BuildNamespace.h"

#include <string_view>

namespace QVM_NAMESPACE {

// Without the blanks, tabs and line ends that a text has around it. As long-lived as the text.
constexpr std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace QVM_NAMESPACE
