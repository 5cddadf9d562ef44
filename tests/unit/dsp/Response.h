// The magnitude response of a unit, from its answer to one sample.
#pragma once

#include "unit/dsp/UnitUnderTest.h"

#include <complex>
#include <numbers>

namespace QVM_NAMESPACE {

using Spectrum = std::vector<std::complex<double>>;

// In place, by decimation in time; a power of two of values.
inline void transform(Spectrum& x) {
    const std::size_t n = x.size();
    for (std::size_t i = 1, j = 0; i < n; ++i) {
        std::size_t bit = n >> 1;
        for (; j & bit; bit >>= 1)
            j ^= bit;
        j ^= bit;
        if (i < j) std::swap(x[i], x[j]);
    }
    Spectrum turn(n / 2);
    for (std::size_t i = 0; i < n / 2; ++i)
        turn[i] = std::polar(1.0, -2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n));
    for (std::size_t half = 1; half < n; half *= 2) {
        const std::size_t stride = n / (2 * half);
        for (std::size_t i = 0; i < n; i += 2 * half) {
            for (std::size_t k = 0; k < half; ++k) {
                const double re = turn[k * stride].real(), im = turn[k * stride].imag();
                const std::complex<double> b = x[i + k + half];
                const std::complex<double> t(b.real() * re - b.imag() * im, b.real() * im + b.imag() * re);
                x[i + k + half] = x[i + k] - t;
                x[i + k] += t;
            }
        }
    }
}

class Response {
public:
    // `seconds` is how long the unit rings, at most.
    Response(const ShownValues& values, double rateHz, double seconds) : rateHz_(rateHz) {
        QVM0015_AudioUnit unit;
        setAll(unit, values);
        unit.prepare(rateHz, 512, 1, 1);
        std::size_t frames = 4096;
        while (static_cast<double>(frames) < seconds * rateHz)
            frames *= 2;
        std::vector<double> signal(frames);
        signal[0] = 1;
        for (std::size_t at = 0; at < frames; at += 512) {
            double* const here[] = {signal.data() + at};
            unit.process(here, here, 512);
        }
        bins_.assign(signal.begin(), signal.end());
        transform(bins_);
    }
    // dB, between the two nearest bins in a straight line over the logarithm of the frequency.
    double level(double hertz) const {
        const double at = hertz / rateHz_ * static_cast<double>(bins_.size());
        const auto i = static_cast<std::size_t>(at);
        const double share =
            std::log(at / static_cast<double>(i)) / std::log(static_cast<double>(i + 1) / static_cast<double>(i));
        return levelOf(i) * (1 - share) + levelOf(i + 1) * share;
    }

private:
    double levelOf(std::size_t bin) const { return 20 * std::log10(std::abs(bins_[bin]) + 1e-300); }

    double rateHz_;
    Spectrum bins_;
};

// How long a unit rings with these settings, seconds.
inline double ringingOf(const ShownValues& values) {
    double lowest = 40;
    if (values[9] > 4.0F) lowest = std::min(lowest, static_cast<double>(values[9]));
    if (values[10] < 24000.0F) lowest = std::min(lowest, static_cast<double>(values[10]));
    return std::max(0.3, 16 / lowest);
}

} // namespace QVM_NAMESPACE
