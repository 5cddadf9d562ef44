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
    bool isDamaged = false;                   // the file ends early, or parts of it could not be decoded
    std::size_t frames() const { return channels.empty() ? 0 : channels.front().size(); }
};

struct AudioFileError {
    std::string message; // one line that names the file
};

// What can be played at, of a file and of a device.
inline constexpr int lowestClipRateHz = 4000, highestClipRateHz = 1000000;

// Reads the whole file, at most `maxSeconds` of it; of more than two channels, the first two. Samples that are not
// finite become silence. Waits for nobody: what is no file, such as a pipe, is refused. Nothing is written to the error
// stream meanwhile, by any thread.
[[nodiscard]] std::variant<AudioClip, AudioFileError> readAudioFile(const std::string& path, double maxSeconds = 600);

// What is said of a clip that is damaged.
std::string damagedFileText(const std::string& path);

// Ten seconds of stereo pink noise at about -18 dBFS RMS, the same each time: white noise through a bank of first-order
// low-passes an octave apart, each weighted to the 1/f slope.
AudioClip pinkNoise(double sampleRateHz);

} // namespace QVM_NAMESPACE
