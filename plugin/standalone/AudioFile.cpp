#include "plugin/standalone/AudioFile.h"

#include "plugin/standalone/HeldErrorStream.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <numbers>
#include <system_error>

#include <sndfile.h>

namespace QVM_NAMESPACE {

namespace {

using SoundFile = std::unique_ptr<SNDFILE, int (*)(SNDFILE*)>;

constexpr int framesPerRead = 4096;

// Why nothing can be read from there, or nothing.
std::string whyNoFile(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (error) return error.message();
    if (std::filesystem::is_directory(status)) return "it is a directory";
    if (!std::filesystem::is_regular_file(status)) return "it is no file but a pipe or a device";
    return std::filesystem::file_size(path, error) == 0 ? "it is empty" : "";
}

// Why the library did not open a file, in our words where its own would tell of itself.
std::string whyNotOpened() {
    const int systemError = errno;
    switch (sf_error(nullptr)) {
    case SF_ERR_SYSTEM:
        return std::generic_category().message(systemError);
    case SF_ERR_UNRECOGNISED_FORMAT:
        return "it is in no known format of audio";
    case SF_ERR_UNSUPPORTED_ENCODING:
        return "it is encoded in a way that is not known";
    default:
        return "it is damaged";
    }
}

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
    const auto refusal = [&path](const std::string& why) {
        return AudioFileError{"cannot read \"" + path + "\": " + why};
    };
    if (const std::string why = whyNoFile(path); !why.empty()) return refusal(why);
    const HeldErrorStream held;
    SF_INFO info{};
    const SoundFile file(sf_open(path.c_str(), SFM_READ, &info), sf_close);
    if (!file) return refusal(whyNotOpened());
    if (const std::string why = whyNotPlayed(info); !why.empty()) return refusal(why);
    AudioClip clip = readFrames(file.get(), info, static_cast<std::size_t>(maxSeconds * info.samplerate));
    if (clip.frames() == 0) return refusal("no audio in it");
    clip.isDamaged = clip.isDamaged || held.heldAnything();
    return clip;
}

std::string damagedFileText(const std::string& path) {
    return "\"" + path + "\" is damaged, and plays as far as it can be read";
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
