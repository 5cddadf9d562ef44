#include "editor/surface/CurveTexts.h"

#include "description/NumberText.h"
#include "description/ValueText.h"

#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kThousand = 1000, kNoTenthsFrom = 100;

// `digits` is of the amount.
std::string withSign(double value, const std::string& digits) {
    return std::string(value > 0 ? "+" : value < 0 ? minusSign : "") + digits;
}

} // namespace

std::string frequencyText(double hertz) {
    return FrequencyText(static_cast<float>(hertz)) + (hertz >= kThousand ? " kHz" : " Hz");
}

std::string shortFrequencyText(double hertz) {
    if (hertz >= kThousand) return std::to_string(std::lround(hertz / kThousand)) + "k";
    return std::to_string(std::lround(hertz));
}

std::string levelText(double db) {
    const bool isLarge = std::abs(db) >= kNoTenthsFrom;
    const double shown = isLarge ? std::round(db) : std::round(db * 10) / 10;
    return withSign(shown, FixedText(static_cast<float>(std::abs(shown)), isLarge ? 0 : 1)) + " dB";
}

std::string gridLevelText(int db) {
    return db == 0 ? "0 dB" : withSign(db, std::to_string(std::abs(db)));
}

std::string centsText(int cents) {
    return withSign(cents, std::to_string(std::abs(cents))) + " ct";
}

} // namespace QVM_NAMESPACE
