#include "description/ValueText.h"

#include "description/NumberText.h"
#include "description/ParameterIDs.h"
#include "description/ValueMapping.h"
#include "description/tables/ValueNames.h"

#include <array>
#include <cmath>
#include <span>
#include <string_view>

namespace QVM_NAMESPACE {

namespace {

enum class TextKind { number, frequency, names };
enum class SuffixKind { none, fixed, frequency };

// A value that shows a word of its own and goes without its unit.
struct Exception {
    float value;
    std::string_view text;
};

struct TextRule {
    TextKind kind = TextKind::number;
    int decimals = 0;
    std::span<const std::string_view> names; // by whole value from 0 up
    SuffixKind suffixKind = SuffixKind::none;
    std::string_view suffix;
    std::span<const Exception> exceptions;
};

constexpr std::array<Exception, 1> kSilence = {{{-96.0f, "-Inf"}}};
constexpr std::array<Exception, 1> kLowestFilter = {{{4.0f, "Off"}}};
constexpr std::array<Exception, 1> kHighestFilter = {{{24000.0f, "Off"}}};

constexpr TextRule Number(int decimals) {
    return {TextKind::number, decimals, {}, SuffixKind::none, {}, {}};
}
constexpr TextRule Number(int decimals, std::string_view suffix, std::span<const Exception> exceptions = {}) {
    return {TextKind::number, decimals, {}, SuffixKind::fixed, suffix, exceptions};
}
constexpr TextRule Frequency(std::span<const Exception> exceptions = {}) {
    return {TextKind::frequency, 0, {}, SuffixKind::frequency, {}, exceptions};
}
constexpr TextRule Names(std::span<const std::string_view> names) {
    return {TextKind::names, 0, names, SuffixKind::none, {}, {}};
}

constexpr std::array<TextRule, QVMParameterCount> kRules = {
    Names(tables::kPowerGlyphs),      // 0 MasterOnOff
    Number(1, "dB"),                  // 1 TiltGain
    Frequency(),                      // 2 TiltRangeLow
    Frequency(),                      // 3 TiltRangeHigh
    Number(0),                        // 4 TiltRangeLink
    Number(0, "%"),                   // 5 TiltRangeLinkRatio
    Names(tables::kLoudnessModes),    // 6 TiltLoudnessMode
    Number(1, "dB", kSilence),        // 7 OutputGain
    Names(tables::kMeterModes),       // 8 MeterMode
    Frequency(kLowestFilter),         // 9 FilterRangeLow
    Frequency(kHighestFilter),        // 10 FilterRangeHigh
    Number(0),                        // 11 FilterRangeLink
    Number(0, "%"),                   // 12 FilterRangeLinkRatio
    Names(tables::kListenLowGlyphs),  // 13 FilterListenLow
    Number(1, "dB/Oct"),              // 14 FilterSlopeLow
    Number(1, "dB"),                  // 15 FilterResonanceLow
    Number(0),                        // 16 FilterSlopeLink
    Number(0, "%"),                   // 17 FilterSlopeLinkRatio
    Number(0),                        // 18 FilterResonanceLink
    Number(0, "%"),                   // 19 FilterResonanceLinkRatio
    Names(tables::kListenHighGlyphs), // 20 FilterListenHigh
    Number(1, "dB/Oct"),              // 21 FilterSlopeHigh
    Number(1, "dB"),                  // 22 FilterResonanceHigh
    Names(tables::kQualityGlyphs),    // 23 HQMode
};

constexpr float kKilohertz = 1000.0f;

const Exception* ExceptionAt(const TextRule& rule, float value) {
    for (const Exception& exception : rule.exceptions) {
        if (std::abs(value - exception.value) < 0.01f) return &exception;
    }
    return nullptr;
}

std::string NameText(std::span<const std::string_view> names, float value) {
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
    if (pid >= kRules.size()) return {};
    if (value == 0.0f) value = 0.0f; // drops the sign of a negative zero
    const TextRule& rule = kRules[pid];
    if (const Exception* exception = ExceptionAt(rule, value)) return std::string(exception->text);
    switch (rule.kind) {
    case TextKind::number:
        return FixedText(value, rule.decimals);
    case TextKind::frequency:
        return FrequencyText(value);
    case TextKind::names:
        return NameText(rule.names, value);
    }
    return {};
}

std::optional<std::string> ParameterValueToSuffix(std::uint32_t pid, float value) {
    if (pid >= kRules.size()) return std::nullopt;
    const TextRule& rule = kRules[pid];
    if (ExceptionAt(rule, value)) return std::string();
    switch (rule.suffixKind) {
    case SuffixKind::none:
        break;
    case SuffixKind::fixed:
        return std::string(rule.suffix);
    case SuffixKind::frequency:
        return std::string(value >= kKilohertz ? "kHz" : "Hz");
    }
    return std::nullopt;
}

} // namespace QVM_NAMESPACE
