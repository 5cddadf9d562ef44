#include "plugin/standalone/AudioFile.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <numbers>

#include <sndfile.h>

namespace QVM_NAMESPACE {

namespace {

using SoundFile = std::unique_ptr<SNDFILE, int (*)(SNDFILE*)>;

constexpr int framesPerRead = 4096;

// Half-width of the interpolation kernel, in samples of the lower of the two rates.
constexpr int kernelHalfWidth = 16;

double windowedSinc(double x) {
    if (std::abs(x) >= kernelHalfWidth) return 0;
    const double phase = std::numbers::pi * x;
    const double sinc = x == 0 ? 1 : std::sin(phase) / phase;
    return sinc * (0.5 + 0.5 * std::cos(phase / kernelHalfWidth));
}

std::vector<float> resampledChannel(const std::vector<float>& in, double ratio, std::size_t outFrames) {
    const double cutoff = std::min(1.0, 1 / ratio);
    const auto reach = static_cast<std::ptrdiff_t>(std::ceil(kernelHalfWidth / cutoff));
    const auto inFrames = static_cast<std::ptrdiff_t>(in.size());
    std::vector<float> out(outFrames);
    for (std::size_t i = 0; i < outFrames; ++i) {
        const double at = static_cast<double>(i) * ratio;
        const auto center = static_cast<std::ptrdiff_t>(at);
        double sum = 0;
        for (std::ptrdiff_t k = center - reach + 1; k <= center + reach; ++k) {
            // The clip loops, so its two ends are neighbours.
            const auto wrapped = static_cast<std::size_t>(((k % inFrames) + inFrames) % inFrames);
            sum += in[wrapped] * windowedSinc((at - static_cast<double>(k)) * cutoff) * cutoff;
        }
        out[i] = static_cast<float>(sum);
    }
    return out;
}

} // namespace

std::variant<AudioClip, AudioFileError> readAudioFile(const std::string& path, double maxSeconds) {
    SF_INFO info{};
    const SoundFile file(sf_open(path.c_str(), SFM_READ, &info), sf_close);
    if (!file) return AudioFileError{"cannot read \"" + path + "\": " + sf_strerror(nullptr)};
    if (info.channels < 1 || info.samplerate < 1) return AudioFileError{"cannot read \"" + path + "\": no audio in it"};

    AudioClip clip;
    clip.sampleRateHz = info.samplerate;
    clip.channels.resize(static_cast<std::size_t>(std::min(info.channels, 2)));
    const auto limit = static_cast<std::size_t>(maxSeconds * clip.sampleRateHz);
    std::vector<float> block(static_cast<std::size_t>(framesPerRead) * static_cast<std::size_t>(info.channels));
    for (sf_count_t got = 0;
         clip.frames() < limit && (got = sf_readf_float(file.get(), block.data(), framesPerRead)) > 0;) {
        for (std::size_t c = 0; c < clip.channels.size(); ++c) {
            for (sf_count_t i = 0; i < got; ++i) {
                const float sample = block[static_cast<std::size_t>(i * info.channels) + c];
                clip.channels[c].push_back(std::isfinite(sample) ? sample : 0.0f);
            }
        }
    }
    if (clip.frames() == 0) return AudioFileError{"cannot read \"" + path + "\": no audio in it"};
    return clip;
}

AudioClip resampled(const AudioClip& clip, double sampleRateHz) {
    if (clip.sampleRateHz == sampleRateHz || clip.frames() == 0) return clip;
    const double ratio = clip.sampleRateHz / sampleRateHz;
    const auto frames = std::max<std::size_t>(1, static_cast<std::size_t>(static_cast<double>(clip.frames()) / ratio));
    AudioClip out;
    out.sampleRateHz = sampleRateHz;
    for (const auto& channel : clip.channels)
        out.channels.push_back(resampledChannel(channel, ratio, frames));
    return out;
}

AudioClip pinkNoise(double sampleRateHz) {
    constexpr double seconds = 10, lowestHz = 20, targetRms = 0.125;
    AudioClip clip;
    clip.sampleRateHz = sampleRateHz;
    std::uint32_t seed = 1;
    for (int c = 0; c < 2; ++c) {
        std::vector<float> channel(static_cast<std::size_t>(seconds * sampleRateHz));
        std::vector<double> states, coefficients;
        for (double hz = lowestHz; hz < sampleRateHz / 2; hz *= 2) {
            coefficients.push_back(1 - std::exp(-2 * std::numbers::pi * hz / sampleRateHz));
            states.push_back(0);
        }
        double energy = 0;
        for (float& sample : channel) {
            seed = seed * 1664525u + 1013904223u;
            const double white = static_cast<double>(seed) / 2147483648.0 - 1;
            double pink = 0;
            for (std::size_t k = 0; k < states.size(); ++k) {
                states[k] += coefficients[k] * (white - states[k]);
                // Each stage carries white noise up to its corner; half the power an octave makes 1/f of their sum.
                pink += states[k] * std::pow(2.0, -0.5 * static_cast<double>(k));
            }
            sample = static_cast<float>(pink);
            energy += pink * pink;
        }
        const auto gain = static_cast<float>(targetRms / std::sqrt(energy / static_cast<double>(channel.size())));
        for (float& sample : channel)
            sample *= gain;
        clip.channels.push_back(std::move(channel));
    }
    return clip;
}

} // namespace QVM_NAMESPACE
