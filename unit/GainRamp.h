// A gain that moves to its target in a straight line, sample by sample, so that no change of it clicks.
//
// Render thread; `prepare` while nothing renders. At rest it is exactly its target: unity gain leaves every sample as
// it is.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>

namespace QVM_NAMESPACE {

// The amplitude of an output gain in decibels, held within -96 to 12; at -96 dB it is 0.
double amplitudeFromDecibels(float decibels);

class GainRamp {
public:
    static constexpr double seconds = 0.02; // from any gain to any other

    // Sets the length of the ramp and stands at `gain` (an amplitude) at once.
    void prepare(double sampleRateHz, double gain);
    // The ramp starts anew from where the gain is now. The target that it has already changes nothing.
    void setTarget(double gain);
    // Stands at the target at once: for while nobody hears it.
    void snap();
    // The gain of the next sample.
    double next();
    bool isMoving() const { return remaining_ > 0; }

private:
    double current_ = 1;
    double target_ = 1;
    double step_ = 0;
    std::uint32_t remaining_ = 0; // samples
    std::uint32_t length_ = 1;    // samples
};

} // namespace QVM_NAMESPACE
