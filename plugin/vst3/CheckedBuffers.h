// What stands between the host's buffers and the processor's in the VST3 wrapper, for hosts that do not keep to what
// they have announced: a block that is longer than the longest would be copied past the end of the wrapper's own
// buffer, and buses that are counted but not there would be read.
#pragma once

#include "BuildNamespace.h"

// The second header needs the first, which may be included once only, and the wrapper does so: this is one of another
// name.
// NOLINTBEGIN(readability-identifier-naming)
#define FlagCache CheckedFlagCache
#define FlaggedFloatCache CheckedFlaggedFloatCache
// NOLINTEND(readability-identifier-naming)
#include <juce_audio_processors/utilities/juce_FlagCache.h>

#include <juce_audio_processors/format_types/juce_VST3Common.h>
#undef FlaggedFloatCache
#undef FlagCache

#include <algorithm>

namespace QVM_NAMESPACE {

class CheckedBufferMapper : public juce::ClientBufferMapper {
public:
    // For blocks of up to so many frames. Not for the render thread.
    void prepare(int frames) {
        frames_ = std::max(frames, 0);
        ClientBufferMapper::prepare(frames_);
    }

    // Makes the block one that can be processed, and room for all of it. Render thread; allocates where the block is
    // longer than any before and than the host has announced, and only there.
    CheckedBufferMapper& madeReadyFor(Steinberg::Vst::ProcessData& block) {
        if (block.inputs == nullptr) block.numInputs = 0;
        if (block.outputs == nullptr) block.numOutputs = 0;
        block.numSamples = std::max(block.numSamples, Steinberg::int32{0});
        if (block.numSamples > frames_) prepare(block.numSamples);
        return *this;
    }

private:
    int frames_ = 0;
};

// As long as it lives, the processor has the block's samples in `buffer`. Render thread.
template <class Sample>
class CheckedRemappedBuffer : public juce::ClientRemappedBuffer<Sample> {
public:
    CheckedRemappedBuffer(CheckedBufferMapper& mapper, Steinberg::Vst::ProcessData& block)
        : juce::ClientRemappedBuffer<Sample>(mapper.madeReadyFor(block), block) {}
};

} // namespace QVM_NAMESPACE
