#include "description/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// Wide enough for the largest 64-bit float written out with a few decimals.
using Buffer = std::array<char, 512>;

std::string NotANumberText() {
    return "nan";
} // whatever the sign bit says

} // namespace

std::string FixedText(double value, int decimals) {
    if (std::isnan(value)) return NotANumberText();
    Buffer buffer;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals).ptr;
    return {buffer.data(), end};
}

std::string ShortestText(double value) {
    if (std::isnan(value)) return NotANumberText();
    Buffer buffer;
    const double unsignedZero = value == 0 ? 0.0 : value;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), unsignedZero, std::chars_format::fixed).ptr;
    return {buffer.data(), end};
}

std::string SignificantText(double value, int digits) {
    if (std::isnan(value)) return NotANumberText();
    Buffer buffer;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, digits).ptr;
    return {buffer.data(), end};
}

} // namespace QVM_NAMESPACE
