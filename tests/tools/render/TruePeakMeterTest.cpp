#include "tools/render/TruePeakMeter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {
namespace render {
namespace {

// A tone that swells and fades, so that it begins and ends with nothing between samples.
std::vector<double> tone(double frequency, double phase, std::size_t frames = 4800) {
    std::vector<double> samples(frames);
    for (std::size_t i = 0; i < frames; ++i) {
        const double at = static_cast<double>(i);
        const double swell = std::sin(std::numbers::pi * at / static_cast<double>(frames));
        samples[i] = std::min(1.0, 4 * swell) * std::sin(2 * std::numbers::pi * frequency * at + phase);
    }
    return samples;
}

double decibelsOf(const TruePeakMeter& meter) {
    return 20 * std::log10(meter.truePeak());
}

TEST(TruePeakMeter, FindsWhatLiesBetweenTheSamples) {
    TruePeakMeter meter(48000);
    meter.add(tone(0.25, std::numbers::pi / 4), 1); // every sample at 0.707
    EXPECT_NEAR(meter.samplePeak(), std::sqrt(0.5), 1e-6);
    EXPECT_NEAR(decibelsOf(meter), 0, 0.05);
}

TEST(TruePeakMeter, ReadsEveryToneOfTheBandAsHighAsItIs) {
    for (const double frequency : {0.001, 0.02, 0.1, 0.2, 0.3, 0.4}) { // to 19.2 kHz
        for (const double phase : {0.0, 0.4, 0.8, 1.2}) {
            TruePeakMeter meter(48000);
            meter.add(tone(frequency, phase), 1);
            // A sample more or less between the points that are looked at: BS.1770 allows for 0.6 dB.
            EXPECT_NEAR(decibelsOf(meter), -0.1, 0.4) << frequency << " " << phase;
        }
    }
}

TEST(TruePeakMeter, HighRatesAreLookedAtLessBetween) {
    for (const auto& [rateHz, expected] : {std::pair{48000, 0.0}, std::pair{96000, 0.0}, std::pair{192000, -3.01}}) {
        TruePeakMeter meter(rateHz);
        meter.add(tone(0.25, std::numbers::pi / 4), 1);
        EXPECT_NEAR(decibelsOf(meter), expected, 0.05) << rateHz;
    }
}

TEST(TruePeakMeter, TheResultDoesNotDependOnHowTheSoundIsDivided) {
    const std::vector<double> samples = tone(0.23, 0.3, 3001);
    TruePeakMeter whole(44100);
    whole.add(samples, 1);
    for (const std::size_t block : {1U, 7U, 255U, 256U, 257U}) {
        TruePeakMeter meter(44100);
        for (std::size_t at = 0; at < samples.size(); at += block)
            meter.add(std::span(samples).subspan(at, std::min(block, samples.size() - at)), 1);
        EXPECT_EQ(meter.truePeak(), whole.truePeak()) << block;
    }
}

TEST(TruePeakMeter, TakesOneChannelOfSeveral) {
    const std::vector<double> both = {0.1, 0.9, -0.2, 0.9, 0.1, 0.9};
    TruePeakMeter meter(192000);
    meter.add(both, 2);
    EXPECT_FLOAT_EQ(static_cast<float>(meter.samplePeak()), 0.2f);
}

TEST(TruePeakMeter, SeesTheOverswingBehindTheLastSample) {
    TruePeakMeter meter(48000);
    std::vector<double> samples(100, 0.0);
    samples[98] = samples[99] = 1;
    meter.add(samples, 1);
    EXPECT_GT(meter.truePeak(), 1.2); // half way between the two, at 4 / pi
    EXPECT_LT(meter.truePeak(), 1.3);
}

TEST(TruePeakMeter, SilenceHasNoPeak) {
    TruePeakMeter meter(48000);
    EXPECT_EQ(meter.truePeak(), 0);
    meter.add(std::vector<double>(1000), 1);
    EXPECT_EQ(meter.truePeak(), 0);
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
