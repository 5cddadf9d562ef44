#include "unit/dsp/Stage.h"

#include "unit/dsp/DigitalSection.h"
#include "unit/dsp/FilterMath.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace QVM_NAMESPACE::dsp {

namespace {

// Multiplies by the squared magnitude of sections, which is a quotient.
template <class Section, std::size_t N>
void multiplyBy(const std::array<Section, N>& sections, const Corrector::Rest& x, Corrector::Rest& num,
                Corrector::Rest& den) {
    std::array<vectors::Quadratic, N> over, under;
    for (std::size_t i = 0; i < N; ++i) {
        const Powers powers = sections[i].powers();
        over[i] = powers.num;
        under[i] = powers.den;
    }
    vectors::multiplyByQuadratics(over.data(), N, x.data(), num.data(), x.size());
    vectors::multiplyByQuadratics(under.data(), N, x.data(), den.data(), x.size());
}

Corrector::Rest quotient(const Corrector::Rest& num, const Corrector::Rest& den) {
    Corrector::Rest result;
    std::transform(num.begin(), num.end(), den.begin(), result.begin(), std::divides());
    return result;
}

Corrector::Rest ones() {
    Corrector::Rest rest;
    rest.fill(1);
    return rest;
}

// What the sections should do over what they do, at each of the corrector's frequencies.
template <std::size_t N>
Corrector::Rest restOf(const std::array<AnalogSection, N>& analog, const std::array<DigitalSection, N>& digital,
                       const Corrector& corrector) {
    Corrector::Rest over = ones(), under = ones();
    multiplyBy(analog, corrector.squares(), over, under);
    multiplyBy(digital, corrector.positions(), under, over);
    return quotient(over, under);
}

// A + B (1 - A) of the squared magnitudes of two filters.
template <class Section, std::size_t N>
Corrector::Rest bothOf(const std::array<Section, N>& low, const std::array<Section, N>& high,
                       const Corrector::Rest& x) {
    Corrector::Rest lowOver = ones(), lowUnder = ones(), highOver = ones(), highUnder = ones();
    multiplyBy(low, x, lowOver, lowUnder);
    multiplyBy(high, x, highOver, highUnder);
    const Corrector::Rest a = quotient(lowOver, lowUnder), b = quotient(highOver, highUnder);
    Corrector::Rest both;
    for (std::size_t i = 0; i < both.size(); ++i)
        both[i] = a[i] + b[i] * (1 - a[i]);
    return both;
}

template <std::size_t N>
std::array<DigitalSection, N> eachOf(const std::array<AnalogSection, N>& analog, double sampleRateHz,
                                     DigitalSection (*map)(const AnalogSection&, double)) {
    std::array<DigitalSection, N> digital;
    std::transform(analog.begin(), analog.end(), digital.begin(),
                   [=](const AnalogSection& section) { return map(section, sampleRateHz); });
    return digital;
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
        return BothRemoved::sections;
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
    makeTilt(settings.tiltGain, settings.tiltLow, settings.tiltHigh, analog);
    const auto digital = eachOf(analog, sampleRateHz, digitalFrom);
    std::transform(digital.begin(), digital.end(), sections_.begin(), coefficientsOf);
    rest_ = isFlat_ ? ones() : restOf(analog, digital, corrector);
}

void Stage::designFilter(StageKind kind, const EqSettings& settings, double sampleRateHz, const Corrector& corrector) {
    isFlat_ = false;
    const bool isLow = kind == StageKind::low || kind == StageKind::lowRemoved;
    const bool isRemoved = kind == StageKind::lowRemoved || kind == StageKind::highRemoved;
    const FilterSettings& filter = isLow ? settings.low : settings.high;
    std::array<AnalogSection, filterSections> analog;
    makeFilter(isRemoved ? FilterPart::removed : FilterPart::passed, isLow ? Direction::highPass : Direction::lowPass,
               filter.order, filter.corner, analog);
    const auto digital = eachOf(analog, sampleRateHz, digitalFrom);
    std::transform(digital.begin(), digital.end(), sections_.begin(), coefficientsOf);
    rest_ = restOf(analog, digital, corrector);
}

void Stage::designBoth(const EqSettings& settings, double sampleRateHz, const Corrector& corrector) {
    isFlat_ = false;
    std::array<AnalogSection, filterSections> low, high;
    makeFilter(FilterPart::removedRoot, Direction::highPass, settings.low.order, settings.low.corner, low);
    makeFilter(FilterPart::removedRoot, Direction::lowPass, settings.high.order, settings.high.corner, high);
    const auto digitalLow = eachOf(low, sampleRateHz, matchedFrom),
               digitalHigh = eachOf(high, sampleRateHz, matchedFrom);
    BothRemoved::design(digitalLow, digitalHigh, sections_);
    // Both are magnitudes here, and the corrector takes their squares.
    rest_ = quotient(bothOf(low, high, corrector.squares()), bothOf(digitalLow, digitalHigh, corrector.positions()));
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
