// Code points of the icon font that stand for values, as UTF-8.
#pragma once

#include "BuildNamespace.h"

#include <string_view>

namespace QVM_NAMESPACE {
namespace glyphs {

inline constexpr std::string_view power = "\uE101";
inline constexpr std::string_view listenLow = "\uE219";  // rises to the right: what the low filter removes
inline constexpr std::string_view listenHigh = "\uE20B"; // falls to the right: what the high filter removes
inline constexpr std::string_view qualityOff = "\uE205";
inline constexpr std::string_view qualityOn = "\uE206";

} // namespace glyphs
} // namespace QVM_NAMESPACE
