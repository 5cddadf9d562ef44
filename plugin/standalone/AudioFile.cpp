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

AudioClip pinkNoise(double sampleRateHz) {
    constexpr double seconds = 10, lowestHz = 20, targetRms = 0.125;
    AudioClip clip;
    clip.sampleRateHz = sampleRateHz;
    std::uint32_t seed = 1;
    for (int c = 0; c < 2; ++c) {
        std::vector<float> channel(static_cast<std::size_t>(seconds * sampleRateHz));
        std::vector<double> states, coefficients, weights;
        for (double hz = lowestHz; hz < sampleRateHz / 2; hz *= 2) {
            coefficients.push_back(1 - std::exp(-2 * std::numbers::pi * hz / sampleRateHz));
            states.push_back(0);
            // Each stage carries white noise up to its corner; half the power an octave makes 1/f of their sum.
            weights.push_back(std::pow(2.0, -0.5 * static_cast<double>(weights.size())));
        }
        double energy = 0;
        for (float& sample : channel) {
            seed = seed * 1664525u + 1013904223u;
            const double white = static_cast<double>(seed) / 2147483648.0 - 1;
            double pink = 0;
            for (std::size_t k = 0; k < states.size(); ++k) {
                states[k] += coefficients[k] * (white - states[k]);
                pink += states[k] * weights[k];
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
