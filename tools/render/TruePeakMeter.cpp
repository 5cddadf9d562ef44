#include "tools/render/TruePeakMeter.h"

#include "platform/vector/VectorMath.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <numeric>

namespace QVM_NAMESPACE {
namespace render {

namespace {

// The bits of positive numbers are in the numbers' order, and the compiler compares several at once.
float largest(const float* samples, std::size_t count) {
    std::int32_t result = 0;
    for (std::size_t i = 0; i < count; ++i)
        result = std::max(result, std::bit_cast<std::int32_t>(samples[i]) & 0x7FFFFFFF);
    return std::bit_cast<float>(result);
}

double sinc(double x) {
    return x == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
}

int lookedAtPerSample(int sampleRateHz) {
    constexpr int high = 96000, highest = 192000;
    if (sampleRateHz >= highest) return 1;
    return sampleRateHz >= high ? 2 : 4;
}

} // namespace

TruePeakMeter::TruePeakMeter(int sampleRateHz) {
    const int places = lookedAtPerSample(sampleRateHz);
    constexpr double half = taps / 2.0;
    for (int place = 1; place < places; ++place) {
        std::array<double, taps> kernel;
        for (std::size_t k = 0; k < taps; ++k) {
            const double x = static_cast<double>(k) - half + static_cast<double>(place) / places;
            const double window = std::cos(std::numbers::pi / 2 * x / half);
            kernel[k] = sinc(x) * window * window;
        }
        const double sum = std::accumulate(kernel.begin(), kernel.end(), 0.0);
        Kernel& stored = kernels_.emplace_back();
        std::ranges::transform(kernel, stored.begin(), [sum](double tap) { return static_cast<float>(tap / sum); });
        const float gain = std::accumulate(stored.begin(), stored.end(), 0.0f,
                                           [](float all, float tap) { return all + std::abs(tap); });
        mostGain_ = std::max(mostGain_, gain * 1.001f); // and what rounding adds
    }
}

void TruePeakMeter::add(std::span<const double> samples, std::size_t stride) {
    for (std::size_t at = 0; at < samples.size();) {
        std::size_t count = 0;
        for (; count < stretch && at < samples.size(); ++count, at += stride)
            window_[taps - 1 + count] = static_cast<float>(samples[at]);
        addStretch(count);
    }
}

void TruePeakMeter::addStretch(std::size_t count) {
    samplePeak_ = std::max(samplePeak_, largest(&window_[taps - 1], count));
    peak_ = std::max({peak_, samplePeak_, largestBetween(window_, count)});
    std::copy_n(window_.begin() + static_cast<std::ptrdiff_t>(count), taps - 1, window_.begin());
}

// 0 where it cannot be higher than the peak is already.
float TruePeakMeter::largestBetween(const Window& window, std::size_t count) const {
    if (largest(window.data(), taps - 1 + count) * mostGain_ <= peak_) return 0;
    float result = 0;
    std::array<float, stretch> between;
    for (const Kernel& kernel : kernels_) {
        vectors::convolve(window.data(), kernel.data(), taps, between.data(), count);
        result = std::max(result, largest(between.data(), count));
    }
    return result;
}

double TruePeakMeter::truePeak() const {
    Window last = window_;
    std::fill(last.begin() + taps - 1, last.end(), 0.0f);
    return static_cast<double>(std::max(peak_, largestBetween(last, taps)));
}

} // namespace render
} // namespace QVM_NAMESPACE
