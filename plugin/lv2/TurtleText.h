// Values as Turtle, the text that describes LV2 bundles.
#pragma once

#include "BuildNamespace.h"

#include <array>
#include <charconv>
#include <string>

namespace QVM_NAMESPACE {

// Shortest text that reads back as the same float, always with a decimal point.
inline std::string turtleFloat(float value) {
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
    std::string text(buffer.data(), result.ptr);
    return text.find('.') == std::string::npos ? text + ".0" : text;
}

// A text in quotation marks; for names without control characters.
inline std::string turtleString(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

} // namespace QVM_NAMESPACE
