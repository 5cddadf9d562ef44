#include "platform/system/Utf8.h"

#include <array>
#include <cstddef>

namespace QVM_NAMESPACE {

namespace {

// What the first byte says of a character's length; 0 for one that no character begins with.
std::size_t lengthFrom(unsigned char lead) {
    return lead < 0x80 ? 1 : lead >> 5 == 6 ? 2 : lead >> 4 == 14 ? 3 : lead >> 3 == 30 ? 4 : 0;
}

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

} // namespace

std::optional<char32_t> takeUtf8Character(std::string_view& text) {
    constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000}; // by length
    const auto byteAt = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t length = lengthFrom(byteAt(0));
    char32_t character = length == 1 ? byteAt(0) : byteAt(0) & (0x7Fu >> length);
    std::size_t read = 1;
    for (; read < length && read < text.size() && isContinuation(byteAt(read)); ++read)
        character = character << 6 | (byteAt(read) & 0x3Fu);
    text.remove_prefix(read);
    const bool isSurrogate = character >= 0xD800 && character < 0xE000;
    if (length == 0 || read < length || character < smallest[length] || character > 0x10FFFF || isSurrogate)
        return std::nullopt;
    return character;
}

std::u32string charactersOfUtf8(std::string_view text) {
    std::u32string characters;
    while (!text.empty())
        characters += takeUtf8Character(text).value_or(U'\uFFFD');
    return characters;
}

std::string utf8From(std::u32string_view characters) {
    std::string text;
    for (char32_t character : characters) {
        const bool isSurrogate = character >= 0xD800 && character < 0xE000;
        if (isSurrogate || character > 0x10FFFF) character = U'\uFFFD';
        const auto tail = [&](unsigned shift) { text += static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
        const unsigned tails = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
        constexpr std::array<char32_t, 4> leads = {0, 0xC0, 0xE0, 0xF0}; // by the number of bytes behind
        text += static_cast<char>(leads[tails] | character >> (6 * tails));
        for (unsigned i = tails; i > 0; --i)
            tail(6 * (i - 1));
    }
    return text;
}

bool isPlainUtf8(std::string_view text) {
    while (!text.empty()) {
        if (takeUtf8Character(text).value_or(0) == 0) return false;
    }
    return true;
}

} // namespace QVM_NAMESPACE
