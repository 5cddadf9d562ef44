#include "unit/RenderPath.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

template <class Sample>
float peakOf(const Sample* samples, std::uint32_t frames) {
    Sample peak = 0;
    for (std::uint32_t i = 0; i < frames; ++i) {
        const Sample level = std::abs(samples[i]);
        peak = level > peak ? level : peak; // in this order NaN counts for nothing
    }
    return static_cast<float>(peak);
}

} // namespace

void RenderPath::prepare(double sampleRateHz, std::uint32_t chanIn, std::uint32_t chanOut,
                         const RenderSettings& settings) {
    chanIn_ = std::min(chanIn, maxChannels);
    chanOut_ = std::min(chanOut, maxChannels);
    gain_.prepare(sampleRateHz, settings.gain);
    bypass_.prepare(sampleRateHz, settings.master);
    inputMeter_.reset();
    outputMeter_.reset();
    blockPeaks_.fill(0);
}

template <class Sample>
void RenderPath::process(const Sample* const* in, Sample* const* out, std::uint32_t frames,
                         const RenderSettings& settings) {
    gain_.setTarget(settings.gain);
    bypass_.setTarget(settings.master);
    blockPeaks_.fill(0);
    for (std::uint32_t offset = 0; offset < frames; offset += stretch) {
        const std::uint32_t count = std::min(stretch, frames - offset);
        Frames<Sample> signal;
        read(in, offset, count, signal);
        render(signal, count);
        write(signal, out, offset, count);
    }
}

template <class Sample>
void RenderPath::read(const Sample* const* in, std::uint32_t offset, std::uint32_t frames, Frames<Sample>& dry) {
    for (std::uint32_t channel = 0; channel < chanIn_; ++channel) {
        if (in && in[channel]) {
            std::copy_n(in[channel] + offset, frames, dry[channel].begin());
        } else {
            std::fill_n(dry[channel].begin(), frames, Sample(0));
        }
        inputMeter_.add(channel, peakOf(dry[channel].data(), frames));
    }
    for (std::uint32_t channel = chanIn_; channel < chanOut_; ++channel) {
        if (channel > 0) {
            std::copy_n(dry[channel - 1].begin(), frames, dry[channel].begin());
        } else {
            std::fill_n(dry[channel].begin(), frames, Sample(0));
        }
    }
}

template <class Sample>
void RenderPath::render(Frames<Sample>& signal, std::uint32_t frames) {
    if (bypass_.isOff()) {
        gain_.snap();
        return;
    }
    std::array<double, stretch> gains, shares;
    std::generate_n(gains.begin(), frames, [this] { return gain_.next(); });
    const bool fading = bypass_.isFading();
    if (fading) std::generate_n(shares.begin(), frames, [this] { return bypass_.next(); });
    for (std::uint32_t channel = 0; channel < chanOut_; ++channel) {
        for (std::uint32_t i = 0; i < frames; ++i) {
            const double dry = static_cast<double>(signal[channel][i]);
            const double wet = dry * gains[i];
            signal[channel][i] = static_cast<Sample>(fading ? dry + (wet - dry) * shares[i] : wet);
        }
    }
}

template <class Sample>
void RenderPath::write(const Frames<Sample>& signal, Sample* const* out, std::uint32_t offset, std::uint32_t frames) {
    for (std::uint32_t channel = 0; channel < chanOut_; ++channel) {
        const float peak = peakOf(signal[channel].data(), frames);
        blockPeaks_[channel] = std::max(blockPeaks_[channel], peak);
        outputMeter_.add(channel, peak);
        if (out && out[channel]) std::copy_n(signal[channel].begin(), frames, out[channel] + offset);
    }
}

template void RenderPath::process(const float* const*, float* const*, std::uint32_t, const RenderSettings&);
template void RenderPath::process(const double* const*, double* const*, std::uint32_t, const RenderSettings&);

} // namespace QVM_NAMESPACE
