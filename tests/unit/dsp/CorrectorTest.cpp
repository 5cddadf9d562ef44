#include "unit/dsp/Corrector.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

namespace QVM_NAMESPACE::dsp {
namespace {

TEST(Corrector, WithNothingToMakeUpForItPassesEveryBit) {
    for (const Quality quality : {Quality::normal, Quality::high}) {
        Corrector corrector;
        corrector.prepare(48000, quality);
        Corrector::Rest rest;
        rest.fill(1);
        Corrector::Taps taps{};
        corrector.taps(rest, taps);
        EXPECT_EQ(taps[0], 1);
        for (std::size_t i = 1; i < taps.size(); ++i)
            EXPECT_EQ(taps[i], 0) << i;
    }
}

// A rest that rises by 3 dB towards half the rate.
TEST(Corrector, ItsLevelIsTheRest) {
    Corrector corrector;
    corrector.prepare(44100, Quality::high);
    Corrector::Rest rest;
    for (std::size_t i = 0; i < rest.size(); ++i)
        rest[i] = 1 + corrector.positions()[i];
    Corrector::Taps taps{};
    corrector.taps(rest, taps);
    for (std::size_t i = 0; i < rest.size(); ++i) {
        const double w = 2 * std::asin(std::sqrt(corrector.positions()[i]));
        if (w > 2 * std::numbers::pi * 20000 / 44100) continue;
        std::complex<double> sum = 0;
        for (std::size_t n = 0; n < corrector.tapCount(); ++n)
            sum += taps[n] * std::polar(1.0, -w * static_cast<double>(n));
        EXPECT_NEAR(10 * std::log10(std::norm(sum) / rest[i]), 0, 0.05) << i;
    }
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
