#include "plugin/standalone/ClipLoop.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

// Half-width of the interpolation kernel, in samples of the lower of the two rates.
constexpr int kernelHalfWidth = 16;
constexpr int kernelStepsPerSample =
    512; // with a straight line in between: off by less than a 16-bit sample's half bit

double windowedSinc(double x) {
    if (std::abs(x) >= kernelHalfWidth) return 0;
    const double phase = std::numbers::pi * x;
    const double sinc = x == 0 ? 1 : std::sin(phase) / phase;
    return sinc * (0.5 + 0.5 * std::cos(phase / kernelHalfWidth));
}

std::vector<float> kernelTable() {
    std::vector<float> table(kernelHalfWidth * kernelStepsPerSample + 2);
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<float>(windowedSinc(static_cast<double>(i) / kernelStepsPerSample));
    return table;
}

} // namespace

ClipLoop::ClipLoop(AudioClip clip) : clip_(std::move(clip)), kernel_(kernelTable()) {}

void ClipLoop::start(double sampleRateHz) {
    step_ = clip_.sampleRateHz / sampleRateHz;
    at_ = 0;
}

double ClipLoop::kernel(double x) const {
    const double place = std::abs(x) * kernelStepsPerSample;
    const auto index = static_cast<std::size_t>(place);
    if (index + 1 >= kernel_.size()) return 0;
    const double part = place - static_cast<double>(index);
    return kernel_[index] + (kernel_[index + 1] - kernel_[index]) * part;
}

ClipLoop::Pair ClipLoop::interpolated() const {
    const auto& first = clip_.channels.front();
    const auto& second = clip_.channels.back();
    const double cutoff = std::min(1.0, 1 / step_);
    const auto reach = static_cast<std::ptrdiff_t>(std::ceil(kernelHalfWidth / cutoff));
    const auto frames = static_cast<double>(clip_.frames());
    const std::ptrdiff_t begin = static_cast<std::ptrdiff_t>(at_) - reach + 1;
    // The clip loops, so its two ends are neighbours.
    const double rounds = std::floor(static_cast<double>(begin) / frames);
    auto wrapped = static_cast<std::size_t>(static_cast<double>(begin) - rounds * frames);
    double left = 0, right = 0;
    for (std::ptrdiff_t k = begin; k < begin + 2 * reach; ++k) {
        const double weight = kernel((at_ - static_cast<double>(k)) * cutoff) * cutoff;
        left += first[wrapped] * weight;
        right += second[wrapped] * weight;
        if (++wrapped == clip_.frames()) wrapped = 0;
    }
    return {static_cast<float>(left), static_cast<float>(right)};
}

void ClipLoop::read(float* left, float* right, int frames) {
    const auto length = static_cast<double>(clip_.frames());
    for (int i = 0; i < frames; ++i) {
        const auto whole = static_cast<std::size_t>(at_);
        const Pair pair =
            step_ == 1 ? Pair{clip_.channels.front()[whole], clip_.channels.back()[whole]} : interpolated();
        left[i] = pair.left;
        right[i] = pair.right;
        at_ = std::fmod(at_ + step_, length);
    }
}

} // namespace QVM_NAMESPACE
