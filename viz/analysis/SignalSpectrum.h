// How much power a stereo signal has in each band, now.
//
// Resolution rises towards the lows, as in hearing and in music: three transforms look at the latest 43, 171 and 683 ms
// and have a quarter of the bin width each, and a band is taken from the shortest one that can tell it from its
// neighbours (a multi-resolution transform: K. Dressler, "Sinusoidal extraction using an efficient implementation of a
// multi-resolution FFT", 2006). Below 41 Hz even the longest cannot: there bands stay 4.7 Hz wide. The alternative is a
// constant-Q transform (J. C. Brown, "Calculation of a constant Q spectral transform", 1991), which would not stop
// there, but needs a window of seconds for it, in which the display is late. The two longer transforms look at a
// sixteenth of the rate: all three together cost a tenth of one long transform at the full rate.
//
// Both sides go through one complex transform, left as the real and right as the imaginary part; the powers of both
// bins at a frequency add up to that of both sides. All lengths follow the rate, in powers of two. Main thread only.
#pragma once

#include "viz/analysis/Decimator.h"
#include "viz/analysis/QVMDFT2.h"
#include "viz/analysis/SpectrumBands.h"
#include "viz/analysis/StereoTap.h"

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

class SignalSpectrum {
public:
    // `sampleRateHz` is positive. It has heard nothing but silence.
    explicit SignalSpectrum(double sampleRateHz);

    // Takes the next frames, 1 being full scale. What is no sound, or 80 dB above full scale, counts as silence.
    void take(const float* left, const float* right, std::size_t frames);
    // Forgets what came.
    void reset();
    // The power in each band, 1 being that of a sine at full scale on both sides; on one side it has half of that.
    // Computed anew when something came. Valid until the next call.
    std::span<const float> powers();

private:
    // One length of the window.
    class Transform {
    public:
        Transform(unsigned points, double rateHz, double fromHz, double toHz);
        void append(const float* left, const float* right, std::size_t frames);
        void reset() { heard_.init(static_cast<unsigned>(window_.size())); }
        void addTo(float* powers);

    private:
        StereoTap heard_;
        std::vector<float> window_; // Hann's, such that the powers of all bins add up to that of the signal
        QVMDFT2<float> transform_;
        std::vector<float> left_, right_, real_, imaginary_, powers_;
        QVMAudioBuffer<float> block_{2};
        SpectrumBands bands_;
    };

    Decimator decimator_;
    std::array<std::unique_ptr<Transform>, 3> transforms_; // the shortest first, the only one at the full rate
    std::array<std::vector<float>, 2> taken_;
    std::vector<float> powers_;
    bool isNew_ = false;
};

} // namespace QVM_NAMESPACE
