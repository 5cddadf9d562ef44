#include "description/ValueText.h"

#include "description/NumberText.h"
#include "description/ValueMapping.h"
#include "description/tables/ParameterTable.h"

#include <cmath>
#include <span>
#include <string_view>

namespace QVM_NAMESPACE {

namespace {

constexpr float kKilohertz = 1000.0f;

const tables::Exception* ExceptionAt(const tables::ParameterRow& row, float value) {
    for (const tables::Exception& exception : row.exceptions) {
        if (std::abs(value - exception.value) < 0.01f) return &exception;
    }
    return nullptr;
}

// The glyphs that stand in for the names, where there are any.
std::string NameText(const tables::ParameterRow& row, float value) {
    const std::span<const std::string_view> names = row.cueSymbols.empty() ? row.stringValues : row.cueSymbols;
    const std::int32_t index = IntegerPart(value);
    if (index < 0 || index >= static_cast<std::int32_t>(names.size())) return {};
    return std::string(names[static_cast<std::size_t>(index)]);
}

} // namespace

std::string FrequencyText(float hertz) {
    if (hertz >= kKilohertz) return FixedText(hertz / 1000.0f, hertz < 10000.0f ? 2 : 1);
    return FixedText(hertz, 0);
}

std::string ParameterValueToString(std::uint32_t pid, float value) {
    const tables::ParameterRow* const row = tables::ParameterRowFor(pid);
    if (!row) return {};
    if (value == 0.0f) value = 0.0f; // drops the sign of a negative zero
    if (const tables::Exception* exception = ExceptionAt(*row, value)) return std::string(exception->text);
    if (!row->stringValues.empty()) return NameText(*row, value);
    return row->unit == QVMUnitHertz ? FrequencyText(value) : FixedText(value, row->decimals);
}

std::optional<std::string> ParameterValueToSuffix(std::uint32_t pid, float value) {
    const tables::ParameterRow* const row = tables::ParameterRowFor(pid);
    if (!row) return std::nullopt;
    if (ExceptionAt(*row, value)) return std::string();
    if (row->unit == QVMUnitHertz) return std::string(value >= kKilohertz ? "kHz" : "Hz");
    const std::string_view suffix = row->unitSymbol;
    return suffix.empty() ? std::nullopt : std::optional(std::string(suffix));
}

} // namespace QVM_NAMESPACE
