#include "unit/dsp/Stage.h"

#include "unit/dsp/DigitalSection.h"

#include <cmath>

namespace QVM_NAMESPACE::dsp {

namespace {

// values[i] *= c[0] + c[1] x[i] + c[2] x[i]^2
void multiplyBy(const std::array<double, 3>& c, const Corrector::Rest& x, Corrector::Rest& values) {
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] *= c[0] + x[i] * (c[1] + x[i] * c[2]);
}

// What the sections should do over what they do, at each of the corrector's frequencies.
template <std::size_t N>
void restOf(const std::array<AnalogSection, N>& analog, const std::array<DigitalSection, N>& digital,
            const Corrector& corrector, Corrector::Rest& rest) {
    Corrector::Rest over, under;
    over.fill(1);
    under.fill(1);
    for (std::size_t s = 0; s < N; ++s) {
        const AnalogSection::Powers powers = analog[s].powers();
        multiplyBy(powers.num, corrector.squares(), over);
        multiplyBy(powers.den, corrector.squares(), under);
        multiplyBy(digital[s].den.powers(), corrector.positions(), over);
        multiplyBy(digital[s].num.powers(), corrector.positions(), under);
    }
    for (std::size_t i = 0; i < rest.size(); ++i)
        rest[i] = over[i] / under[i];
}

std::array<double, 4> inputsOf(StageKind kind, const EqSettings& s) {
    switch (kind) {
    case StageKind::tilt:
        return {s.tiltGain, s.tiltLow, s.tiltHigh, 0};
    case StageKind::low:
    case StageKind::lowRemoved:
        return {s.low.corner, s.low.order, 0, 0};
    case StageKind::high:
    case StageKind::highRemoved:
        return {s.high.corner, s.high.order, 0, 0};
    case StageKind::lowPeak:
        return {s.low.corner, s.low.order, s.low.resonance, 0};
    case StageKind::highPeak:
        return {s.high.corner, s.high.order, s.high.resonance, 0};
    case StageKind::bothRemoved:
        return {s.low.corner, s.low.order, s.high.corner, s.high.order};
    }
    return {};
}

} // namespace

std::size_t sectionsOf(StageKind kind) {
    switch (kind) {
    case StageKind::tilt:
        return tiltSections;
    case StageKind::lowPeak:
    case StageKind::highPeak:
        return 1;
    case StageKind::bothRemoved:
        return 2 * BothRemoved::sections; // each twice
    default:
        return filterSections;
    }
}

bool Stage::design(StageKind kind, const EqSettings& settings, double sampleRateHz, const Corrector& corrector) {
    const Inputs inputs = inputsOf(kind, settings);
    if (isKnown_ && inputs == inputs_) return false;
    inputs_ = inputs;
    isKnown_ = true;
    switch (kind) {
    case StageKind::tilt:
        designTilt(settings, sampleRateHz, corrector);
        break;
    case StageKind::lowPeak:
        designPeak(settings.low, sampleRateHz, corrector);
        break;
    case StageKind::highPeak:
        designPeak(settings.high, sampleRateHz, corrector);
        break;
    case StageKind::bothRemoved:
        designBoth(settings, sampleRateHz, corrector);
        break;
    default:
        designFilter(kind, settings, sampleRateHz, corrector);
    }
    return true;
}

void Stage::designTilt(const EqSettings& settings, double sampleRateHz, const Corrector& corrector) {
    isFlat_ = settings.tiltGain == 0;
    std::array<AnalogSection, tiltSections> analog;
    std::array<DigitalSection, tiltSections> digital;
    makeTilt(settings.tiltGain, settings.tiltLow, settings.tiltHigh, analog);
    for (std::size_t i = 0; i < tiltSections; ++i) {
        digital[i] = digitalFrom(analog[i], sampleRateHz);
        sections_[i] = coefficientsOf(digital[i]);
    }
    restOf(analog, digital, corrector, rest_);
    if (isFlat_) rest_.fill(1);
}

void Stage::designFilter(StageKind kind, const EqSettings& settings, double sampleRateHz, const Corrector& corrector) {
    isFlat_ = false;
    const bool isLow = kind == StageKind::low || kind == StageKind::lowRemoved;
    const bool isRemoved = kind == StageKind::lowRemoved || kind == StageKind::highRemoved;
    const FilterSettings& filter = isLow ? settings.low : settings.high;
    std::array<AnalogSection, filterSections> analog;
    std::array<DigitalSection, filterSections> digital;
    makeFilter(isRemoved ? FilterPart::removed : FilterPart::passed, isLow ? Direction::highPass : Direction::lowPass,
               filter.order, filter.corner, analog);
    for (std::size_t i = 0; i < filterSections; ++i) {
        digital[i] = digitalFrom(analog[i], sampleRateHz);
        sections_[i] = coefficientsOf(digital[i]);
    }
    restOf(analog, digital, corrector, rest_);
}

void Stage::designBoth(const EqSettings& settings, double sampleRateHz, const Corrector& corrector) {
    isFlat_ = false;
    std::array<AnalogSection, filterSections> low, high;
    makeFilter(FilterPart::removedRoot, Direction::highPass, settings.low.order, settings.low.corner, low);
    makeFilter(FilterPart::removedRoot, Direction::lowPass, settings.high.order, settings.high.corner, high);
    std::array<AnalogSection, BothRemoved::sections> analog;
    std::array<DigitalSection, BothRemoved::sections> digital;
    both_.design(low, high, analog);
    for (std::size_t i = 0; i < BothRemoved::sections; ++i) {
        digital[i] = digitalFrom(analog[i], sampleRateHz);
        sections_[i] = sections_[BothRemoved::sections + i] = coefficientsOf(digital[i]);
    }
    restOf(analog, digital, corrector, rest_);
    for (double& value : rest_)
        value *= value;
}

void Stage::designPeak(const FilterSettings& filter, double sampleRateHz, const Corrector& corrector) {
    isFlat_ = !(filter.resonance > 0);
    if (isFlat_) {
        sections_[0] = {};
        rest_.fill(1);
        return;
    }
    const Peak peak(filter.corner, filter.resonance, filter.order);
    const DigitalSection digital = peak.digital(sampleRateHz);
    sections_[0] = coefficientsOf(digital);
    for (std::size_t i = 0; i < Corrector::points; ++i)
        rest_[i] = peak.power(corrector.modelPositions()[i]) / digital.power(corrector.positions()[i]);
}

} // namespace QVM_NAMESPACE::dsp
