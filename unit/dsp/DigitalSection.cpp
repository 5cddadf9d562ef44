#include "unit/dsp/DigitalSection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE::dsp {

namespace {

using std::numbers::pi;

constexpr double kModelRate = 48000, kHighestPeak = 23760; // hertz
constexpr double kNearNyquist = 0.85 * pi, kHighestAngle = 0.95 * pi;
constexpr double kDampingBeyond = 1.5; // for each radian that is cut off

// A conjugate pair of roots e^(-decay +- j angle).
Polynomial conjugate(double decay, double angle) {
    // Beyond half the sample rate a pair would return below it. It stops short of it and is damped instead.
    if (angle > kNearNyquist) {
        const double beyond = angle - kNearNyquist, room = kHighestAngle - kNearNyquist;
        decay += kDampingBeyond * beyond;
        angle = kNearNyquist + beyond * room / (beyond + room);
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
    if (half < 1) return conjugate(half * corner, corner * std::sqrt(1 - half * half));
    const double far = half + std::sqrt(half * half - 1);
    return realRoots(corner / far, corner * far);
}

} // namespace

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

Peak::Peak(double hertz, double gain, double order) : hertz_(std::min(hertz, kHighestPeak)), isFlat_(!(gain > 1e-6)) {
    const double quality = 1 + 2 / std::max(order, 2.0), amplitude = std::pow(10, gain / 40);
    const double angle = 2 * pi * hertz_ / kModelRate;
    const double alpha = std::sin(angle) / (2 * quality), a0 = 1 + alpha / amplitude;
    const double s = std::sin(angle / 2), c = std::cos(angle / 2);
    num_ = Polynomial{4 * s * s, 4 * c * c, 2 * alpha * amplitude}.scaled(1 / a0);
    den_ = Polynomial{4 * s * s, 4 * c * c, 2 * alpha / amplitude}.scaled(1 / a0);
    const double width = alpha / amplitude;
    radius_ = std::atanh(width);
    angle_ = std::atan2(std::sqrt(std::max(4 * s * s * c * c - width * width, 0.0)), std::cos(angle));
}

double Peak::modelPosition(double hertz) {
    const double s = std::sin(pi * std::min(hertz / kModelRate, 0.5));
    return s * s;
}

DigitalSection Peak::digital(double sampleRateHz) const {
    const double ratio = kModelRate / sampleRateHz;
    DigitalSection section;
    section.den = conjugate(radius_ * ratio, angle_ * ratio);
    section.num = section.den;
    if (isFlat_) return section;
    // |N|^2 = n0 + n1 p + n2 p^2 over p = sin^2(w / 2), from the three magnitudes.
    const double top = std::min(hertz_, 0.45 * sampleRateHz), below = 0.6 * top;
    const auto positionOf = [sampleRateHz](double f) { return std::pow(std::sin(pi * f / sampleRateHz), 2); };
    const double p1 = positionOf(top), p2 = positionOf(below);
    const double n0 = section.den.atZero * section.den.atZero;
    const double y1 = (section.den.power(p1) * power(modelPosition(top)) - n0) / p1;
    const double y2 = (section.den.power(p2) * power(modelPosition(below)) - n0) / p2;
    const double n2 = (y1 - y2) / (p1 - p2), n1 = y1 - n2 * p1;
    // The factor with both zeros inside the unit circle, after M. Vicanek, "Matched second order digital filters",
    // 2016.
    const double atNyquist = std::sqrt(std::max(n0 + n1 + n2, 1e-12));
    const double sum = (section.den.atZero + atNyquist) / 2; // c0 + c2
    section.num = {section.den.atZero, atNyquist, std::sqrt(std::max(sum * sum - n2 / 4, 0.0))};
    return section;
}

vectors::SvfCoefficients coefficientsOf(const DigitalSection& section) {
    const Polynomial &n = section.num, &d = section.den;
    vectors::SvfCoefficients c;
    const double g = std::sqrt(d.atZero / d.atNyquist);
    c.a1 = d.atNyquist / 4;
    c.a2 = g * c.a1;
    c.a3 = g * c.a2;
    c.m0 = n.atNyquist / d.atNyquist;
    c.m1 = 2 * (n.skew - c.m0 * d.skew) / (d.atNyquist * g);
    c.m2 = n.atZero / d.atZero - c.m0;
    return c;
}

} // namespace QVM_NAMESPACE::dsp
