// The latest stretch of stereo audio, handed from the audio side to a display.
//
// The audio side never waits: while the drawing side copies, a block is dropped. The drawing side holds the lock only
// to copy. `readPosition` is the frame of the window from which it reads next; it moves back as the window slides on.
#pragma once

#include "rings/QVMCircularBuffer.h"

#include <memory>
#include <mutex>
#include <optional>

namespace QVM_NAMESPACE {

class StereoTap {
public:
    // A window of silence of so many frames. False when there is no memory for it: then nothing goes in or out. Before
    // audio is processed, main thread.
    bool init(unsigned capacity);

    // Audio side: appends the frames (of a longer block than the window the last ones); a single channel feeds both.
    // False when they were dropped: the drawing side is reading, or there are neither one nor two channels.
    bool append(const QVMAudioBuffer<float>& buffer, unsigned nFrames);

    // Drawing side from here on. Copies the next frames and moves behind them; false when there are not so many yet.
    bool takeNext(unsigned frames, float* left, float* right);
    // Copies frames from anywhere in the window, as many as it has from there.
    void copyFrom(unsigned offset, unsigned frames, float* left, float* right);
    // Moves on by so many frames, or as far as a window of `length` frames still fits, and returns where that is; none
    // when it can't move: there is nothing new.
    std::optional<unsigned> advance(unsigned frames, unsigned length);

    unsigned capacity() const { return capacity_; }
    unsigned readPosition();
    // Who holds it keeps the audio side out.
    std::mutex& lock() { return lock_; }

private:
    void copy(unsigned offset, unsigned frames, float* left, float* right) const;

    std::mutex lock_;
    std::unique_ptr<QVMCircularBuffer<float>> ring_;
    QVMAudioBuffer<float> newest_{2}; // points to the end of a block, audio side
    QVMAudioBuffer<float> single_{1};
    unsigned capacity_ = 0;
    unsigned readPosition_ = 0;
};

// How many frames a display that draws no less often than 30 times a second keeps of blocks of this size: a thirtieth
// of a second, in whole blocks.
unsigned framesOfAFrame(double sampleRate, unsigned maxFrames);

} // namespace QVM_NAMESPACE
