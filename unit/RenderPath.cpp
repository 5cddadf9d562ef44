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

// 600 dB above full scale. What is louder is no sound either, and would end as no number in filters and amplifiers.
constexpr double loudest = 1e30;

// The sample, or silence in place of what is no sound.
double audible(double sample) {
    return std::abs(sample) <= loudest ? sample : 0; // NaN is not
}

} // namespace

void RenderPath::prepare(double sampleRateHz, std::uint32_t chanIn, std::uint32_t chanOut,
                         const RenderSettings& settings) {
    chanIn_ = std::min(chanIn, maxChannels);
    chanOut_ = std::min(chanOut, maxChannels);
    gain_.prepare(sampleRateHz, settings.gain);
    bypass_.prepare(sampleRateHz, settings.master);
    equaliser_.prepare(sampleRateHz, settings.equaliser);
    blockPeaks_.fill(0);
}

template <class Sample>
void RenderPath::process(const Sample* const* in, Sample* const* out, std::uint32_t frames,
                         const RenderSettings& settings, SignalListener* listener) {
    gain_.setTarget(settings.gain);
    bypass_.setTarget(settings.master);
    blockPeaks_.fill(0);
    for (std::uint32_t offset = 0; offset < frames; offset += stretch) {
        const std::uint32_t count = std::min(stretch, frames - offset);
        Frames<Sample> dry;
        read(in, offset, count, dry);
        Frames<Sample> signal = dry;
        render(signal, count, settings);
        addPeaks(dry, signal, count, settings.meter);
        if (listener) tell(*listener, dry, signal, count);
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
void RenderPath::render(Frames<Sample>& signal, std::uint32_t frames, const RenderSettings& settings) {
    if (bypass_.isOff()) {
        gain_.snap();
        isEqualising_ = false;
        return;
    }
    const bool isEqualised = equalise(signal, frames, settings);
    std::array<double, stretch> gains, shares;
    std::generate_n(gains.begin(), frames, [this] { return gain_.next(); });
    const bool fading = bypass_.isFading();
    if (fading) std::generate_n(shares.begin(), frames, [this] { return bypass_.next(); });
    for (std::uint32_t channel = 0; channel < chanOut_; ++channel) {
        for (std::uint32_t i = 0; i < frames; ++i) {
            const double dry = static_cast<double>(signal[channel][i]);
            const double wet = (isEqualised ? pairs_[2 * i + channel] : audible(dry)) * gains[i];
            signal[channel][i] = static_cast<Sample>(fading ? dry + (wet - dry) * shares[i] : wet);
        }
    }
}

// False when the equaliser has nothing to do; otherwise its output is in pairs_.
template <class Sample>
bool RenderPath::equalise(const Frames<Sample>& signal, std::uint32_t frames, const RenderSettings& settings) {
    if (!isEqualising_) equaliser_.reset(settings.equaliser); // nobody heard it
    isEqualising_ = true;
    for (std::uint32_t i = 0; i < frames; ++i) {
        for (std::uint32_t channel = 0; channel < maxChannels; ++channel) {
            const std::uint32_t from = std::min(channel, chanOut_ - 1);
            pairs_[2 * i + channel] = audible(static_cast<double>(signal[from][i]));
        }
    }
    equaliser_.process(pairs_.data(), frames, settings.equaliser);
    return !equaliser_.isFlat();
}

template <class Sample>
void RenderPath::addPeaks(const Frames<Sample>& dry, const Frames<Sample>& wet, std::uint32_t frames, MeterMode mode) {
    for (std::uint32_t channel = 0; channel < chanOut_; ++channel) {
        std::array<Sample, stretch> difference;
        const Sample* shown = mode == MeterMode::pre ? dry[channel].data() : wet[channel].data();
        if (mode == MeterMode::difference) {
            for (std::uint32_t i = 0; i < frames; ++i)
                difference[i] = wet[channel][i] - dry[channel][i];
            shown = difference.data();
        }
        blockPeaks_[channel] = std::max(blockPeaks_[channel], peakOf(shown, frames));
    }
}

template <class Sample>
void RenderPath::tell(SignalListener& listener, const Frames<Sample>& dry, const Frames<Sample>& wet,
                      std::uint32_t frames) {
    std::array<TapFrame, stretch> heard;
    for (std::size_t side = 0; side < 2; ++side) {
        const std::size_t channel = std::min<std::size_t>(side, chanOut_ - 1);
        for (std::uint32_t i = 0; i < frames; ++i) {
            heard[i].input[side] = static_cast<float>(dry[channel][i]);
            heard[i].output[side] = static_cast<float>(wet[channel][i]);
        }
    }
    listener.hear({heard.data(), frames});
}

template <class Sample>
void RenderPath::write(const Frames<Sample>& signal, Sample* const* out, std::uint32_t offset, std::uint32_t frames) {
    for (std::uint32_t channel = 0; channel < chanOut_; ++channel) {
        if (out && out[channel]) std::copy_n(signal[channel].begin(), frames, out[channel] + offset);
    }
}

template void RenderPath::process(const float* const*, float* const*, std::uint32_t, const RenderSettings&,
                                  SignalListener*);
template void RenderPath::process(const double* const*, double* const*, std::uint32_t, const RenderSettings&,
                                  SignalListener*);

} // namespace QVM_NAMESPACE
