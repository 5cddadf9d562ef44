// The tilt of the equaliser as a curve, and the gain that makes up for the loudness it adds or takes.
//
// It is a model of what the effect does, evaluated in closed form over a frequency grid. No state; any thread.
#pragma once

#include "description/ParameterTypes.h"

namespace QVM_NAMESPACE {

// Arrays hold `n` values; frequencies are in hertz, gains in dB, weights and magnitudes are amplitudes.
template <class T>
class QVMTiltEQ {
public:
    // Writes the tilt in dB to `out`: 0 far below `fLow`, twice `gain` far above `fHigh` (or 2 `fLow`, if that is
    // higher). Returns the compensation in dB. `scratch` is overwritten; it and `out` must not overlap the others.
    static T calcRespForParams(const T* freqs, T gain, T fLow, T fHigh, QVMTiltEQ_LoudnessMode mode, const T* weights,
                               const T* filterMag, T* scratch, T* out, int n);

    // The gain in dB that gives `resp` (amplitudes) the weighted energy of a flat response. Both are seen through
    // `filterMag`, unless that is null. `scratch` is overwritten.
    static T tiltEQLoudness(const T* resp, const T* weights, const T* filterMag, T* scratch, int n);
};

extern template class QVMTiltEQ<float>;

} // namespace QVM_NAMESPACE
