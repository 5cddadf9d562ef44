// The equaliser: tilt, filters, what is listened to, and the gain that makes up for the loudness.
//
// What it does is what the response curve shows (viz/). Parameters glide, and every 1.3 to 2.7 ms (less above 192 kHz)
// the sections are designed anew for where they are; in between the coefficients move in straight lines. What can only
// be switched (a filter on or off, listening, loudness mode, quality) is faded, and so is a leap too far to glide, like
// that of a preset: the chain as it was plays on with its coefficients held while the new one swings in and comes.
// There is no latency in either quality.
//
// Render thread; nothing allocates, locks or calls the system.
#pragma once

#include "unit/dsp/EqChain.h"
#include "unit/dsp/Glide.h"
#include "unit/dsp/Loudness.h"

#include <cstdint>

namespace QVM_NAMESPACE::dsp {

class Equaliser {
public:
    // Everything stands at the settings at once, with no signal before. Not while process() runs, and not on the render
    // thread: it solves equations.
    void prepare(double sampleRateHz, const EqSettings& settings);
    // Filters `frames` pairs of samples in place, towards the settings. The signal must be finite.
    void process(double* samples, std::uint32_t frames, const EqSettings& settings);
    // Stands at the settings at once and forgets the signal: for while nobody hears it. Render thread.
    void reset(const EqSettings& settings);
    // Nothing moves and everything passes as it is, to the last bit.
    bool isFlat() const;

private:
    enum Gliding : unsigned char {
        tiltGain,
        tiltLow,
        tiltHigh,
        lowCorner,
        lowOrder,
        lowPeak,
        highCorner,
        highOrder,
        highPeak,
        gliding
    };

    void arrive(const EqSettings& settings);
    void beginStep(const EqSettings& settings);
    bool isSwitched(const EqSettings& settings) const;
    bool follow(const EqSettings& settings);
    void processPart(double* samples, std::size_t frames);
    void fade(double* samples, std::size_t frames);
    void endStep(double* samples, std::size_t frames);
    const Corrector& corrector() const { return correctors_[static_cast<std::size_t>(chain_.shape().quality)]; }

    double sampleRateHz_ = 48000;
    std::size_t stepFrames_ = 64;
    std::size_t left_ = 0;                // frames of the step
    std::array<Corrector, 2> correctors_; // by quality
    Loudness loudness_;
    EqSettings now_; // where the glides are
    std::array<Glide, gliding> glides_;
    double loudnessGain_ = 1;        // amplitude, at the end of the step
    double gain_ = 1, gainStep_ = 0; // on the way there

    double fadingGain_ = 1;
    EqChain chain_, fading_;
    std::size_t warmFrames_ = 720, fadeFrames_ = 960, fadeLeft_ = 0;
    std::array<double, 2 * maxStepFrames> old_{};
};

} // namespace QVM_NAMESPACE::dsp
