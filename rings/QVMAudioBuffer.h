// Samples of several channels, one array a channel.
//
// A buffer either owns its samples (after `alloc`) or points to somebody else's: then capacity is 0 and the owner of
// the buffer aims `channels` at arrays that outlive its use, which allocates nothing. T is float or double.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

template <class T>
struct QVMAudioBuffer {
    std::uint32_t numChannels = 0;
    std::vector<T*> channels;   // numChannels of them
    std::uint32_t capacity = 0; // frames a channel in `block`
    std::unique_ptr<T[]> block; // numChannels * capacity samples, channel after channel

    explicit QVMAudioBuffer(unsigned channelCount) : numChannels(channelCount), channels(channelCount) {}

    // Makes room for `frames` zeroed frames and aims the channels at it. Not for the render thread.
    void alloc(unsigned frames);
    // Copies the first `frames` frames (no more than either buffer has room for): channel by channel when the counts
    // match, a single channel into every one, else as many channels as both have. Any thread that owns both.
    void fill(const QVMAudioBuffer* src, unsigned frames);
};

extern template struct QVMAudioBuffer<float>;
extern template struct QVMAudioBuffer<double>;

} // namespace QVM_NAMESPACE
