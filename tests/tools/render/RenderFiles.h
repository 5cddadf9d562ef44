// Sound files for the tests of slantwise-render, and what is in them.
#pragma once

#include "plugin/standalone/AudioFiles.h"
#include "program/SoundFile.h"

#include <cmath>
#include <iterator>

namespace QVM_NAMESPACE {
namespace render {

// A different tone in each channel and a little noise, interleaved; nowhere at full scale.
inline std::vector<float> tones(int channels, int frames, float amplitude = 0.4f) {
    std::minstd_rand random(7);
    std::vector<float> samples;
    for (int i = 0; i < frames; ++i) {
        for (int c = 0; c < channels; ++c) {
            const float noise = static_cast<float>(random()) / 4294967296.0f;
            samples.push_back(amplitude * (std::sin(0.05f * static_cast<float>((c + 1) * i)) + 0.2f * noise));
        }
    }
    return samples;
}

// All samples of a file, interleaved; empty where it cannot be read.
inline std::vector<double> samplesOf(const std::string& path) {
    const auto opened = openSoundFile(path);
    const auto* file = std::get_if<OpenSoundFile>(&opened);
    if (!file) return {};
    std::vector<double> samples(static_cast<std::size_t>(file->info.frames * file->info.channels));
    sf_readf_double(file->handle.get(), samples.data(), file->info.frames);
    return samples;
}

inline SF_INFO infoOf(const std::string& path) {
    const auto opened = openSoundFile(path);
    const auto* file = std::get_if<OpenSoundFile>(&opened);
    return file ? file->info : SF_INFO{};
}

inline std::string bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// How many entries a folder has, hidden ones among them.
inline std::size_t entriesIn(const std::string& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

} // namespace render
} // namespace QVM_NAMESPACE
