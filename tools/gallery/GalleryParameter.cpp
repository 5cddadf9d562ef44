#include "tools/gallery/GalleryParameter.h"

#include "description/NumberText.h"
#include "description/ValueMapping.h"
#include "description/ValueText.h"

#include <cmath>

namespace QVM_NAMESPACE {

namespace {
constexpr float kKilohertz = 1000;
}

float GalleryParameter::percentageFromFloatValue(float shownValue) const {
    return logarithmic ? std::log(shownValue / minValue) / std::log(maxValue / minValue)
                       : (shownValue - minValue) / valueRange();
}

float GalleryParameter::normalizedFloatValueFromPercent(float percent, std::uint32_t type) const {
    const float value =
        logarithmic ? minValue * std::pow(maxValue / minValue, percent) : minValue + percent * valueRange();
    return normalizeFloatValue(value, type);
}

std::string GalleryParameter::stringForValue(float value) const {
    const std::int32_t index = IntegerPart(value - minValue);
    if (!stringValues.empty())
        return index >= 0 && index < static_cast<std::int32_t>(stringValues.size())
                   ? stringValues[static_cast<std::size_t>(index)]
                   : std::string();
    return unit == QVMUnitHertz ? FrequencyText(value) : FixedText(static_cast<double>(value), decimals);
}

std::optional<std::string> GalleryParameter::suffixForValue(float value) const {
    if (unitSymbol.empty()) return std::nullopt;
    return unit == QVMUnitHertz && value >= kKilohertz ? "kHz" : unitSymbol;
}

} // namespace QVM_NAMESPACE
