#include "plugin/standalone/AudioFile.h"

#include "program/HeldErrorStream.h"
#include "program/SoundFile.h"
#include "program/Wording.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr int framesPerRead = 4096;

std::string whyNotPlayed(const SF_INFO& info) {
    if (info.samplerate >= lowestClipRateHz && info.samplerate <= highestClipRateHz) return {};
    return "its sample rate is " + std::to_string(info.samplerate) + " Hz, and can be " +
           std::to_string(lowestClipRateHz) + " to " + std::to_string(highestClipRateHz) + " Hz";
}

// The first `limit` frames of the file, or somewhat more.
AudioClip readFrames(SNDFILE* file, const SF_INFO& info, std::size_t limit) {
    AudioClip clip;
    clip.sampleRateHz = info.samplerate;
    clip.channels.resize(static_cast<std::size_t>(std::min(info.channels, 2)));
    std::vector<float> block(static_cast<std::size_t>(framesPerRead) * static_cast<std::size_t>(info.channels));
    for (sf_count_t got = 0; clip.frames() < limit && (got = sf_readf_float(file, block.data(), framesPerRead)) > 0;) {
        for (std::size_t c = 0; c < clip.channels.size(); ++c) {
            for (sf_count_t i = 0; i < got; ++i) {
                const float sample = block[static_cast<std::size_t>(i * info.channels) + c];
                clip.channels[c].push_back(std::isfinite(sample) ? sample : 0.0f);
            }
        }
    }
    const auto expected = std::min(limit, static_cast<std::size_t>(std::max<sf_count_t>(info.frames, 0)));
    clip.isDamaged = sf_error(file) != SF_ERR_NO_ERROR || clip.frames() < expected;
    return clip;
}

} // namespace

std::variant<AudioClip, AudioFileError> readAudioFile(const std::string& path, double maxSeconds) {
    const auto refusal = [&path](const std::string& why) { return AudioFileError{cannotRead(quoted(path), why)}; };
    const HeldErrorStream held;
    const auto opened = openSoundFile(path);
    if (const auto* refused = std::get_if<SoundFileRefusal>(&opened)) return refusal(refused->why);
    const auto& [file, info] = std::get<OpenSoundFile>(opened);
    if (const std::string why = whyNotPlayed(info); !why.empty()) return refusal(why);
    AudioClip clip = readFrames(file.get(), info, static_cast<std::size_t>(maxSeconds * info.samplerate));
    if (clip.frames() == 0) return refusal("no audio in it");
    clip.isDamaged = clip.isDamaged || held.heldAnything();
    return clip;
}

std::string damagedFileText(const std::string& path) {
    return isDamaged(path, "plays");
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
