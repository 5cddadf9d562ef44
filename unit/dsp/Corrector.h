// Makes up for the smooth rest between what the digital sections do and what they should do.
//
// The rest, as a level over frequency, is written as a short sum of c_k (cos k w - 1) by weighted least squares, whose
// matrix is solved once for a sample rate. The filter of minimum phase with that level is the exponential of a power
// series and is computed by the recursion of A. V. Oppenheim and R. W. Schafer, "Discrete-Time Signal Processing",
// chapter on cepstrum analysis. It has no feedback, no delay and cannot become unstable.
#pragma once

#include "unit/dsp/EqSettings.h"

#include <array>
#include <cstddef>
#include <span>

namespace QVM_NAMESPACE::dsp {

class Corrector {
public:
    static constexpr std::size_t points = 32; // at which the rest is known
    static constexpr std::size_t maxTaps = 32;
    using Rest = std::array<double, points>; // what should be over what is, as squared magnitudes
    using Taps = std::array<double, maxTaps>;

    // Solves for a sample rate. Not for the render thread.
    void prepare(double sampleRateHz, Quality quality);
    // Where the rest is looked at: the squares of hertz, sin^2(w / 2), and the same for the models of peaks.
    const std::array<double, points>& squares() const { return squares_; }
    const std::array<double, points>& positions() const { return positions_; }
    const std::array<double, points>& modelPositions() const { return modelPositions_; }
    std::size_t tapCount() const { return tapCount_; }
    // The filter for a rest; the first tapCount() are used. Render thread.
    void taps(const Rest& rest, Taps& out) const;

private:
    static constexpr std::size_t maxTerms = 16;

    std::size_t terms_ = 8;
    std::size_t tapCount_ = 16;
    std::array<double, points> squares_{}, positions_{}, modelPositions_{};
    std::array<std::array<double, maxTerms>, points> solution_{}; // a column for each term
    std::array<double, maxTaps> inverses_{};                      // 1 / n
};

} // namespace QVM_NAMESPACE::dsp
