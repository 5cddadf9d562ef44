#include "resources/Base64.h"

#include <array>
#include <cstdint>

namespace QVM_NAMESPACE {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kInvalid = 0xFF;
constexpr unsigned kBitsPerCharacter = 6;
constexpr unsigned kBitsPerByte = 8;
constexpr std::size_t kCharactersPerGroup = 4;
constexpr std::size_t kMostPadding = 2;

constexpr std::array<std::uint8_t, 256> makeValues() {
    std::array<std::uint8_t, 256> values{};
    values.fill(kInvalid);
    for (std::size_t i = 0; i < kAlphabet.size(); ++i)
        values[static_cast<std::uint8_t>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
    return values;
}

constexpr std::array<std::uint8_t, 256> kValues = makeValues();

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

} // namespace

std::vector<std::byte> decodeBase64(std::string_view text) {
    std::vector<std::byte> bytes;
    bytes.reserve(text.size() / kCharactersPerGroup * 3);
    std::uint32_t bits = 0;
    unsigned bitCount = 0;
    std::size_t characters = 0, padding = 0;
    for (const char c : text) {
        if (isBlank(c)) continue;
        ++characters;
        if (c == '=') {
            ++padding;
            continue;
        }
        const std::uint8_t value = kValues[static_cast<std::uint8_t>(c)];
        if (value == kInvalid || padding > 0) return {};
        bits = bits << kBitsPerCharacter | value;
        bitCount += kBitsPerCharacter;
        if (bitCount >= kBitsPerByte) {
            bitCount -= kBitsPerByte;
            bytes.push_back(static_cast<std::byte>(bits >> bitCount & 0xFFu));
        }
    }
    if (characters % kCharactersPerGroup != 0 || padding > kMostPadding) return {};
    return bytes;
}

} // namespace QVM_NAMESPACE
