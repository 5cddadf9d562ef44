#include "description/Types.h"

#include <charconv>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

float Component(std::uint32_t bits, int shift) {
    return static_cast<float>((bits >> shift) & 0xFFu) / 255.0f;
}

} // namespace

QVMColor ColorFromHexText(std::string_view text) {
    if (text.starts_with('#')) text.remove_prefix(1);
    std::uint64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number, 16); // leaves 0 when it cannot be read
    const auto bits = static_cast<std::uint32_t>(number & 0xFFFFFFu);
    return {Component(bits, 16), Component(bits, 8), Component(bits, 0), 1.0f};
}

std::string HexTextFromColor(const QVMColor& color) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text = "#";
    for (const float component : {color.r, color.g, color.b}) {
        const auto byte = static_cast<std::uint32_t>(std::lround(component * 255.0f)) & 0xFFu;
        text += digits[byte >> 4];
        text += digits[byte & 0xFu];
    }
    return text;
}

} // namespace QVM_NAMESPACE
