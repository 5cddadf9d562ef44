#include "description/ValueMapping.h"

#include "description/ParameterIDs.h"

#include <array>
#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

// How the host's number becomes the shown one.
enum class HostCurve {
    same,        // the number itself
    toggle,      // 0, or 1 for anything else
    whole,       // truncated
    exponential, // an exponential over the same range; the one curve that is undone on the way out
};

// How the shown number becomes a position.
enum class PositionCurve {
    linear,
    logarithmic,
    fader, // a power law on the amplitude that a level in decibels stands for
};

// (ln hi/lo) / (hi - lo), its inverse, and the range's low end with its logarithm.
struct ExponentialConstants {
    float low;
    float lnLow;
    float slope;
    float inverseSlope;
    float reciprocalLow;
};

struct LogarithmicConstants {
    float lnLow;
    float span; // ln hi/lo
    float inverseSpan;
};

struct LinearConstants {
    float low;
    float span;
};

struct ValueMapping {
    HostCurve hostCurve = HostCurve::same;
    PositionCurve positionCurve = PositionCurve::linear;
    LinearConstants linear{0.0f, 1.0f};
    ExponentialConstants exponential{};
    LogarithmicConstants logarithmic{};
};

// Full scale and exponent of the fader, and the offset and gain that put -96 dB at position 0 and +12 dB at 1. The two
// directions carry their own roundings of the same offset and gain.
struct FaderConstants {
    float top = 3.9810717f;       // 10^(12/20)
    float exponent = 0.25118864f; // 10^(-0.6)
    float inverseExponent = 3.9810717f;
    float offset = 0.044013035f; // the curve at -96 dB
    float gain = 0.955987f;
    double inverseOffset = 0.046039366793798865;
    double inverseGain = 0.9559869654476643;
    double lnAmplitudePerDecibel = 0.115129254649702;
};

constexpr FaderConstants kFader;

constexpr ValueMapping Linear(HostCurve curve, float low, float span) {
    ValueMapping mapping;
    mapping.hostCurve = curve;
    mapping.linear = {low, span};
    return mapping;
}

constexpr ValueMapping Frequency(ExponentialConstants exponential, LogarithmicConstants logarithmic) {
    ValueMapping mapping;
    mapping.hostCurve = HostCurve::exponential;
    mapping.positionCurve = PositionCurve::logarithmic;
    mapping.exponential = exponential;
    mapping.logarithmic = logarithmic;
    return mapping;
}

constexpr ValueMapping Fader() {
    ValueMapping mapping;
    mapping.positionCurve = PositionCurve::fader;
    return mapping;
}

constexpr ValueMapping kTiltFrequency =
    Frequency({10.0f, 2.3025851f, 0.00032443617f, 3082.2703f, 0.1f}, {2.3025851f, 7.7832241f, 0.12848146f});
constexpr ValueMapping kFilterFrequency =
    Frequency({4.0f, 1.3862944f, 0.00036254022f, 2758.3147f, 0.25f}, {1.3862944f, 8.6995144f, 0.11494894f});
constexpr ValueMapping kSwitch = Linear(HostCurve::toggle, 0.0f, 1.0f);
constexpr ValueMapping kPercent = Linear(HostCurve::same, 0.0f, 100.0f);
constexpr ValueMapping kSlope = Linear(HostCurve::same, 6.0f, 42.0f);
constexpr ValueMapping kResonance = Linear(HostCurve::same, 0.0f, 18.0f);

