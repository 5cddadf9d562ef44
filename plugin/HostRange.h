// How a parameter looks to the host: a number from 0 to 1 that is linear over the host-domain range.
//
// The range is the description's, widened to hold the initial value (two link ratios start outside their own range);
// a switch spans 0 to 1 whatever its table row says. So every initial value survives the way to the host and back.
#pragma once

#include "description/QVMParameter.h"

#include <string>

namespace QVM_NAMESPACE {

struct HostRange {
    float minimum = 0, maximum = 1; // host domain
    int steps = 0;                  // number of values of a discrete parameter; 0 when continuous

    explicit HostRange(const QVMParameter& parameter);

    // A host that keeps the value in its own range gives it back off by a rounding or two, normalised.
    static constexpr float echoTolerance = 1.0f / (1 << 22);

    // Host-domain value to 0..1, clamped; NaN gives 0.
    float normalised(float hostValue) const;
    // 0..1 (clamped; NaN gives 0) to the host domain. Whole numbers for a discrete parameter.
    float hostValue(float normalisedValue) const;
};

// The text a host shows for a host-domain value: the value's name, or number and unit, with no icon glyphs.
std::string hostTextForValue(const QVMParameter& parameter, float hostValue);
// The host-domain value for a text such as "1.5k", "1.5 kHz", "-Inf", "Off" or a value's name; what cannot be read
// gives the initial value. "." is the decimal mark whatever the locale, and "," is taken for it.
float hostValueForText(const QVMParameter& parameter, const std::string& text);

} // namespace QVM_NAMESPACE
