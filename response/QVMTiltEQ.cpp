#include "response/QVMTiltEQ.h"

#include "platform/vector/VectorMath.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

constexpr double kDecibelsPerNeper = 8.685889638065037;
constexpr double kNepersPerDecibel = 0.11512925464970228;
constexpr double kLeastTransition = 12; // dB
constexpr double kTrebleHertz = 20000;  // where the treble mode matches levels
constexpr float kLargestExponent = 78;  // its exponential and the reciprocal of that are well within a float's range

// The two shelves' shape: 1 / (a + 1) below and k sqrt(1 / (b + 1)) above, where a and b are powers of the frequency
// over the lower and of the upper corner over the frequency. Their product is `span` at every frequency.
struct Shelves {
    double power = 0;
    double span = 0;
    double share = 0;    // k
    double exponent = 0; // of the shelves' sum, to make it the tilt
    double low = 0;      // corners, hertz
    double high = 0;

    Shelves(double gain, double fLow, double fHigh) : low(fLow), high(std::max(fHigh, 2 * fLow)) {
        const double transition = std::max(std::abs(gain), kLeastTransition);
        span = std::expm1(2 * kNepersPerDecibel * transition);
        power = std::log(span) / std::log(high / low);
        share = 1 / (span + 1);
        exponent = gain / -transition;
    }

    // The natural logarithm of the tilt at a frequency.
    double at(double hertz) const {
        const double above = std::sqrt(1 / (1 + std::pow(high / hertz, power)));
        const double below = 1 / (1 + std::pow(hertz / low, power));
        return exponent * std::log(std::sqrt(share * above + below));
    }
};

} // namespace

template <class T>
T QVMTiltEQ<T>::tiltEQLoudness(const T* resp, const T* weights, const T* filterMag, T* scratch, int n) {
    if (n == 0) return 0; // nothing is as loud as nothing
    const auto count = static_cast<std::size_t>(n);
    if (filterMag) {
        vectors::multiply(filterMag, weights, scratch, count);
    } else {
        vectors::copy(weights, scratch, count);
    }
    // Relative to the largest one, so that the squares of a nearly closed band do not vanish.
    const T largest = *std::max_element(scratch, scratch + count);
    if (!(largest >= std::numeric_limits<T>::min())) return 0; // a closed band; the reciprocal would be infinite
    vectors::scaleAndOffset(scratch, 1 / largest, T{0}, scratch, count);
    const double flat = vectors::rms(scratch, count);
    vectors::multiply(scratch, resp, scratch, count);
    return static_cast<T>(std::log(flat / double{vectors::rms(scratch, count)}) * kDecibelsPerNeper);
}

template <class T>
T QVMTiltEQ<T>::calcRespForParams(const T* freqs, T gain, T fLow, T fHigh, QVMTiltEQ_LoudnessMode mode,
                                  const T* weights, const T* filterMag, T* scratch, T* out, int n) {
    const auto count = static_cast<std::size_t>(n);
    const double fullGain = 2 * double{gain};
    const Shelves shelves(fullGain, fLow, fHigh);
    const auto power = static_cast<T>(shelves.power);
    const auto span = static_cast<T>(shelves.span);

    // a, into `out`.
    vectors::clip(freqs, T{1}, std::numeric_limits<T>::max(), out, count);
    vectors::log(out, out, count);
    vectors::scaleAndOffset(out, power, static_cast<T>(-shelves.power * std::log(shelves.low)), out, count);
    vectors::clip(out, -kLargestExponent, kLargestExponent, out, count);
    vectors::exp(out, out, count);
    // sqrt(1 / (b + 1)) with b = span / a, into `scratch`.
    vectors::scaleAndOffset(out, T{1}, span, scratch, count);
    vectors::divide(out, scratch, scratch, count);
    vectors::sqrt(scratch, scratch, count);
    // The sum of both shelves, then its logarithm with the exponent, which is that of the tilt.
    vectors::scaleAndOffset(out, T{1}, T{1}, out, count);
    vectors::divideScalarBy(T{1}, out, out, count);
    vectors::multiplyAdd(scratch, static_cast<T>(shelves.share), out, out, count);
    vectors::log(out, out, count);
    vectors::scaleAndOffset(out, static_cast<T>(0.5 * shelves.exponent), T{0}, out, count);

    T compensation = 0;
    switch (mode) {
    case QVMTiltEQ_LoudnessWeighted:
        vectors::exp(out, out, count);
        compensation = tiltEQLoudness(out, weights, filterMag, scratch, n);
        vectors::log(out, out, count);
        break;
    case QVMTiltEQ_LoudnessHalfGain:
        compensation = static_cast<T>(-0.5 * fullGain);
        break;
    case QVMTiltEQ_LoudnessTreble:
        compensation = static_cast<T>(-kDecibelsPerNeper * shelves.at(kTrebleHertz));
        break;
    case QVMTiltEQ_LoudnessNone:
        break;
    }
    vectors::scaleAndOffset(out, static_cast<T>(kDecibelsPerNeper), T{0}, out, count);
    return compensation;
}

template class QVMTiltEQ<float>;

} // namespace QVM_NAMESPACE
