#include "viz/analysis/SpectrumBands.h"

#include "platform/vector/VectorMath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr double kFlatShare = std::numbers::ln2 / 24; // of a band's frequency, to either side: half of a twelfth
constexpr double kFadeShare = 2 * kFlatShare;         // beyond that, to either side
constexpr double kHandOver = 0.5;                     // octaves

// 0 up to `hertz`, 1 from half an octave above it on.
double isAbove(double at, double hertz) {
    return hertz > 0 ? std::clamp(std::log2(at / hertz) / kHandOver, 0.0, 1.0) : 1;
}

// How much a bin counts that is so many bins from the middle of a band.
double weightAt(double distance, double flat, double fade) {
    if (distance <= flat) return 1;
    if (distance >= flat + fade) return 0;
    const double cosine = std::cos((distance - flat) / fade * std::numbers::pi / 2);
    return cosine * cosine;
}

} // namespace

double bands::hertz(std::size_t band) {
    return model::lowestHertz * std::exp2(static_cast<double>(band) / perOctave);
}

SpectrumBands::SpectrumBands(double binHz, std::size_t bins, double fromHz, double toHz) {
    for (std::size_t index = 0; index < bands::count; ++index) {
        const double hertz = bands::hertz(index);
        const double share = isAbove(hertz, fromHz) * (1 - (toHz > 0 ? isAbove(hertz, toHz) : 0));
        const double middle = hertz / binHz;
        const double flat = kFlatShare * std::max(middle, leastBins), fade = kFadeShare / kFlatShare * flat;
        const auto first = static_cast<std::size_t>(
            std::max(std::ceil(middle - flat - fade), 2.0)); // those below have what stands still
        const auto end = std::min(static_cast<std::size_t>(middle + flat + fade) + 1, bins);
        if (!(share > 0) || middle >= static_cast<double>(bins) || first >= end) continue;
        bands_.push_back({index, first, weights_.size(), end - first});
        for (std::size_t bin = first; bin < end; ++bin)
            weights_.push_back(
                static_cast<float>(share * weightAt(std::abs(static_cast<double>(bin) - middle), flat, fade)));
    }
}

void SpectrumBands::add(const float* powers, float* out) const {
    for (const Band& band : bands_)
        out[band.index] += vectors::dot(powers + band.firstBin, weights_.data() + band.firstWeight, band.bins);
}

} // namespace QVM_NAMESPACE
