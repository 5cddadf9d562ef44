#include "description/QVMParameter.h"

#include "description/NumberText.h"
#include "description/ValueMapping.h"
#include "description/ValueText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

// Where logarithmic frequencies start to step coarser, and by how much at least.
constexpr float kKilohertz = 1000.0f;
constexpr float kTenKilohertz = 10000.0f;
constexpr float kStepFromKilohertz = 10.0f;
constexpr float kStepFromTenKilohertz = 100.0f;

float clamped(float value, float low, float high) {
    value = value > low ? value : low; // in this order NaN ends at the low end
    return value < high ? value : high;
}

} // namespace

float QVMParameter::restrictValue(float value) const {
    return value;
}

float QVMParameter::castValue(float hostValue) const {
    return HostValueToShownValue(pid, restrictValue(hostValue));
}

float QVMParameter::reverseCastValue(float shownValue) const {
    return ShownValueToHostValue(pid, shownValue);
}

float QVMParameter::coerceValue(float hostValue) const {
    return roundFloatValue(castValue(hostValue), QVMGranularityFine);
}

float QVMParameter::shownValueFromHostValue(float hostValue) const {
    return clampedValue(finelyRoundedValue(castValue(hostValue)));
}

float QVMParameter::heldValueFromHostValue(float hostValue) const {
    const float value = finelyRoundedValue(castValue(hostValue));
    const QVMFloat32Range held = heldRange();
    return clamped(value, held.min, held.max);
}

QVMFloat32Range QVMParameter::heldRange() const {
    return {std::min(minValue, initialValue), std::max(maxValue, initialValue)};
}

float QVMParameter::finelyRoundedValue(float shownValue) const {
    const bool isWhole = unit == QVMUnitIndexed || unit == QVMUnitSwitch;
    return isWhole ? std::round(shownValue) : std::round(shownValue / fineGranularity) * fineGranularity;
}

float QVMParameter::clampedValue(float value) const {
    return clamped(value, minValue, maxValue);
}

float QVMParameter::granularityValueForType(std::uint32_t type, float value) const {
    float step = value;
    switch (type) {
    case QVMGranularityNormal:
        step = granularity;
        break;
    case QVMGranularityFine:
        step = fineGranularity;
        break;
    case QVMGranularityCoarse:
        step = coarseGranularity;
        break;
    default:
        break; // no control hands over another code; its step is the value itself
    }
    if (unit == QVMUnitHertz && logarithmic && value >= kKilohertz) {
        step = std::max(step, value < kTenKilohertz ? kStepFromKilohertz : kStepFromTenKilohertz);
    }
    return step;
}

float QVMParameter::roundFloatValue(float value, std::uint32_t type) const {
    if (unit == QVMUnitIndexed || unit == QVMUnitSwitch) return std::round(value);
    const float step = granularityValueForType(type, value);
    return std::round(value / step) * step;
}

float QVMParameter::closestCoarseGranularityOptionToValue(float value, std::size_t* index) const {
    float smallest = std::numeric_limits<float>::max();
    std::size_t closest = 0;
    for (std::size_t i = 0; i < coarseGranularityOptions.size(); ++i) {
        const float distance = std::abs(coarseGranularityOptions[i] - value);
        if (!(distance < smallest)) continue;
        smallest = distance;
        closest = i;
    }
    if (index) *index = closest;
    return coarseGranularityOptions.empty() ? 0.0f : coarseGranularityOptions[closest];
}

float QVMParameter::normalizeFloatValue(float value, std::uint32_t type) const {
    if (type == QVMGranularityCoarse && !coarseGranularityOptions.empty()) {
        value = closestCoarseGranularityOptionToValue(value);
    }
    return clampedValue(roundFloatValue(value, type));
}

float QVMParameter::percentageFromFloatValue(float shownValue) const {
    return ShownValueToPosition(pid, shownValue);
}

float QVMParameter::normalizedFloatValueFromPercent(float percent, std::uint32_t type) const {
    return normalizeFloatValue(PositionToShownValue(pid, percent), type);
}

bool QVMParameter::hasChannelsFor(float value) const {
    const auto entry = channelRestrictions.find(std::to_string(IntegerPart(value)));
    return entry == channelRestrictions.end() ||
           std::ranges::find(entry->second, QVMChannelPair{chanIn, chanOut}) != entry->second.end();
}

bool QVMParameter::allowsValue(float value) const {
    return hasChannelsFor(value) && restrictValue(value) == value;
}

float QVMParameter::floatValueAfter(float value, bool cyclingForward) const {
    const auto step = [this, cyclingForward](float from) {
        if (unit == QVMUnitSwitch) return IntegerPart(from) == 0 ? 1.0f : 0.0f;
        if (unit != QVMUnitIndexed && unit != QVMUnitPercent) return from;
        if (cyclingForward) return from + granularity > maxValue ? minValue : from + granularity;
        return from - granularity < minValue ? maxValue : from - granularity;
    };
    float from = std::isnan(value) ? minValue : value; // no step leads away from NaN
    while (true) {
        const float result = step(from);
        if (allowsValue(result)) return result;
        from = hasChannelsFor(result) ? restrictValue(result) : result;
    }
}

std::string QVMParameter::stringForValue(float value) const {
    return ParameterValueToString(pid, value);
}

std::optional<std::string> QVMParameter::suffixForValue(float value) const {
    return ParameterValueToSuffix(pid, value);
}

void QVMParameter::valueString(std::string* string, std::optional<std::string>* suffix, float value) const {
    if (value == 0.0f) value = 0.0f; // drops the sign of a negative zero
    if (suffix) *suffix = suffixForValue(value);
    if (!string) return;

    *string = stringForValue(value);
    if (stringValues.empty() || cueSymbols.size() != stringValues.size()) return;
    const float last = static_cast<float>(stringValues.size() - 1);
    const float index = std::clamp(static_cast<float>(IntegerPart(value)) - minValue, 0.0f, last);
    *string = cueSymbols[static_cast<std::size_t>(index)];
}

std::string QVMParameter::displayStringFromCueValue(double number) const {
    if (unit == QVMUnitHertz) {
        const auto hertz = static_cast<float>(number);
        const double shown = hertz >= kKilohertz ? hertz / 1000.0 : static_cast<double>(hertz);
        return ShortestText(std::trunc(shown));
    }
    std::string text = minValue < 0 && number > 0 ? "+" : "";
    return text += ShortestText(number);
}

} // namespace QVM_NAMESPACE
