// The bands that a spectrum is shown in, and how they are gathered from the bins of a transform.
//
// Bands are a sixth of an octave wide (between the points where they count by half) and stand closer than that, so that
// a tone is wholly in some band wherever it is: each counts everything in its inner third of a twelfth of an octave by
// one, and fades over a twelfth to either side. A band's level is the power in it, so a tone stands at its own level
// whatever transform it was found with, and noise at what a filter of that width lets through: white noise rises by 3
// dB an octave, pink noise is level. Where a transform has too few bins for that, its bands are as narrow as a tone can
// be told in them, which is what `leastBins` is for. Main thread only.
#pragma once

#include "response/ResponseModel.h"

#include <cstddef>
#include <vector>

namespace QVM_NAMESPACE {

namespace bands {

inline constexpr int perOctave = 24;
inline constexpr std::size_t count = 302; // up to the end of the curve's band
// In the middle of a band.
double hertz(std::size_t band);

} // namespace bands

class SpectrumBands {
public:
    // In bins: from here on a band has all of a tone's power, as a Hann window spreads it (F. J. Harris, "On the use of
    // windows for harmonic analysis", 1978), to a twentieth of a decibel.
    static constexpr double leastBins = 28;

    // For a transform whose bins are `binHz` apart, the first at 0 Hz, and which has part in the bands from `fromHz` to
    // `toHz`: it comes in over half an octave above the one, and goes over half an octave above the other.
    SpectrumBands(double binHz, std::size_t bins, double fromHz, double toHz);

    // Adds the power in each band to `out`, which has bands::count of them. `powers` has that of each bin.
    void add(const float* powers, float* out) const;

private:
    struct Band {
        std::size_t index = 0, firstBin = 0, firstWeight = 0, bins = 0;
    };

    std::vector<Band> bands_;
    std::vector<float> weights_;
};

} // namespace QVM_NAMESPACE
