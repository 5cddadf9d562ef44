#include "viz/analysis/Decimator.h"

#include "platform/vector/VectorMath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

// Kaiser's formulas for an attenuation of 90 dB: the shape of the window, and its length for a transition.
constexpr double kAttenuation = 90, kShape = 0.1102 * (kAttenuation - 8.7);
constexpr double kLengthTimesWidth = (kAttenuation - 8) / 2.285;

std::vector<float> lowPass(unsigned factor) {
    if (factor == 1) return {1};
    const double transition = 2 * std::numbers::pi * (1 - 2 * Decimator::passedShare) / factor; // radians a frame
    const auto half = static_cast<std::size_t>(std::ceil(kLengthTimesWidth / transition / 2));
    std::vector<double> taps(2 * half + 1);
    double sum = 0;
    for (std::size_t i = 0; i < taps.size(); ++i) {
        const double away = static_cast<double>(i) - static_cast<double>(half);
        const double angle = std::numbers::pi * away / factor, at = away / static_cast<double>(half + 1);
        const double sinc = i == half ? 1 : std::sin(angle) / angle;
        sum += taps[i] = sinc * std::cyl_bessel_i(0, kShape * std::sqrt(1 - at * at)) / std::cyl_bessel_i(0, kShape);
    }
    std::vector<float> kernel(taps.size());
    std::ranges::transform(taps, kernel.begin(), [sum](double tap) { return static_cast<float>(tap / sum); });
    return kernel;
}

} // namespace

Decimator::Decimator(unsigned factor) : factor_(std::max(factor, 1u)), kernel_(lowPass(factor_)) {
    reset();
}

void Decimator::reset() {
    for (std::vector<float>& side : pending_)
        side.assign(kernel_.size() - 1, 0);
}

const std::array<std::vector<float>, 2>& Decimator::process(const float* left, const float* right, std::size_t frames) {
    const std::array<const float*, 2> in = {left, right};
    for (std::size_t side = 0; side < 2; ++side) {
        std::vector<float>& pending = pending_[side];
        std::vector<float>& out = out_[side];
        pending.insert(pending.end(), in[side], in[side] + frames);
        out.clear();
        std::size_t at = 0;
        for (; at + kernel_.size() <= pending.size(); at += factor_)
            out.push_back(vectors::dot(pending.data() + at, kernel_.data(), kernel_.size()));
        pending.erase(pending.begin(), pending.begin() + static_cast<std::ptrdiff_t>(std::min(at, pending.size())));
    }
    return out_;
}

} // namespace QVM_NAMESPACE
