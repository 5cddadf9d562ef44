#include "description/ValueMapping.h"

#include "description/tables/ParameterTable.h"

#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

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

// Host domain to shown domain by the exponential, the one curve that is undone on the way out; shown domain to position
// by the logarithm.
struct FrequencyScale {
    ExponentialConstants exponential;
    LogarithmicConstants logarithmic;
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

constexpr FrequencyScale kTiltFrequency = {{10.0f, 2.3025851f, 0.00032443617f, 3082.2703f, 0.1f},
                                           {2.3025851f, 7.7832241f, 0.12848146f}};
constexpr FrequencyScale kFilterFrequency = {{4.0f, 1.3862944f, 0.00036254022f, 2758.3147f, 0.25f},
                                             {1.3862944f, 8.6995144f, 0.11494894f}};

// Null for a scale of something else.
const FrequencyScale* FrequencyScaleOf(const tables::ParameterRow& row) {
    switch (row.scale) {
    case tables::Scale::tiltFrequency:
        return &kTiltFrequency;
    case tables::Scale::filterFrequency:
        return &kFilterFrequency;
    case tables::Scale::linear:
    case tables::Scale::fader:
        break;
    }
    return nullptr;
}

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
    const tables::ParameterRow* const row = tables::ParameterRowFor(pid);
    if (!row) return hostValue;
    if (const FrequencyScale* const scale = FrequencyScaleOf(*row)) {
        const ExponentialConstants& curve = scale->exponential;
        return std::exp((hostValue - curve.low) * curve.slope + curve.lnLow);
    }
    if (row->unit == QVMUnitSwitch) return hostValue != 0.0f ? 1.0f : 0.0f; // NaN counts as on
    if (row->unit == QVMUnitIndexed) return static_cast<float>(IntegerPart(hostValue));
    return hostValue;
}

float ShownValueToHostValue(std::uint32_t pid, float shownValue) {
    const tables::ParameterRow* const row = tables::ParameterRowFor(pid);
    const FrequencyScale* const scale = row ? FrequencyScaleOf(*row) : nullptr;
    if (!scale) return shownValue;
    const ExponentialConstants& curve = scale->exponential;
    return std::log(shownValue * curve.reciprocalLow) * curve.inverseSlope + curve.low;
}

float ShownValueToPosition(std::uint32_t pid, float shownValue) {
    const tables::ParameterRow* const row = tables::ParameterRowFor(pid);
    if (!row) return 0.0f;
    if (row->scale == tables::Scale::fader) return FaderPosition(shownValue);
    if (const FrequencyScale* const scale = FrequencyScaleOf(*row))
        return (std::log(shownValue) - scale->logarithmic.lnLow) * scale->logarithmic.inverseSpan;
    return (shownValue - row->minValue) / (row->maxValue - row->minValue);
}

float PositionToShownValue(std::uint32_t pid, float position) {
    const tables::ParameterRow* const row = tables::ParameterRowFor(pid);
    if (!row) return 0.0f;
    if (row->scale == tables::Scale::fader) return FaderDecibels(position);
    if (const FrequencyScale* const scale = FrequencyScaleOf(*row))
        return std::exp(position * scale->logarithmic.span + scale->logarithmic.lnLow);
    return position * (row->maxValue - row->minValue) + row->minValue;
}

float ParameterFloatValueToPercentage(std::uint32_t pid, float shownValue) {
    return pid < QVMParameterCount ? ShownValueToPosition(pid, shownValue) : shownValue;
}

} // namespace QVM_NAMESPACE
