// Feeds a looping clip through the processor, on the audio device or, where there is none, in real time to nowhere.
#pragma once

#include "plugin/SlantwiseProcessor.h"
#include "plugin/standalone/AudioFile.h"

#include <juce_audio_devices/juce_audio_devices.h>

#include <atomic>
#include <memory>

namespace QVM_NAMESPACE {

class LoopPlayer final : private juce::AudioIODeviceCallback, private juce::Thread {
public:
    // The processor is borrowed and outlives the player. Starts at once.
    LoopPlayer(SlantwiseProcessor& processor, AudioClip clip);
    ~LoopPlayer() override;

    // Name of the audio device, or empty when the clip plays to nowhere.
    std::string deviceName() const { return deviceName_; }
    // Frames processed so far. Any thread.
    std::uint64_t framesPlayed() const { return played_.load(std::memory_order_relaxed); }

private:
    void audioDeviceAboutToStart(juce::AudioIODevice* device) override;
    void audioDeviceStopped() override {}
    void audioDeviceIOCallbackWithContext(const float* const* in, int inChannels, float* const* out, int outChannels,
                                          int frames, const juce::AudioIODeviceCallbackContext&) override;
    void run() override;
    void prepare(double sampleRateHz, int maxFrames);
    void render(float* const* out, int outChannels, int frames);

    SlantwiseProcessor& processor_;
    const AudioClip source_;
    AudioClip clip_; // the source at the device's rate
    std::size_t at_ = 0;
    juce::AudioBuffer<float> buffer_;
    juce::MidiBuffer midi_;
    juce::AudioDeviceManager devices_;
    std::string deviceName_;
    std::atomic<std::uint64_t> played_{0};
};

} // namespace QVM_NAMESPACE
