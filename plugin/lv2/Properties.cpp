#include "plugin/lv2/Properties.h"

#include "plugin/HostRange.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// Those whose value in the unit is another number than the one that is shown.
bool isFrequency(const QVMParameter& parameter) {
    return parameter.unit == QVMUnitHertz;
}

// Off by the roundings between the two numbers, and no more. An end is taken as it is: there the parameter may mean
// something of its own, such as "Off".
bool isSame(float hostValue, float other, const HostRange& range) {
    if (other == range.minimum || other == range.maximum) return hostValue == other;
    return std::abs(hostValue - other) <= HostRange::echoTolerance * (range.maximum - range.minimum);
}

} // namespace

std::string propertyName(const QVMParameter& parameter) {
    return isFrequency(parameter) ? parameter.codesafeName + "Hz" : parameter.codesafeName;
}

std::string formerPropertyName(const QVMParameter& parameter) {
    return isFrequency(parameter) ? parameter.codesafeName : std::string();
}

bool isWholeProperty(const QVMParameter& parameter) {
    return HostRange(parameter).steps > 0;
}

float propertyValue(const QVMParameter& parameter, float hostValue) {
    const HostRange range(parameter);
    const float shown = parameter.heldValueFromHostValue(hostValue);
    if (range.steps > 0 || isSame(hostValue, parameter.reverseCastValue(shown), range)) return shown;
    return std::clamp(parameter.castValue(hostValue), range.minimum, range.maximum);
}

float hostValueOfProperty(const QVMParameter& parameter, float value) {
    const HostRange range(parameter); // its ends are the same numbers in both domains
    const float inside = std::clamp(value, range.minimum, range.maximum);
    if (inside == range.minimum || inside == range.maximum) return inside;
    return range.steps > 0 ? std::round(inside) : parameter.reverseCastValue(inside);
}

} // namespace QVM_NAMESPACE
