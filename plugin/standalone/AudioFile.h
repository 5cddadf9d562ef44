// An audio file in memory. WAV, AIFF and FLAC, read with libsndfile.
#pragma once

#include "BuildNamespace.h"

#include <string>
#include <variant>
#include <vector>

namespace QVM_NAMESPACE {

struct AudioClip {
    double sampleRateHz = 0;
    std::vector<std::vector<float>> channels; // one or two, all of one length, at least one frame
    std::size_t frames() const { return channels.empty() ? 0 : channels.front().size(); }
};

struct AudioFileError {
    std::string message; // one line that names the file
};

// Reads the whole file, at most `maxSeconds` of it; of more than two channels, the first two. Samples that are not
// finite become silence.
[[nodiscard]] std::variant<AudioClip, AudioFileError> readAudioFile(const std::string& path, double maxSeconds = 600);

// Ten seconds of stereo pink noise at about -18 dBFS RMS, the same each time: white noise through a bank of first-order
// low-passes an octave apart, each weighted to the 1/f slope.
AudioClip pinkNoise(double sampleRateHz);

} // namespace QVM_NAMESPACE
