// Peak levels, written by the render thread and taken by one other.
//
// One word a channel. The render thread raises it, a reader exchanges it for 0, and neither ever waits: a peak that
// arrives during the exchange is in this reading or in the next one, never lost.
#pragma once

#include "description/BuildNamespace.h"

#include <array>
#include <atomic>
#include <cstddef>

namespace QVM_NAMESPACE {

class Meter {
public:
    static constexpr std::size_t maxChannels = 2;

    // Render thread: the largest absolute sample of a stretch of one channel, as an amplitude. NaN counts for nothing.
    void add(std::size_t channel, float peak);
    // Any other thread: the largest peak since the last call or reset, 0 for a channel that does not exist.
    float takePeak(std::size_t channel);
    // Forgets all peaks. Any thread.
    void reset();

private:
    std::array<std::atomic<float>, maxChannels> peaks_{};
};

} // namespace QVM_NAMESPACE
