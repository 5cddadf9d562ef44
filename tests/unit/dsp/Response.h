// The magnitude response of a unit, from its answer to one sample.
#pragma once

#include "unit/dsp/UnitUnderTest.h"

#include <complex>
#include <map>
#include <numbers>

namespace QVM_NAMESPACE {

using Spectrum = std::vector<std::complex<double>>;

// e^(-2 pi i k / n) for k < n / 2, kept for the next transform of that size.
inline const Spectrum& turnsOf(std::size_t n) {
    static std::map<std::size_t, Spectrum> known;
    Spectrum& turns = known[n];
    for (std::size_t i = turns.size(); i < n / 2; ++i)
        turns.push_back(std::polar(1.0, -2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n)));
    return turns;
}

inline std::complex<double> product(const std::complex<double>& a, const std::complex<double>& b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

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
    for (std::size_t half = 1; half < n; half *= 2) {
        const Spectrum& turns = turnsOf(2 * half);
        for (std::size_t i = 0; i < n; i += 2 * half) {
            for (std::size_t k = 0; k < half; ++k) {
                const std::complex<double> t = product(x[i + k + half], turns[k]);
                x[i + k + half] = x[i + k] - t;
                x[i + k] += t;
            }
        }
    }
}

// The lower half of the spectrum of a real signal, from a transform of half its length; a power of two of values.
inline Spectrum spectrumOf(const std::vector<double>& signal) {
    const std::size_t half = signal.size() / 2;
    Spectrum pairs(half), bins(half + 1);
    for (std::size_t i = 0; i < half; ++i)
        pairs[i] = {signal[2 * i], signal[2 * i + 1]};
    transform(pairs);
    const Spectrum& turns = turnsOf(signal.size());
    for (std::size_t i = 0; i <= half; ++i) {
        const std::complex<double> a = pairs[i % half], b = std::conj(pairs[(half - i) % half]);
        const std::complex<double> odd = product((a - b) * 0.5, {0, -1});
        bins[i] = (a + b) * 0.5 + (i < half ? product(odd, turns[i]) : -odd);
    }
    return bins;
}

class Response {
public:
    // Listens until nothing is left that would show 60 dB below the input, and twice as long.
    Response(const ShownValues& values, double rateHz) {
        constexpr std::size_t most = std::size_t{1} << 21;
        constexpr double faint = 1e-6, seconds = 0.35; // bins are close enough for the lowest frequencies
        QVM0015_AudioUnit unit;
        setAll(unit, values);
        unit.prepare(rateHz, 512, 1, 1);
        std::vector<double> signal = {1};
        for (std::size_t frames = 4096; frames <= most; frames *= 2) {
            const std::size_t from = frames == 4096 ? 0 : frames / 2;
            signal.resize(frames);
            for (std::size_t at = from; at < frames; at += 512) {
                double* const here[] = {signal.data() + at};
                unit.process(here, here, 512);
            }
            double left = 0;
            for (std::size_t i = frames / 2; i < frames; ++i)
                left += std::abs(signal[i]);
            if (left<faint&& static_cast<double>(frames)> seconds * rateHz) break;
        }
        binsPerHertz_ = static_cast<double>(signal.size()) / rateHz;
        bins_ = spectrumOf(signal);
    }
    // dB, between the four nearest bins on a cubic, whose course the steepest peak follows better than a straight line.
    double level(double hertz) const {
        const double at = hertz * binsPerHertz_;
        const auto i = std::max(static_cast<std::size_t>(at), std::size_t{1});
        const double t = at - static_cast<double>(i);
        return (-t * (t - 1) * (t - 2) * levelOf(i - 1) + 3 * (t + 1) * (t - 1) * (t - 2) * levelOf(i) -
                3 * (t + 1) * t * (t - 2) * levelOf(i + 1) + (t + 1) * t * (t - 1) * levelOf(i + 2)) /
               6;
    }

private:
    double levelOf(std::size_t bin) const { return 20 * std::log10(std::abs(bins_[bin]) + 1e-300); }

    double binsPerHertz_;
    Spectrum bins_;
};

} // namespace QVM_NAMESPACE
