// Where each band of frequencies sits in the stereo field, from bins, over time.
//
// Bins are gathered in bands that are even on a logarithmic scale, so that what falls by 3 dB an octave has the same
// level everywhere. Each band remembers power and where it was, rises at once and fades slowly, so that a position is
// the mean over the last quarter of a second, weighted by power. Main thread only.
#pragma once

#include "description/Types.h"

#include <span>
#include <vector>

namespace QVM_NAMESPACE {

class StereoSpectrum {
public:
    // Positions run from -1 (left) to 1 (right).
    struct Band {
        float level = 0;  // power as an amplitude; 1 is full scale
        float pan = 0;    // mean position
        float extent = 0; // how far it reaches to either side
        float phase = 0;  // 0: both sides in phase, 1/3: independent, 1: opposite
    };

    // Replaces all bands. Frequencies in hertz, `binWidth` from one bin to the next.
    void init(QVMFloat32Range frequencies, std::size_t bandCount, float binWidth, std::size_t binCount);
    // Takes in the bins' amplitudes, positions and widths (0 mono to 1 opposite), `dt` seconds after the last ones.
    void take(const float* levels, const float* pan, const float* width, float dt);

    std::size_t size() const { return sums_.size(); }
    Band band(std::size_t index) const;

private:
    // Sums over bins, weighted by power.
    struct Sums {
        float power = 0, pan = 0, panSquared = 0, excess = 0;
    };
    struct Span {
        std::size_t first = 0, last = 0; // from one bin to before the other; the same: blended from it and the next one
        float at = 0;                    // share of that next one
        float share = 1;                 // of the blend's power that falls into the band
    };
    Sums sumsOf(const Span& span) const;

    std::vector<Span> spans_;
    std::vector<Sums> bins_; // of the spectrum being taken in
    std::vector<Sums> sums_; // smoothed, one a band
};

} // namespace QVM_NAMESPACE
