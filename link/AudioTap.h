// The signal on its way from the audio to the frames that analyse it: what went into the unit beside what came out.
//
// One ring of frames; the audio writes, the main thread reads, and neither waits: a frame that finds no room is left
// out, and what the main thread does not fetch for a third of a second (at 48 kHz) is not missed. Until somebody wants
// the signal there is no ring, and all that the audio's side does is to look at a few flags.
#pragma once

#include "link/SharedWord.h"
#include "rings/TPCircularBuffer.h"

#include <array>
#include <cstddef>
#include <span>

namespace QVM_NAMESPACE {

// One moment of the signal, left and right; both are the same where there is one channel. 1 is full scale.
struct TapFrame {
    std::array<float, 2> input{}, output{};
};

class AudioTap {
public:
    static constexpr std::size_t capacity = 16384; // frames, of which a ring has room for no fewer

    AudioTap() = default;
    // Nobody may be writing or reading.
    ~AudioTap() { TPCircularBufferCleanup(&ring_); }
    AudioTap(const AudioTap&) = delete;
    AudioTap& operator=(const AudioTap&) = delete;

    // Main thread: whether the signal is wanted. The first time makes the ring, which stays; what was left in it is
    // dropped. False when there is no memory for it: then it is not wanted.
    bool setWanted(bool isWanted);

    // The audio's side, one thread at a time; neither waits nor allocates.
    bool isWanted() const { return isWanted_.loadOrdered(); }
    // Only while it is wanted. Of more frames than there is room for the latest are kept.
    void append(std::span<const TapFrame> frames);
    // Likewise: the rate of what is appended.
    void setSampleRateHz(double rate) { sampleRateHz_ = rate; }

    // Main thread: what has come and is not consumed yet, oldest first; valid until it is consumed.
    std::span<const TapFrame> waiting();
    void consume(std::size_t frames);
    double sampleRateHz() const { return sampleRateHz_; } // 0 before anything came

private:
    SharedWord<bool> isWanted_ = false;
    SharedWord<double> sampleRateHz_ = 0;
    TPCircularBuffer ring_; // made before it is wanted for the first time
};

} // namespace QVM_NAMESPACE
