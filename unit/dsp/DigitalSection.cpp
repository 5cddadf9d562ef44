#include "unit/dsp/DigitalSection.h"

#include "response/ResponseModel.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE::dsp {

namespace {

using std::numbers::pi;

constexpr double kHighestPeakMatch = 0.48, kHighestMatch = 0.36; // of the sample rate
constexpr double kNextMatch = 0.6;                               // of the higher one

// What becomes of roots near half the sample rate and beyond: angles that come `near` it stay below `highest`, and what
// is cut off is made up for by a decay of so much for each radian.
struct Edge {
    double near, highest, damping;
};
constexpr Edge kFilterEdge = {0.85 * pi, 0.95 * pi, 1.5}, kPeakEdge = {0.985 * pi, pi, 2};

// A conjugate pair of roots e^(-decay +- j angle).
Polynomial conjugate(double decay, double angle, const Edge& edge) {
    // Beyond half the sample rate a pair would return below it. It stops short of it and is damped instead.
    if (angle > edge.near) {
        const double beyond = angle - edge.near, room = edge.highest - edge.near;
        decay += edge.damping * beyond;
        angle = edge.near + beyond * room / (beyond + room);
    }
    const double gap = -std::expm1(-decay), r = 1 - gap, s = std::sin(angle / 2), ss = s * s;
    return {gap * gap + 4 * r * ss, gap * gap + 4 * r * (1 - ss), gap * (1 + r)};
}

Polynomial realRoots(double decay1, double decay2) {
    const double gap1 = -std::expm1(-decay1), gap2 = -std::expm1(-decay2);
    return {gap1 * gap2, (2 - gap1) * (2 - gap2), gap1 + gap2 - gap1 * gap2};
}

// `corner` in radians a sample.
Polynomial rootsOf(double corner, double damping) {
    const double half = damping / 2;
    if (half < 1) return conjugate(half * corner, corner * std::sqrt(1 - half * half), kFilterEdge);
    const double far = half + std::sqrt(half * half - 1);
    return realRoots(corner / far, corner * far);
}

double positionOf(double hertz, double sampleRateHz) {
    const double s = std::sin(pi * hertz / sampleRateHz);
    return s * s;
}

struct Match {
    double position, power; // squared magnitude
};

// The zeros that give a section with these poles a squared magnitude at 0 Hz and at two more frequencies: |N|^2 is
// n0 + n1 p + n2 p^2, and the factor with both zeros inside the unit circle is that of M. Vicanek, "Matched second
// order digital filters", 2016.
Polynomial zerosFor(const Polynomial& den, double powerAtZero, Match first, Match second) {
    const double n0 = den.atZero * den.atZero * powerAtZero;
    const double y1 = (den.power(first.position) * first.power - n0) / first.position;
    const double y2 = (den.power(second.position) * second.power - n0) / second.position;
    const double n2 = (y1 - y2) / (first.position - second.position), n1 = y1 - n2 * first.position;
    const double atZero = std::sqrt(n0), atNyquist = std::sqrt(std::max(n0 + n1 + n2, 1e-12));
    const double sum = (atZero + atNyquist) / 2; // c0 + c2
    return {atZero, atNyquist, std::sqrt(std::max(sum * sum - n2 / 4, 0.0))};
}

} // namespace

DigitalSection matchedFrom(const AnalogSection& analog, double sampleRateHz) {
    DigitalSection section;
    section.den = rootsOf(analog.den.corner * 2 * pi / sampleRateHz, analog.den.damping);
    const double highest = std::max(analog.num.corner, analog.den.corner);
    const double lowest = std::min(analog.num.corner, analog.den.corner);
    const double top = std::min(highest, kHighestMatch * sampleRateHz);
    const double below = std::min(lowest, kNextMatch * top);
    const Powers powers = analog.powers();
    const auto powerAt = [&powers](double hertz) {
        const double x = hertz * hertz;
        return (powers.num[0] + x * (powers.num[1] + x * powers.num[2])) /
               (powers.den[0] + x * (powers.den[1] + x * powers.den[2]));
    };
    section.num = zerosFor(section.den, powerAt(0), {positionOf(top, sampleRateHz), powerAt(top)},
                           {positionOf(below, sampleRateHz), powerAt(below)});
    return section;
}

