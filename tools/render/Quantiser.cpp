#include "tools/render/Quantiser.h"

#include <cmath>
#include <cstddef>

namespace QVM_NAMESPACE {
namespace render {

Quantiser::Quantiser(int bits, Dither dither)
    : scale_(std::ldexp(1.0, bits - 1)), unused_(32 - bits), dither_(dither) {}

// One step of the generator "splitmix64", whose halves are two numbers from 0 to 1; what they differ by is triangular.
double Quantiser::noise() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    mixed ^= mixed >> 31;
    constexpr double unit = 1.0 / 4294967296.0;
    return (static_cast<double>(mixed >> 32) - static_cast<double>(mixed & 0xFFFFFFFFU)) * unit;
}

void Quantiser::quantise(std::span<double> samples, std::span<std::int32_t> words) {
    for (std::size_t i = 0; i < samples.size(); ++i) {
        double steps = samples[i] * scale_;
        if (dither_ == Dither::triangular) steps += noise();
        steps = std::nearbyint(steps);
        if (steps > scale_ - 1) {
            steps = scale_ - 1;
            ++clipped_;
        } else if (steps < -scale_) {
            steps = -scale_;
            ++clipped_;
        }
        samples[i] = steps / scale_;
        words[i] = static_cast<std::int32_t>(static_cast<std::int64_t>(steps) * (std::int64_t{1} << unused_));
    }
}

} // namespace render
} // namespace QVM_NAMESPACE
