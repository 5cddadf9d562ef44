#include "viz/analysis/StereoSpectrum.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr float kRise = 0.015f, kFade = 0.25f; // seconds to two thirds

} // namespace

void StereoSpectrum::init(QVMFloat32Range frequencies, std::size_t bandCount, float binWidth, std::size_t binCount) {
    spans_.assign(bandCount, {});
    sums_.assign(bandCount, {});
    bins_.assign(binCount, {});
    const auto edge = [&](std::size_t i) { // in bins
        const float share = static_cast<float>(i) / static_cast<float>(bandCount);
        return frequencies.min * std::pow(frequencies.max / frequencies.min, share) / binWidth;
    };
    const auto binAt = [&](float position) {
        return static_cast<std::size_t>(std::clamp(std::ceil(position), 0.0f, static_cast<float>(binCount)));
    };
    for (std::size_t i = 0; i < bandCount; ++i) {
        Span& span = spans_[i];
        const float low = edge(i), high = edge(i + 1);
        span.first = binAt(low);
        span.last = binAt(high);
        if (high - low >= 1 || span.first >= binCount) continue;
        const float centre = (low + high) / 2; // narrower than a bin: what would be one in the middle is blended
        span.first = span.last = static_cast<std::size_t>(centre);
        span.at = centre - std::floor(centre);
        span.share = high - low;
    }
}

StereoSpectrum::Sums StereoSpectrum::sumsOf(const Span& span) const {
    Sums sums;
    const auto add = [&sums](const Sums& bin, float share) {
        sums.power += share * bin.power;
        sums.pan += share * bin.pan;
        sums.panSquared += share * bin.panSquared;
        sums.excess += share * bin.excess;
    };
    for (std::size_t i = span.first; i < span.last; ++i)
        add(bins_[i], 1);
    if (span.first == span.last && span.last + 1 < bins_.size()) {
        add(bins_[span.last], span.share * (1 - span.at));
        add(bins_[span.last + 1], span.share * span.at);
    }
    return sums;
}

// A source that is only panned has half its position as its width; what is beyond says that the sides differ in phase.
void StereoSpectrum::take(const float* levels, const float* pan, const float* width, float dt) {
    for (std::size_t i = 0; i < bins_.size(); ++i) {
        const float power = levels[i] * levels[i];
        const float excess = std::max(width[i] - std::abs(pan[i]) / 2, 0.0f);
        bins_[i] = {power, power * pan[i], power * pan[i] * pan[i], power * excess};
    }
    const float keptRising = std::exp(-dt / kRise), keptFading = std::exp(-dt / kFade);
    for (std::size_t i = 0; i < sums_.size(); ++i) {
        Sums& old = sums_[i];
        const Sums now = sumsOf(spans_[i]);
        const float kept = now.power > old.power ? keptRising : keptFading;
        const auto approach = [kept](float& value, float target) { value = target + (value - target) * kept; };
        approach(old.power, now.power);
        approach(old.pan, now.pan);
        approach(old.panSquared, now.panSquared);
        approach(old.excess, now.excess);
        if (!std::isfinite(old.power)) old = {};
    }
}

StereoSpectrum::Band StereoSpectrum::band(std::size_t index) const {
    const Sums& sums = sums_[index];
    if (!(sums.power > 0)) return {};
    const float pan = std::clamp(sums.pan / sums.power, -1.0f, 1.0f);
    const float variance = std::max(sums.panSquared / sums.power - pan * pan, 0.0f);
    const float excess = sums.excess / sums.power;
    return {std::sqrt(sums.power), pan, std::min(excess + std::sqrt(variance), 1.0f), std::min(excess, 1.0f)};
}

} // namespace QVM_NAMESPACE
