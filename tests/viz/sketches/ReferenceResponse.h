// The response of the effect's display model once more, point by point in double precision, written from the formulas
// alone: what the curve is measured against.
#pragma once

#include "description/ParameterIDs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

namespace QVM_NAMESPACE::reference {

// By parameter number, in the shown domain.
using Settings = std::array<double, QVMParameterCount>;

struct Response {
    std::vector<double> frequency; // hertz
    std::vector<double> total;     // dB
    std::vector<double> audition;  // dB; empty when nothing is auditioned
    double reference = 0;          // dB
    double axis = 0;               // dB
};

inline double decibels(double amplitude) {
    return 20 * std::log10(amplitude);
}

inline double weight(double f) {
    double w = 1 / std::sqrt(1 + std::pow(500 / f, 2));
    w *= 1 / std::sqrt(1 + std::pow(63 / f, 2.7));
    w *= 1 / std::sqrt(1 + std::pow(f / 5000, 4.8));
    w *= 1 / std::sqrt(1 + std::pow(f / 20, 2));
    return w;
}

// The cookbook's peaking filter, evaluated on the unit circle.
inline double resonance(double f, double corner, double gain, double order) {
    using Complex = std::complex<double>;
    const double q = std::max(order, 2.0), a = std::pow(10, gain / 40);
    const double w0 = 2 * std::numbers::pi * std::min(corner, 23760.0) / 48000;
    const double alpha = std::sin(w0) / (2 * (1 + 2 / q));
    const Complex z = std::polar(1.0, -2 * std::numbers::pi * f / 48000);
    const double middle = -2 * std::cos(w0);
    const Complex above = (1 + alpha * a) + middle * z + (1 - alpha * a) * z * z;
    const Complex below = (1 + alpha / a) + middle * z + (1 - alpha / a) * z * z;
    return decibels(std::abs(above) / std::abs(below));
}

inline Response evaluate(const Settings& s, int points) {
    Response result;
    for (int i = 0; i < points; ++i) {
        const double ratio = std::log(24000.0 / 4.0);
        result.frequency.push_back(4 * std::exp(ratio * i / (points - 1)));
    }

    const double g = s[pidTiltGain], gain = 2 * g, m = std::max(std::abs(gain), 12.0);
    const double low = s[pidTiltRangeLow], high = std::max(s[pidTiltRangeHigh], 2 * low);
    const double e = std::pow(10, -m / 20);
    const double p = std::log(1 / (e * e) - 1) / std::log(high / low);
    const double k = 1 / (std::pow(high / low, p) + 1);
    const auto tilt = [&](double f) {
        const double a = std::pow(f / low, p), b = std::pow(high / f, p);
        return std::pow(std::sqrt(k * std::sqrt(1 / (b + 1)) + 1 / (a + 1)), gain / -m);
    };

    const bool lowOn = s[pidFilterRangeLow] > 4, highOn = s[pidFilterRangeHigh] < 24000;
    const auto highPass = [&](double f) {
        return lowOn ? 1 / std::sqrt(1 + std::pow(s[pidFilterRangeLow] / f, 2 * s[pidFilterSlopeLow] / 6)) : 1.0;
    };
    const auto lowPass = [&](double f) {
        return highOn ? 1 / std::sqrt(1 + std::pow(f / s[pidFilterRangeHigh], 2 * s[pidFilterSlopeHigh] / 6)) : 1.0;
    };

    const int mode =
        s[pidTiltLoudnessMode] >= 0 && s[pidTiltLoudnessMode] < 4 ? static_cast<int>(s[pidTiltLoudnessMode]) : 0;
    double compensation = 0;
    if (mode == 0) {
        double flat = 0, tilted = 0;
        for (const double f : result.frequency) {
            const double seen = weight(f) * highPass(f) * lowPass(f);
            flat += seen * seen;
            tilted += std::pow(seen * tilt(f), 2);
        }
        compensation = 10 * std::log10(flat / tilted);
    }
    if (mode == 1) compensation = -0.5 * gain;
    if (mode == 3) compensation = -decibels(tilt(20000));
    result.reference = -compensation - g;
    result.axis = std::max(7.5, std::abs(g) + 1.5);

    const bool listenLow = s[pidFilterListenLow] == 1, listenHigh = s[pidFilterListenHigh] == 1;
    for (const double f : result.frequency) {
        const double tilted = decibels(tilt(f)) - g;
        double total = tilted + decibels(highPass(f)) + decibels(lowPass(f));
        if (highOn && s[pidFilterResonanceHigh] > 0)
            total += resonance(f, s[pidFilterRangeHigh], s[pidFilterResonanceHigh], s[pidFilterSlopeHigh] / 6);
        if (lowOn && s[pidFilterResonanceLow] > 0)
            total += resonance(f, s[pidFilterRangeLow], s[pidFilterResonanceLow], s[pidFilterSlopeLow] / 6);
        result.total.push_back(total);
        if (!listenLow && !listenHigh) continue;
        const double kept = (listenLow ? highPass(f) : 1) * (listenHigh ? lowPass(f) : 1);
        result.audition.push_back(decibels(1 - kept) + tilted);
    }
    return result;
}

} // namespace QVM_NAMESPACE::reference
