// The audio unit on up to eight channels.
#pragma once

#include "tools/render/ChosenSettings.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

class QVM0015_AudioUnit;

namespace render {

// In which numbers the unit takes and gives samples; it calculates in the longer ones in either case.
enum class SampleWidth : unsigned char { single, twofold };

// A stereo unit for each pair of channels, and a mono one for the last of an odd number. All have the same settings.
class UnitChain {
public:
    static constexpr int maxChannels = 8;
    static constexpr int lowestRateHz = 4000, highestRateHz = 1000000;

    // Channels and rate within what stands above.
    UnitChain(const ChosenSettings& settings, int channels, double sampleRateHz, SampleWidth width);
    ~UnitChain();
    UnitChain(const UnitChain&) = delete;
    UnitChain& operator=(const UnitChain&) = delete;

    // Whole frames, in place. The result does not depend on how they are divided into calls, and is what the plug-in
    // gives a host for them: the processor treats the smallest numbers as 0 meanwhile.
    void process(std::span<double> interleaved);

private:
    template <class Sample>
    void processPair(QVM0015_AudioUnit& unit, std::span<double> interleaved, std::size_t first, std::size_t count);

    std::size_t channels_;
    SampleWidth width_;
    std::vector<std::unique_ptr<QVM0015_AudioUnit>> units_;
};

} // namespace render
} // namespace QVM_NAMESPACE
