#include "tools/render/LoudnessMeter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <sndfile.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

using Measures = LoudnessMeter::Measures;
constexpr int rateHz = 48000;

// 1 kHz in some of the channels, three seconds of it.
std::vector<double> tone(std::size_t channels, std::initializer_list<std::size_t> heard, double levelDb) {
    std::vector<double> samples(channels * 3 * rateHz);
    for (std::size_t i = 0; i < samples.size() / channels; ++i) {
        const double phase = 2 * std::numbers::pi * 1000 / rateHz * static_cast<double>(i);
        for (const std::size_t channel : heard)
            samples[i * channels + channel] = std::pow(10, levelDb / 20) * std::sin(phase);
    }
    return samples;
}

Loudness measured(std::size_t channels, const std::vector<double>& samples, std::vector<int> map = {}) {
    LoudnessMeter meter(static_cast<int>(channels), rateHz, map, Measures::everything);
    meter.add(samples);
    return meter.result();
}

// EBU Tech 3341: a stereo tone of 1 kHz at -23 dBFS has -23 LUFS.
TEST(LoudnessMeter, MeasuresTheToneOfTheStandardAsItSays) {
    const Loudness loudness = measured(2, tone(2, {0, 1}, -23));
    ASSERT_TRUE(loudness.integratedLufs);
    EXPECT_NEAR(*loudness.integratedLufs, -23, 0.1);
    EXPECT_NEAR(decibels(loudness.samplePeak), -23, 0.01);
    EXPECT_NEAR(decibels(loudness.truePeak), -23, 0.02);
    EXPECT_NEAR(loudness.rangeLu.value_or(-1), 0, 0.1);
}

TEST(LoudnessMeter, LowFrequenciesDoNotCountAndSurroundCountsMore) {
    EXPECT_FALSE(measured(6, tone(6, {3}, -23)).integratedLufs);
    EXPECT_GT(measured(6, tone(6, {3}, -23)).truePeak, 0);
    const double centre = *measured(6, tone(6, {2}, -23)).integratedLufs;
    EXPECT_NEAR(*measured(6, tone(6, {4}, -23)).integratedLufs - centre, 1.5, 0.05);
    EXPECT_NEAR(*measured(8, tone(8, {6}, -23)).integratedLufs - centre, 1.5, 0.05);
    EXPECT_NEAR(*measured(8, tone(8, {4}, -23)).integratedLufs - centre, 0, 0.05);
}

TEST(LoudnessMeter, AMapOfTheFileSaysWhichChannelIsWhich) {
    const std::vector<int> lowFirst = {SF_CHANNEL_MAP_LFE, SF_CHANNEL_MAP_LEFT, SF_CHANNEL_MAP_RIGHT};
    EXPECT_FALSE(measured(3, tone(3, {0}, -23), lowFirst).integratedLufs);
    EXPECT_TRUE(measured(3, tone(3, {1}, -23), lowFirst).integratedLufs);
    EXPECT_TRUE(measured(3, tone(3, {0}, -23), {SF_CHANNEL_MAP_LFE}).integratedLufs)
        << "a map of another length is none";
    const std::vector<int> rear = {SF_CHANNEL_MAP_LEFT, SF_CHANNEL_MAP_RIGHT, SF_CHANNEL_MAP_REAR_LEFT,
                                   SF_CHANNEL_MAP_REAR_RIGHT};
    EXPECT_NEAR(*measured(4, tone(4, {2}, -23), rear).integratedLufs -
                    *measured(4, tone(4, {0}, -23), rear).integratedLufs,
                1.5, 0.05);
}

TEST(LoudnessMeter, SilenceHasNoLoudness) {
    const Loudness loudness = measured(2, std::vector<double>(2 * 3 * rateHz));
    EXPECT_FALSE(loudness.integratedLufs);
    EXPECT_FALSE(loudness.rangeLu);
    EXPECT_EQ(decibels(loudness.truePeak), -std::numeric_limits<double>::infinity());
}

TEST(LoudnessMeter, PeaksAloneAreTheSamePeaks) {
    const std::vector<double> samples = tone(2, {1}, -6);
    LoudnessMeter meter(2, rateHz, {}, Measures::peaks);
    meter.add(samples);
    EXPECT_EQ(meter.result().truePeak, measured(2, samples).truePeak);
    EXPECT_FALSE(meter.result().integratedLufs);
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
