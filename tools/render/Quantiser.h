// Makes whole numbers of samples, with dither where it is asked for.
//
// Left alone, the sound-file library scales by another number when it writes whole numbers than when it reads them, or
// cuts off what is behind the point, so that a file would not come back as it was. It is given numbers that are whole
// already.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <span>

namespace QVM_NAMESPACE {
namespace render {

// The noise of two dice, a step of the result wide to each side: what rounding adds is noise of one level then, and
// knows nothing of the signal. The same in every run.
enum class Dither : unsigned char { none, triangular };

class Quantiser {
public:
    // At most 32 bits.
    Quantiser(int bits, Dither dither);

    // Rounds samples, of which 1 is full scale, in place, and writes them as words whose uppermost bits they are.
    void quantise(std::span<double> samples, std::span<std::int32_t> words);
    // How many samples did not fit so far, and were cut off at full scale.
    std::uint64_t clipped() const { return clipped_; }

private:
    double noise();

    double scale_;
    int unused_; // lowest bits of a word
    Dither dither_;
    std::uint64_t state_ = 1;
    std::uint64_t clipped_ = 0;
};

} // namespace render
} // namespace QVM_NAMESPACE
