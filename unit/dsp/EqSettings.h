// What the equaliser plays: the parameters in the units that its formulas use.
#pragma once

#include "description/ParameterTypes.h"

namespace QVM_NAMESPACE::dsp {

enum class Switch : unsigned char { off, on };
// `normal` holds to the response curve up to 16 kHz, `high` up to 20 kHz, at any sample rate that has them.
enum class Quality : unsigned char { normal, high };

struct FilterSettings {
    Switch state = Switch::off;
    Switch listen = Switch::off; // hear what it removes instead of what it passes
    double corner = 1000;        // hertz
    double order = 2;            // slope in dB an octave over 6, 1 to 8, not only whole numbers
    double resonance = 0;        // dB
};

struct EqSettings {
    double tiltGain = 0; // dB
    double tiltLow = 20; // hertz
    double tiltHigh = 20000;
    QVMTiltEQ_LoudnessMode loudness = QVMTiltEQ_LoudnessWeighted;
    FilterSettings low, high;
    Quality quality = Quality::normal;
};

} // namespace QVM_NAMESPACE::dsp
