// Reads UTF-8, whatever bytes come, and writes it. Any thread.
#pragma once

#include "BuildNamespace.h"

#include <optional>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

// Takes the first character off a text that is not empty. Absent, with the broken bytes taken off, where the text does
// not begin with one in the form that the standard asks for.
std::optional<char32_t> takeUtf8Character(std::string_view& text);

// All characters; what is broken becomes U+FFFD.
std::u32string charactersOfUtf8(std::string_view text);

// The characters as UTF-8; what is no character becomes U+FFFD.
std::string utf8From(std::u32string_view characters);

// Whether nothing is broken and no character is zero.
bool isPlainUtf8(std::string_view text);

} // namespace QVM_NAMESPACE