DigitalSection digitalFrom(const AnalogSection& analog, double sampleRateHz) {
    const double scale = 2 * pi / sampleRateHz;
    const double zeros = analog.num.corner * scale, poles = analog.den.corner * scale;
    DigitalSection section;
    section.den = rootsOf(poles, analog.den.damping);
    const bool isLowPass = analog.direction == Direction::lowPass;
    if (analog.zeros == Zeros::two) {
        section.num = rootsOf(zeros, analog.num.damping);
        const double level = isLowPass ? 1 : zeros * zeros / (poles * poles); // at 0 Hz
        section.num = section.num.scaled(level * section.den.atZero / section.num.atZero);
    } else if (isLowPass) {
        const double gap = -std::expm1(-zeros);
        section.num = Polynomial{gap, 2 - gap, 1}.scaled(section.den.atZero / gap);
    } else {
        // One zero at 0 Hz: there both rise in proportion to the frequency.
        const double gap = -std::expm1(-zeros);
        section.num = Polynomial{0, 2 * (2 - gap), gap}.scaled(zeros * section.den.atZero / (poles * poles * gap));
    }
    return section;
}

Peak::Peak(double hertz, double gain, double order)
    : hertz_(std::min(hertz, model::highestPeakHertz)), isFlat_(!(gain > 1e-6)) {
    const double quality = 1 + 2 / std::max(order, 2.0), amplitude = std::pow(10, gain / 40);
    const double angle = 2 * pi * hertz_ / model::peakRateHz;
    const double alpha = std::sin(angle) / (2 * quality), a0 = 1 + alpha / amplitude;
    const double s = std::sin(angle / 2), c = std::cos(angle / 2);
    num_ = Polynomial{4 * s * s, 4 * c * c, 2 * alpha * amplitude}.scaled(1 / a0);
    den_ = Polynomial{4 * s * s, 4 * c * c, 2 * alpha / amplitude}.scaled(1 / a0);
    const double width = alpha / amplitude;
    radius_ = std::atanh(width);
    angle_ = std::atan2(std::sqrt(std::max(4 * s * s * c * c - width * width, 0.0)), std::cos(angle));
}

double Peak::modelPosition(double hertz) {
    const double s = std::sin(pi * std::min(hertz / model::peakRateHz, 0.5));
    return s * s;
}

DigitalSection Peak::digital(double sampleRateHz) const {
    const double ratio = model::peakRateHz / sampleRateHz;
    DigitalSection section;
    section.den = conjugate(radius_ * ratio, angle_ * ratio, kPeakEdge);
    section.num = section.den;
    if (isFlat_) return section;
    const double top = std::min(hertz_, kHighestPeakMatch * sampleRateHz), below = kNextMatch * top;
    section.num = zerosFor(section.den, 1, {positionOf(top, sampleRateHz), power(modelPosition(top))},
                           {positionOf(below, sampleRateHz), power(modelPosition(below))});
    return section;
}

vectors::SvfCoefficients coefficientsOf(const DigitalSection& section) {
    const Polynomial &n = section.num, &d = section.den;
    vectors::SvfCoefficients c;
    const double g = std::sqrt(d.atZero / d.atNyquist);
    c.a1 = d.atNyquist / 2 - 1;
    c.a2 = g * d.atNyquist / 2;
    c.a3 = g * c.a2;
    c.m0 = n.atNyquist / d.atNyquist;
    c.m1 = (n.skew - c.m0 * d.skew) / (d.atNyquist * g);
    c.m2 = (n.atZero / d.atZero - c.m0) / 2;
    return c;
}

} // namespace QVM_NAMESPACE::dsp
