// Stereo sound at a lower rate: low-pass and one frame in so many.
//
// The filter has linear phase (a sinc in a window of J. F. Kaiser, "Nonrecursive digital filter design using the
// I0-sinh window function", 1974). What passes and what would fold back into it is said by the shares below; the sums
// are made only for the frames that stay. One thread at a time.
#pragma once

#include "BuildNamespace.h"

#include <array>
#include <cstddef>
#include <vector>

namespace QVM_NAMESPACE {

class Decimator {
public:
    // Of the lower rate: up to here everything passes as it was, within a hundredth of a decibel, and nothing that
    // folds back to here is louder than -90 dB.
    static constexpr double passedShare = 0.37;

    // Keeps one frame in `factor`, which is at least 1; with 1 everything passes.
    explicit Decimator(unsigned factor);

    // Takes frames and gives those that stay, valid until the next call: left and right, as many of both.
    const std::array<std::vector<float>, 2>& process(const float* left, const float* right, std::size_t frames);
    // Forgets what came.
    void reset();

private:
    unsigned factor_;
    std::vector<float> kernel_;
    std::array<std::vector<float>, 2> pending_; // as long as the kernel, less one, before the next frame that stays
    std::array<std::vector<float>, 2> out_;
};

} // namespace QVM_NAMESPACE
