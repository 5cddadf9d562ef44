// The text that stands for a value: a number, a name or a glyph of the icon font, and apart from it a unit.
//
// The two are drawn in different faces and places, so they are never joined here. Text is UTF-8 and its decimal sign is
// a point whatever the locale.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <optional>
#include <string>

namespace QVM_NAMESPACE {

// A frequency without its unit: whole hertz, and three digits of kilohertz from 1 kHz up ("1.00" to "10.00", which 9999
// rounds to, then "10.0").
std::string FrequencyText(float hertz);

// Number, name or glyph for a value of the shown domain; empty where there is none.
std::string ParameterValueToString(std::uint32_t pid, float value);

// The unit. Absent means that the parameter has no place for one; empty, that this value goes without.
std::optional<std::string> ParameterValueToSuffix(std::uint32_t pid, float value);

} // namespace QVM_NAMESPACE
