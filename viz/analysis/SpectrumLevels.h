// What a spectrum shows of the powers in its bands: levels that rise fast and fall slowly, and how they are tilted.
//
// The tilt is 4.5 dB an octave about 1 kHz against the density of power (so much in a hertz), which is about how music
// falls: such a signal lies flat. As a band is as wide as its frequency is high, it has 3.01 dB more of the same
// density with each octave, and what is added here is the rest: 1.49 dB. So pink noise rises by 1.49 and white noise
// by 4.5 dB an octave, and a tone stands at its own level at 1 kHz, and by 1.49 dB an octave above or below that
// elsewhere. Main thread only.
#pragma once

#include "description/Types.h"

#include <cstddef>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

class SpectrumLevels {
public:
    static constexpr QVMFloat32Range range = {-72, 0}; // dB, the axis: 0 is a sine at full scale and 1 kHz
    static constexpr float attackSeconds = 0.02f;      // in which a level comes two thirds nearer to a higher one
    static constexpr float fallPerSecond = 36;         // dB: from top to bottom in two seconds

    SpectrumLevels();

    // What the tilt adds to the level of a band, dB.
    static float tilt(std::size_t band);

    // One frame: `powers` of all bands, `seconds` after the last one.
    void follow(std::span<const float> powers, float seconds);
    // Of each band in dB, no less than the range's lower end; above the upper end they are what they are.
    std::span<const float> levels() const { return levels_; }

private:
    std::vector<float> levels_;
};

} // namespace QVM_NAMESPACE
