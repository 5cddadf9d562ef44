// Reads the equaliser's settings from the unit's parameters.
//
// Link switches and ratios (tilt range, filter range, slope, resonance) have no effect on the sound: the editor moves
// the partner of a linked parameter itself and sends both values, so a unit that moved it again would fight with it and
// with a host that automates either. They are stored and restored like all others.
#pragma once

#include "unit/UnitParameters.h"
#include "unit/dsp/EqSettings.h"

#include <array>
#include <cstdint>

namespace QVM_NAMESPACE {
class QVMParameter;
}

namespace QVM_NAMESPACE::dsp {

class EqReader {
public:
    // Main thread: it reads the description.
    EqReader();
    // Any thread, the render thread too.
    EqSettings read(const UnitParameters& parameters) const;

private:
    // In the shown domain: hertz, dB, index.
    double shown(const UnitParameters& parameters, std::uint32_t pid) const;

    std::array<const QVMParameter*, UnitParameters::count> descriptions_; // constant once constructed
};

} // namespace QVM_NAMESPACE::dsp
