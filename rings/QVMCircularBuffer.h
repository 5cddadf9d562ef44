// The most recent stretch of audio of several channels, each as one contiguous array (a "tap").
//
// One ring a channel. The side that fills also moves the taps, so taps, offsets and counts may be read by it, or by
// another thread under a lock that both hold. T is float or double.
#pragma once

#include "rings/QVMAudioBuffer.h"
#include "rings/TPCircularBuffer.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

template <class T>
struct QVMCircularBuffer {
    std::uint32_t numChannels = 0;
    std::uint32_t maxFrames = 0;          // capacity; the rings behind may be longer, by less than a page
    std::uint32_t availFrames = 0;        // frames readable at each tap, as of the last fill
    std::vector<std::int32_t> tapOffsets; // frame in the tap where the newest block starts
    std::vector<T*> taps;                 // oldest readable sample of each channel; null when there is none
    std::vector<std::unique_ptr<TPCircularBuffer>> rings;
    bool slide = false; // the window stays full: each fill first drops as many old frames as it adds

    // `init()` must follow.
    QVMCircularBuffer(unsigned channelCount, unsigned capacityFrames, bool slidingWindow);
    ~QVMCircularBuffer();
    QVMCircularBuffer(const QVMCircularBuffer&) = delete;
    QVMCircularBuffer& operator=(const QVMCircularBuffer&) = delete;

    // Maps the rings and clears; false when one of them could not be made: then nothing can be filled in. Nothing
    // allocates after this. Not for the render thread.
    bool init(MemoryMapper& mapper = systemMemoryMapper());
    // Empties the rings; a sliding window is full of silence afterwards. Filling side.
    void clear();
    // Appends `frames` frames of `src` to each ring (one channel feeds all; any other count than ours does nothing) and
    // moves the taps. `consume` first drops as many old frames, as a sliding window always does; without it the frames
    // must fit into `maxFrames`: anything else is fatal. Filling side; copies once, never allocates or blocks.
    void fillAndTap(const QVMAudioBuffer<T>* src, unsigned frames, bool consume);
    // The same with silence; what does not fit is left out. Filling side.
    void fillWithZerosAndTap(unsigned frames, bool consume);

private:
    template <class Write>
    void append(unsigned frames, bool consume, Write&& write);
    void tap(std::size_t channel, unsigned frames);

    bool isReady_ = false;
};

extern template struct QVMCircularBuffer<float>;
extern template struct QVMCircularBuffer<double>;

} // namespace QVM_NAMESPACE
