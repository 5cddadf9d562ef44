#include "plugin/standalone/LoopPlayer.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {
constexpr int silentDeviceFrames = 512;
constexpr int outputChannels = 2;
} // namespace

LoopPlayer::LoopPlayer(SlantwiseProcessor& processor, AudioClip clip)
    : juce::Thread("Slantwise silent device"), processor_(processor), loop_(std::move(clip)) {
    const juce::String error = devices_.initialiseWithDefaultDevices(0, outputChannels);
    if (error.isEmpty() && devices_.getCurrentAudioDevice() != nullptr) {
        devices_.addAudioCallback(this);
    } else {
        prepare(loop_.clipRateHz(), silentDeviceFrames);
        startThread();
    }
}

LoopPlayer::~LoopPlayer() {
    devices_.removeAudioCallback(this);
    stopThread(1000);
    processor_.releaseResources();
}

void LoopPlayer::prepare(double sampleRateHz, int maxFrames) {
    loop_.start(sampleRateHz);
    buffer_.setSize(outputChannels, std::max(maxFrames, 1));
    processor_.setPlayConfigDetails(outputChannels, outputChannels, sampleRateHz, maxFrames);
    processor_.prepareToPlay(sampleRateHz, maxFrames);
}

void LoopPlayer::audioDeviceAboutToStart(juce::AudioIODevice* device) {
    prepare(device->getCurrentSampleRate(), device->getCurrentBufferSizeSamples());
}

void LoopPlayer::audioDeviceIOCallbackWithContext(const float* const*, int, float* const* out, int outChannels,
                                                  int frames, const juce::AudioIODeviceCallbackContext&) {
    render(out, outChannels, frames);
}

void LoopPlayer::run() {
    const double blockMs = silentDeviceFrames * 1000 / loop_.clipRateHz();
    for (double due = juce::Time::getMillisecondCounterHiRes(); !threadShouldExit();) {
        render(nullptr, 0, silentDeviceFrames);
        due += blockMs;
        const double ahead = due - juce::Time::getMillisecondCounterHiRes();
        if (ahead >= 1) wait(static_cast<int>(ahead));
    }
}

void LoopPlayer::render(float* const* out, int outChannels, int frames) {
    for (int done = 0; done < frames;) {
        const int chunk = std::min(frames - done, buffer_.getNumSamples());
        loop_.read(buffer_.getWritePointer(0), buffer_.getWritePointer(1), chunk);
        juce::AudioBuffer<float> block(buffer_.getArrayOfWritePointers(), outputChannels, chunk);
        midi_.clear();
        processor_.processBlock(block, midi_);
        for (int c = 0; c < outChannels; ++c) {
            if (out[c] != nullptr) {
                juce::FloatVectorOperations::copy(out[c] + done, block.getReadPointer(c % outputChannels), chunk);
            }
        }
        done += chunk;
    }
}

} // namespace QVM_NAMESPACE
