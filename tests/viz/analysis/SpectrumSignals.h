// Sounds of which theory says what spectrum they have.
#pragma once

#include "BuildNamespace.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

namespace QVM_NAMESPACE::sounds {

inline std::vector<float> sine(double hertz, double amplitude, double rateHz, std::size_t frames) {
    std::vector<float> samples(frames);
    for (std::size_t i = 0; i < frames; ++i) {
        const double turns = std::fmod(hertz / rateHz * static_cast<double>(i), 1.0);
        samples[i] = static_cast<float>(amplitude * std::sin(2 * std::numbers::pi * turns));
    }
    return samples;
}

// As loud in every hertz. `level` is the root of the mean square.
inline std::vector<float> white(double level, std::size_t frames, unsigned seed = 1) {
    std::mt19937 random(seed);
    std::normal_distribution<double> normal(0, level);
    std::vector<float> samples(frames);
    for (float& sample : samples)
        sample = static_cast<float>(normal(random));
    return samples;
}

// As loud in every octave: white noise through a first-order section for each octave, which falls by 6 dB an octave
// for half of it. Within 0.2 dB of 3 dB an octave from 10 Hz to 12 kHz.
inline std::vector<float> pink(double level, double rateHz, std::size_t frames, unsigned seed = 1) {
    std::vector<float> samples = white(level, frames, seed);
    for (double pole = 2; pole < 40000; pole *= 2) {
        const auto decay = [rateHz](double hertz) { return std::exp(-2 * std::numbers::pi * hertz / rateHz); };
        const double p = decay(pole), z = decay(pole * std::numbers::sqrt2);
        double before = 0, out = 0;
        for (float& sample : samples) {
            out = static_cast<double>(sample) - z * before + p * out;
            before = static_cast<double>(sample);
            sample = static_cast<float>(out);
        }
    }
    return samples;
}

} // namespace QVM_NAMESPACE::sounds
