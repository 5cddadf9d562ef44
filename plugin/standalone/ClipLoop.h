// Plays a clip round and round at any sample rate, by windowed-sinc interpolation: good enough to listen to.
#pragma once

#include "plugin/standalone/AudioFile.h"

#include <vector>

namespace QVM_NAMESPACE {

class ClipLoop {
public:
    // The clip has at least one frame. Not for the audio thread.
    explicit ClipLoop(AudioClip clip);

    double clipRateHz() const { return clip_.sampleRateHz; }
    // From now on plays at this rate, from the clip's start. While nobody reads; allocates nothing.
    void start(double sampleRateHz);
    // The next `frames` samples for one of two channels each; a clip of one channel feeds both. Audio thread; allocates
    // nothing.
    void read(float* left, float* right, int frames);

private:
    struct Pair {
        float left = 0, right = 0;
    };
    Pair interpolated() const;
    double kernel(double x) const;

    const AudioClip clip_;
    const std::vector<float> kernel_; // one side of it, many values a sample
    double step_ = 1;                 // clip frames for each frame that is read
    double at_ = 0;                   // clip frames
};

} // namespace QVM_NAMESPACE
