// The highest level of one channel, between the samples as well, as ITU-R BS.1770 has it: the sound is looked at with
// four times the rate, from 96 kHz on with twice, and from 192 kHz on as it is.
//
// The library for loudness has this too. There it took more than half of the time of a whole rendering.
#pragma once

#include "BuildNamespace.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {
namespace render {

class TruePeakMeter {
public:
    explicit TruePeakMeter(int sampleRateHz);

    // Every `stride`th of finite samples, from the first on. What follows begins where this ended.
    void add(std::span<const double> samples, std::size_t stride);
    // Amplitudes. What comes between the last samples counts as if silence followed.
    double samplePeak() const { return static_cast<double>(samplePeak_); }
    double truePeak() const;

private:
    static constexpr std::size_t taps = 24, stretch = 256; // samples
    using Kernel = std::array<float, taps>;
    using Window = std::array<float, taps - 1 + stretch>; // what was last heard, and what is new

    float largestBetween(const Window& window, std::size_t count) const;
    void addStretch(std::size_t count);

    std::vector<Kernel> kernels_; // one for each place between two samples
    float mostGain_ = 1;          // what lies between samples is at most so many times as high as the highest of them
    Window window_{};
    float samplePeak_ = 0, peak_ = 0;
};

} // namespace render
} // namespace QVM_NAMESPACE
