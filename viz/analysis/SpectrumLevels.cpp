#include "viz/analysis/SpectrumLevels.h"

#include "viz/analysis/SpectrumBands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr double kTiltOfDensity = 4.5; // dB an octave
constexpr double kLevelHertz = 1000;   // where the tilt adds nothing

std::array<float, bands::count> tilts() {
    const double tiltOfBands = kTiltOfDensity - 10 * std::log10(2.0);
    std::array<float, bands::count> made{};
    for (std::size_t i = 0; i < made.size(); ++i)
        made[i] = static_cast<float>(tiltOfBands * std::log2(bands::hertz(i) / kLevelHertz));
    return made;
}

} // namespace

SpectrumLevels::SpectrumLevels() : levels_(bands::count, range.min) {}

float SpectrumLevels::tilt(std::size_t band) {
    static const std::array<float, bands::count> ofBands = tilts();
    return ofBands[band];
}

void SpectrumLevels::follow(std::span<const float> powers, float seconds) {
    const float taken = 1 - std::exp(-seconds / attackSeconds), fall = fallPerSecond * seconds;
    for (std::size_t i = 0; i < levels_.size(); ++i) {
        const float level = std::max(range.min, 10 * std::log10(powers[i]) + tilt(i)); // in this order for NaN too
        float& shown = levels_[i];
        shown = level > shown ? shown + (level - shown) * taken : std::max(level, shown - fall);
    }
}

} // namespace QVM_NAMESPACE
