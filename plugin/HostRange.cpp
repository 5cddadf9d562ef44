#include "plugin/HostRange.h"

#include "description/Blanks.h"
#include "description/NumberText.h"
#include "description/ParameterTypes.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

bool isNamed(const QVMParameter& parameter) {
    return !parameter.stringValues.empty();
}

std::string lowered(std::string text) {
    for (char& c : text)
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
    return text;
}

} // namespace

HostRange::HostRange(const QVMParameter& parameter) {
    if (parameter.unit == QVMUnitSwitch) {
        steps = 2;
        return;
    }
    const QVMFloat32Range held = parameter.heldRange();
    minimum = held.min;
    maximum = held.max;
    if (parameter.unit == QVMUnitIndexed) steps = static_cast<int>(maximum - minimum) + 1;
}

float HostRange::normalised(float hostValue) const {
    if (std::isnan(hostValue)) return 0;
    return std::clamp((hostValue - minimum) / (maximum - minimum), 0.0f, 1.0f);
}

float HostRange::hostValue(float normalisedValue) const {
    const float position = std::isnan(normalisedValue) ? 0 : std::clamp(normalisedValue, 0.0f, 1.0f);
    const float value = minimum + position * (maximum - minimum);
    return steps > 0 ? std::round(value) : value;
}

std::string hostTextForValue(const QVMParameter& parameter, float hostValue) {
    const float shown = parameter.coerceValue(hostValue); // rounded as in the editor
    if (isNamed(parameter)) {
        const auto last = static_cast<int>(parameter.stringValues.size()) - 1;
        const int index = std::clamp(static_cast<int>(std::lround(shown - parameter.minValue)), 0, last);
        return parameter.stringValues[static_cast<std::size_t>(index)];
    }
    const std::string suffix = parameter.suffixForValue(shown).value_or("");
    const std::string number = parameter.stringForValue(shown);
    return suffix.empty() ? number : number + " " + suffix;
}

float hostValueForText(const QVMParameter& parameter, const std::string& text) {
    const std::string wanted = lowered(std::string(withoutBlanks(text)));
    for (std::size_t i = 0; i < parameter.stringValues.size(); ++i) {
        if (lowered(parameter.stringValues[i]) == wanted) return parameter.minValue + static_cast<float>(i);
    }
    std::string number = wanted;
    for (const auto& [value, name] : parameter.substituteStringsForValues) {
        if (lowered(name) == wanted) number = value;
    }
    std::replace(number.begin(), number.end(), ',', '.');
    if (!number.empty() && number.front() == '+') number.erase(0, 1);
    const auto read = NumberAtStart<float>(number);
    if (!read || !std::isfinite(read->value)) return parameter.reverseCastValue(parameter.initialValue);
    const bool isKilo = withoutBlanks(read->rest).starts_with('k');
    const float shown = isKilo ? read->value * 1000 : read->value;
    // Both ends of a range are the same number in both domains.
    const HostRange range(parameter);
    return parameter.reverseCastValue(std::clamp(shown, range.minimum, range.maximum));
}

} // namespace QVM_NAMESPACE
