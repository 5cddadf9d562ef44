#include "unit/EqReader.h"

#include "description/Description.h"

#include <algorithm>

namespace QVM_NAMESPACE::dsp {

namespace {

// A filter at the end of its range is off. Readout and curve ask that of the value on its fine step, a tenth of a
// hertz; here it comes as fine as the host has it, and what is within half a step of 4 or 24000 Hz is at the end.
constexpr double kLowIsOff = 4.05, kHighIsOff = 23999.95; // hertz
constexpr double kDecibelsPerOctaveAndOrder = 6, kLowestOrder = 1, kHighestOrder = 8;

Switch switchFrom(bool isOn) {
    return isOn ? Switch::on : Switch::off;
}
double orderFrom(double slope) {
    return std::clamp(slope / kDecibelsPerOctaveAndOrder, kLowestOrder, kHighestOrder);
}

} // namespace

EqReader::EqReader() {
    for (std::uint32_t pid = 0; pid < UnitParameters::count; ++pid)
        descriptions_[pid] = GetParameter(pid);
}

double EqReader::shown(const UnitParameters& parameters, std::uint32_t pid) const {
    return static_cast<double>(descriptions_[pid]->castValue(parameters.value(pid)));
}

EqSettings EqReader::read(const UnitParameters& parameters) const {
    const auto value = [&](ParameterID pid) { return shown(parameters, pid); };
    EqSettings settings;
    settings.tiltGain = value(pidTiltGain);
    settings.tiltLow = value(pidTiltRangeLow);
    settings.tiltHigh = value(pidTiltRangeHigh);
    const int mode = static_cast<int>(value(pidTiltLoudnessMode));
    const bool isKnown = mode >= QVMTiltEQ_LoudnessWeighted && mode <= QVMTiltEQ_LoudnessTreble;
    settings.loudness = isKnown ? static_cast<QVMTiltEQ_LoudnessMode>(mode) : QVMTiltEQ_LoudnessWeighted;
    settings.low = {switchFrom(value(pidFilterRangeLow) >= kLowIsOff), switchFrom(value(pidFilterListenLow) == 1),
                    value(pidFilterRangeLow), orderFrom(value(pidFilterSlopeLow)), value(pidFilterResonanceLow)};
    settings.high = {switchFrom(value(pidFilterRangeHigh) < kHighIsOff), switchFrom(value(pidFilterListenHigh) == 1),
                     value(pidFilterRangeHigh), orderFrom(value(pidFilterSlopeHigh)), value(pidFilterResonanceHigh)};
    settings.quality = value(pidHQMode) == 1 ? Quality::high : Quality::normal;
    return settings;
}

} // namespace QVM_NAMESPACE::dsp
