// Plays a clip round and round at any sample rate.
#pragma once

#include "plugin/standalone/AudioFile.h"

#include <memory>
#include <samplerate.h>
#include <vector>

namespace QVM_NAMESPACE {

class ClipLoop {
public:
    // The clip has at least one frame. Not for the audio thread.
    explicit ClipLoop(AudioClip clip);
    ClipLoop(const ClipLoop&) = delete; // the converter calls back to this object
    ClipLoop& operator=(const ClipLoop&) = delete;

    double clipRateHz() const { return clip_.sampleRateHz; }
    // From now on plays at this rate, from the clip's start. While nobody reads; allocates nothing.
    void start(double sampleRateHz);
    // The next `frames` samples for one of two channels each; a clip of one channel feeds both. Audio thread; allocates
    // nothing.
    void read(float* left, float* right, int frames);

private:
    struct Freeing {
        void operator()(SRC_STATE* converter) const;
    };

    // The next stretch of the clip, interleaved; the two ends of the clip are neighbours.
    long nextStretch(float** samples);
    void readInterleaved(float* out, int frames);

    const AudioClip clip_;
    std::vector<float> stretch_, block_; // interleaved: what the converter reads, and what it writes
    std::unique_ptr<SRC_STATE, Freeing> converter_;
    double ratio_ = 1;   // frames that are read for each of the clip's
    std::size_t at_ = 0; // clip frames
};

} // namespace QVM_NAMESPACE
