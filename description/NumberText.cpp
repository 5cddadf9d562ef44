#include "description/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// The format is what std::to_chars takes behind the value.
template <typename... Format>
std::string Text(double value, Format... format) {
    if (std::isnan(value)) return "nan"; // whatever the sign bit says
    std::array<char, 512> buffer;        // the largest 64-bit float, written out with a few decimals, has room
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...).ptr;
    return {buffer.data(), end};
}

} // namespace

std::string FixedText(double value, int decimals) {
    return Text(value, std::chars_format::fixed, decimals);
}

std::string ShortestText(double value) {
    return Text(value == 0 ? 0.0 : value, std::chars_format::fixed);
}

std::string SignificantText(double value, int digits) {
    return Text(value, std::chars_format::general, digits);
}

} // namespace QVM_NAMESPACE
