// Second-order sections in the digital domain.
//
// Poles and zeros of the analog section are carried over by z = e^(s T), which keeps their frequencies and bandwidths
// at any distance from half the sample rate; what this leaves of the difference is smooth and is made up for by the
// Corrector. Pure functions; any thread, no allocation.
#pragma once

#include "unit/dsp/AnalogSection.h"
#include "unit/dsp/SvfCascade.h"

#include <array>

namespace QVM_NAMESPACE::dsp {

// c0 + c1 / z + c2 / z^2 by its values where precision is needed: near 0 Hz the coefficients themselves nearly cancel.
struct Polynomial {
    double atZero = 1;    // c0 + c1 + c2, at 0 Hz
    double atNyquist = 1; // c0 - c1 + c2, at half the sample rate
    double skew = 1;      // c0 - c2

    // Squared magnitude; `position` is sin^2(w / 2).
    double power(double position) const {
        const double even = atZero - (atZero + atNyquist) * position;
        return even * even + 4 * skew * skew * position * (1 - position);
    }
    // The same as a polynomial of the position: c[0] + c[1] p + c[2] p^2.
    std::array<double, 3> powers() const {
        const double sum = atZero + atNyquist, width = 4 * skew * skew;
        return {atZero * atZero, width - 2 * atZero * sum, sum * sum - width};
    }
    Polynomial scaled(double by) const { return {atZero * by, atNyquist * by, skew * by}; }
    // c2 + c1 / z + c0 / z^2: the same magnitude, every root turned out of the unit circle or into it.
    Polynomial reversed() const { return {atZero, atNyquist, -skew}; }
};

struct DigitalSection {
    Polynomial num, den; // the first coefficient of den is 1

    double power(double position) const { return num.power(position) / den.power(position); }
    Powers powers() const { return {num.powers(), den.powers()}; } // over the position
};

DigitalSection digitalFrom(const AnalogSection& analog, double sampleRateHz);
// The same with zeros that hold the magnitude at 0 Hz and at two more frequencies instead. Closer to half the sample
// rate, but not for zeros that cut a notch.
DigitalSection matchedFrom(const AnalogSection& analog, double sampleRateHz);

// A peak of `gain` dB (0 or more) and of the bandwidth that belongs to a filter's order, as the audio equalizer
// cookbook (R. Bristow-Johnson) makes it at 48 kHz, at any sample rate.
class Peak {
public:
    Peak(double hertz, double gain, double order);
    // Where the model has a frequency, which ends at 24 kHz and stays there: sin^2(w / 2).
    static double modelPosition(double hertz);
    // Squared magnitude of the model.
    double power(double modelPosition) const { return num_.power(modelPosition) / den_.power(modelPosition); }
    // Carries the poles over, and finds the zeros that give the magnitude of the model at 0 Hz, at the peak and below.
    DigitalSection digital(double sampleRateHz) const;

private:
    double hertz_ = 1000;
    Polynomial num_, den_; // at 48 kHz
    double radius_ = 0;    // of the poles: -ln of it
    double angle_ = 0;     // radians a sample
    bool isFlat_ = true;
};

vectors::SvfCoefficients coefficientsOf(const DigitalSection& section);

} // namespace QVM_NAMESPACE::dsp
