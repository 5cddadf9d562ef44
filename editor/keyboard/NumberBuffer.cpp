#include "editor/keyboard/NumberBuffer.h"

#include <string_view>

namespace QVM_NAMESPACE {

namespace {

constexpr std::u32string_view digitsAndSeparators = U",.0123456789";
constexpr char thousands = 'k';

} // namespace

bool NumberBuffer::takes(char32_t character) const {
    if (character == U'-') return text_.empty();
    if (character == static_cast<char32_t>(thousands)) return true;
    return character != 0 && digitsAndSeparators.find(character) != std::u32string_view::npos;
}

bool NumberBuffer::append(char32_t character) {
    if (!text_.empty() && text_.back() == thousands) return false;
    const char ascii = static_cast<char>(character);
    const bool isSeparator = ascii == '.' || ascii == ',';
    if (isSeparator && text_.find(ascii) != std::string::npos) return false;
    text_ += ascii;
    return true;
}

bool NumberBuffer::deleteLast() {
    if (text_.empty()) return false;
    text_.pop_back();
    return true;
}

} // namespace QVM_NAMESPACE
