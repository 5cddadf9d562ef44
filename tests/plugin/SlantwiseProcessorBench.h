// What the tests of the processor do with one, as a host would.
#pragma once

#include "plugin/SlantwiseProcessor.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace QVM_NAMESPACE {

inline juce::MemoryBlock stateOf(SlantwiseProcessor& processor) {
    juce::MemoryBlock bytes;
    processor.getStateInformation(bytes);
    return bytes;
}

inline void restore(SlantwiseProcessor& processor, const juce::MemoryBlock& bytes) {
    processor.setStateInformation(bytes.getData(), static_cast<int>(bytes.getSize()));
}

inline void prepare(SlantwiseProcessor& processor, int channelsIn, int channelsOut, int maxFrames = 512) {
    processor.setPlayConfigDetails(channelsIn, channelsOut, 48000, maxFrames);
    processor.prepareToPlay(48000, maxFrames);
}

template <class Sample>
void processOnce(SlantwiseProcessor& processor, juce::AudioBuffer<Sample>& buffer) {
    juce::MidiBuffer midi;
    processor.processBlock(buffer, midi);
}

inline void processOnce(SlantwiseProcessor& processor) {
    juce::AudioBuffer<float> buffer(2, 64);
    buffer.clear();
    processOnce(processor, buffer);
}

inline float valueOf(SlantwiseProcessor& processor, std::uint32_t pid) {
    float value = 0;
    EXPECT_EQ(AudioUnitGetParameter(&processor.unit(), pid, kAudioUnitScope_Global, 0, &value), noErr);
    return value;
}

} // namespace QVM_NAMESPACE
