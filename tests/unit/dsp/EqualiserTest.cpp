// The equaliser by itself; what the unit makes of it is tested beside this.
#include "unit/dsp/Equaliser.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE::dsp {
namespace {

constexpr double rateHz = 48000;

std::vector<double> ones(std::size_t frames) {
    return std::vector<double>(2 * frames, 1.0);
}

TEST(EqualiserAlone, StandsAtItsSettingsFromTheFirstSample) {
    EqSettings settings;
    settings.high = {Switch::on, Switch::off, 5000, 2, 0};
    Equaliser once, twice;
    once.prepare(rateHz, settings);
    twice.prepare(rateHz, EqSettings());
    twice.reset(settings);
    std::vector<double> a = ones(1000), b = a;
    once.process(a.data(), 1000, settings);
    twice.process(b.data(), 1000, settings);
    EXPECT_EQ(a, b);
}

TEST(EqualiserAlone, AFarLeapFadesAndANearOneGlides) {
    for (const double gain : {1.0, 15.0}) {
        EqSettings settings;
        settings.loudness = QVMTiltEQ_LoudnessNone;
        Equaliser equaliser;
        equaliser.prepare(rateHz, settings);
        EXPECT_TRUE(equaliser.isFlat());
        settings.tiltGain = gain;
        std::vector<double> samples = ones(9600);
        equaliser.process(samples.data(), 9600, settings);
        EXPECT_FALSE(equaliser.isFlat());
        double largest = 0;
        for (std::size_t i = 2; i < samples.size(); i += 2)
            largest = std::max(largest, std::abs(samples[i] - samples[i - 2]));
        EXPECT_LT(largest, 0.01);
        settings.tiltGain = 0;
        samples = ones(48000);
        equaliser.process(samples.data(), 48000, settings);
        EXPECT_TRUE(equaliser.isFlat());
    }
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