constexpr std::array<ValueMapping, QVMParameterCount> kMappings = {
    kSwitch,                                    // 0 MasterOnOff
    Linear(HostCurve::same, -18.0f, 36.0f),     // 1 TiltGain
    kTiltFrequency,                             // 2 TiltRangeLow
    kTiltFrequency,                             // 3 TiltRangeHigh
    Linear(HostCurve::toggle, 10.0f, 23990.0f), // 4 TiltRangeLink
    Linear(HostCurve::same, 10.0f, 23990.0f),   // 5 TiltRangeLinkRatio
    Linear(HostCurve::whole, 0.0f, 3.0f),       // 6 TiltLoudnessMode
    Fader(),                                    // 7 OutputGain
    Linear(HostCurve::whole, 0.0f, 2.0f),       // 8 MeterMode
    kFilterFrequency,                           // 9 FilterRangeLow
    kFilterFrequency,                           // 10 FilterRangeHigh
    Linear(HostCurve::toggle, 4.0f, 23996.0f),  // 11 FilterRangeLink
    Linear(HostCurve::same, 4.0f, 23996.0f),    // 12 FilterRangeLinkRatio
    kSwitch,                                    // 13 FilterListenLow
    kSlope,                                     // 14 FilterSlopeLow
    kResonance,                                 // 15 FilterResonanceLow
    kSwitch,                                    // 16 FilterSlopeLink
    kPercent,                                   // 17 FilterSlopeLinkRatio
    kSwitch,                                    // 18 FilterResonanceLink
    kPercent,                                   // 19 FilterResonanceLinkRatio
    kSwitch,                                    // 20 FilterListenHigh
    kSlope,                                     // 21 FilterSlopeHigh
    kResonance,                                 // 22 FilterResonanceHigh
    Linear(HostCurve::whole, 0.0f, 1.0f),       // 23 HQMode
};

float FaderPosition(float decibels) {
    const float amplitude = std::exp(static_cast<float>(decibels * kFader.lnAmplitudePerDecibel));
    return (std::pow(amplitude / kFader.top, kFader.exponent) - kFader.offset) / kFader.gain;
}

float FaderDecibels(float position) {
    const auto bent = static_cast<float>((position + kFader.inverseOffset) * kFader.inverseGain);
    const float amplitude = std::pow(bent, kFader.inverseExponent) * kFader.top;
    return std::log10(amplitude) * 20.0f;
}

} // namespace

std::int32_t IntegerPart(float value) {
    constexpr float lowest = -2147483648.0f;
    constexpr float beyondHighest = 2147483648.0f;
    if (std::isnan(value)) return 0;
    if (value < lowest) return std::numeric_limits<std::int32_t>::min();
    if (value >= beyondHighest) return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(value);
}

float HostValueToShownValue(std::uint32_t pid, float hostValue) {
    if (pid >= kMappings.size()) return hostValue;
    const ValueMapping& mapping = kMappings[pid];
    switch (mapping.hostCurve) {
    case HostCurve::same:
        break;
    case HostCurve::toggle:
        return hostValue != 0.0f ? 1.0f : 0.0f; // NaN counts as on
    case HostCurve::whole:
        return static_cast<float>(IntegerPart(hostValue));
    case HostCurve::exponential: {
        const ExponentialConstants& curve = mapping.exponential;
        return std::exp((hostValue - curve.low) * curve.slope + curve.lnLow);
    }
    }
    return hostValue;
}

float ShownValueToHostValue(std::uint32_t pid, float shownValue) {
    if (pid >= kMappings.size() || kMappings[pid].hostCurve != HostCurve::exponential) return shownValue;
    const ExponentialConstants& curve = kMappings[pid].exponential;
    return std::log(shownValue * curve.reciprocalLow) * curve.inverseSlope + curve.low;
}

float ShownValueToPosition(std::uint32_t pid, float shownValue) {
    if (pid >= kMappings.size()) return 0.0f;
    const ValueMapping& mapping = kMappings[pid];
    switch (mapping.positionCurve) {
    case PositionCurve::linear:
        break;
    case PositionCurve::logarithmic:
        return (std::log(shownValue) - mapping.logarithmic.lnLow) * mapping.logarithmic.inverseSpan;
    case PositionCurve::fader:
        return FaderPosition(shownValue);
    }
    return (shownValue - mapping.linear.low) / mapping.linear.span;
}

float PositionToShownValue(std::uint32_t pid, float position) {
    if (pid >= kMappings.size()) return 0.0f;
    const ValueMapping& mapping = kMappings[pid];
    switch (mapping.positionCurve) {
    case PositionCurve::linear:
        break;
    case PositionCurve::logarithmic:
        return std::exp(position * mapping.logarithmic.span + mapping.logarithmic.lnLow);
    case PositionCurve::fader:
        return FaderDecibels(position);
    }
    return position * mapping.linear.span + mapping.linear.low;
}

float ParameterFloatValueToPercentage(std::uint32_t pid, float shownValue) {
    return pid < kMappings.size() ? ShownValueToPosition(pid, shownValue) : shownValue;
}

} // namespace QVM_NAMESPACE
