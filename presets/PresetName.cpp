#include "presets/PresetName.h"

#include "platform/system/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace QVM_NAMESPACE {

namespace {

constexpr std::string_view usersMark = "User: ";
constexpr std::string_view takenAmiss = "/\\:*?\"<>|";
constexpr char escape = '%';

bool isBlank(char32_t character) {
    constexpr std::u32string_view blanks = U" \u00A0\u1680\u2028\u2029\u202F\u205F\u3000";
    return blanks.find(character) != std::u32string_view::npos || (character >= 0x2000 && character <= 0x200D);
}

// Of no width and no line: what moves, turns or hides the text around it is not part of a name.
bool isControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0) ||
           (character >= 0x200B && character <= 0x200F) || (character >= 0x2028 && character <= 0x202E) ||
           (character >= 0x2060 && character <= 0x206F) || character == 0xFEFF || character == 0xFFFD ||
           (character & 0xFFFE) == 0xFFFE;
}

std::string escaped(char byte) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    return {escape, digits[value >> 4], digits[value & 15]};
}

std::optional<char> unescaped(std::string_view text) {
    if (text.size() < 3 || text[0] != escape) return std::nullopt;
    unsigned value = 0;
    const auto read = std::from_chars(text.data() + 1, text.data() + 3, value, 16);
    if (read.ec != std::errc() || read.ptr != text.data() + 3) return std::nullopt;
    return static_cast<char>(value);
}

} // namespace

bool isPresetName(std::string_view name) {
    return !name.empty() && isPlainUtf8(name) && presetNameFrom(name) == name;
}

std::string presetNameFrom(std::string_view text) {
    const std::size_t begin = text.find_first_not_of("\r\n");
    if (begin == std::string_view::npos) return {};
    text = text.substr(begin);
    std::u32string characters = charactersOfUtf8(text.substr(0, text.find_first_of("\r\n")));
    std::ranges::replace(characters, U'\t', U' ');
    std::erase_if(characters, isControl);
    const auto withoutBlanksAtEnd = [&] {
        while (!characters.empty() && isBlank(characters.back()))
            characters.pop_back();
    };
    characters.erase(characters.begin(), std::ranges::find_if_not(characters, isBlank));
    withoutBlanksAtEnd();
    if (characters.size() > longestPresetName) characters.resize(longestPresetName);
    withoutBlanksAtEnd();
    return utf8From(characters);
}

std::string savedUsersName(std::string_view name) {
    return std::string(usersMark).append(name);
}

std::optional<std::string> usersNameIn(std::string_view savedName) {
    if (!savedName.starts_with(usersMark)) return std::nullopt;
    return std::string(savedName.substr(usersMark.size()));
}

std::string withEscapes(std::string_view text, std::string_view marks) {
    std::string written;
    for (const char byte : text)
        written += byte == escape || marks.find(byte) != std::string_view::npos ? escaped(byte) : std::string(1, byte);
    return written;
}

std::string withoutEscapes(std::string_view text) {
    std::string read;
    while (!text.empty()) {
        const std::optional<char> byte = unescaped(text);
        read += byte.value_or(text.front());
        text.remove_prefix(byte ? 3 : 1);
    }
    return read;
}

std::string presetFileName(std::string_view name) {
    std::string file;
    if (name.starts_with('.')) {
        file = escaped('.');
        name.remove_prefix(1);
    }
    return file.append(withEscapes(name, takenAmiss)).append(presetFileEnding);
}

std::string nameFromPresetFile(std::string_view fileName) {
    if (fileName.ends_with(presetFileEnding)) fileName.remove_suffix(presetFileEnding.size());
    const std::string shown = presetNameFrom(withoutEscapes(fileName));
    return shown.empty() ? "?" : shown;
}

} // namespace QVM_NAMESPACE
