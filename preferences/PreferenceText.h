// The text of the preferences: a line "key = number" each, in whatever order.
//
// What is no such line is somebody else's, a later version's perhaps, and stays as it is. Any thread.
#pragma once

#include "BuildNamespace.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

using Preferences = std::map<std::string, double>; // by key

// The numbers in it, the last one of a key; nothing for what is no text at all. Numbers are finite.
std::optional<Preferences> preferencesIn(std::string_view text);
// The text with this number for the key, in the line of the first that it has, or in a new one at the end. A key is of
// letters, digits, "-", "_" and ".", and a number finite: anything else changes nothing.
std::string textWithPreference(std::string_view text, std::string_view key, double value);

} // namespace QVM_NAMESPACE
