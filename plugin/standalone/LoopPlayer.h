// Feeds a looping clip through the processor, on the audio device or, where there is none, in real time to nowhere.
#pragma once

#include "plugin/SlantwiseProcessor.h"
#include "plugin/standalone/ClipLoop.h"

#include <juce_audio_devices/juce_audio_devices.h>

namespace QVM_NAMESPACE {

class LoopPlayer final : private juce::AudioIODeviceCallback, private juce::Thread {
public:
    // The processor is borrowed and outlives the player. Starts at once. Main thread.
    LoopPlayer(SlantwiseProcessor& processor, AudioClip clip);
    ~LoopPlayer() override;

private:
    void audioDeviceAboutToStart(juce::AudioIODevice* device) override;
    void audioDeviceStopped() override {}
    void audioDeviceIOCallbackWithContext(const float* const* in, int inChannels, float* const* out, int outChannels,
                                          int frames, const juce::AudioIODeviceCallbackContext&) override;
    void run() override;
    void prepare(double sampleRateHz, int maxFrames);
    void render(float* const* out, int outChannels, int frames);

    SlantwiseProcessor& processor_;
    ClipLoop loop_;
    juce::AudioBuffer<float> buffer_;
    juce::MidiBuffer midi_;
    juce::AudioDeviceManager devices_;
};

} // namespace QVM_NAMESPACE
