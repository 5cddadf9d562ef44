// What the spectrum finds of sounds of which theory says what they have. Each question is also asked of a sound that
// must fail it.
#include "viz/analysis/SignalSpectrum.h"

#include "viz/analysis/SpectrumLevels.h"
#include "viz/analysis/SpectrumSignals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

constexpr double kRate = 48000;
constexpr std::size_t kSecond = 48000;

double decibels(double power) {
    return 10 * std::log10(power);
}

std::vector<float> powersOf(const std::vector<float>& left, const std::vector<float>& right, double rateHz = kRate) {
    SignalSpectrum spectrum(rateHz);
    for (std::size_t at = 0; at < left.size(); at += 800)
        spectrum.take(&left[at], &right[at], std::min<std::size_t>(800, left.size() - at));
    const std::span<const float> powers = spectrum.powers();
    return {powers.begin(), powers.end()};
}
std::vector<float> powersOf(const std::vector<float>& both, double rateHz = kRate) {
    return powersOf(both, both, rateHz);
}

struct Peak {
    double hertz, decibels;
};
// Levels within a tenth of a decibel are the same peak: its middle.
Peak peakOf(const std::vector<float>& powers) {
    const double highest = decibels(double{*std::ranges::max_element(powers)});
    double sum = 0, count = 0;
    for (std::size_t i = 0; i < powers.size(); ++i) {
        if (decibels(double{powers[i]}) < highest - 0.1) continue;
        sum += std::log2(bands::hertz(i));
        ++count;
    }
    return {std::exp2(sum / count), highest};
}

// The mean of many moments, as slopes are told from means.
std::vector<double> meanPowers(const std::vector<float>& left, const std::vector<float>& right) {
    SignalSpectrum spectrum(kRate);
    std::vector<double> mean(bands::count);
    for (std::size_t at = 0; at + 2400 <= left.size(); at += 2400) {
        spectrum.take(&left[at], &right[at], 2400);
        if (at < kSecond) continue;
        const std::span<const float> powers = spectrum.powers();
        for (std::size_t i = 0; i < mean.size(); ++i)
            mean[i] += double{powers[i]};
    }
    return mean;
}

// In dB an octave, the line through all bands between two frequencies; and how far from it the farthest is.
struct Slope {
    double decibelsAnOctave, farthest;
};
Slope slopeOf(const std::vector<double>& powers, double fromHz, double toHz) {
    std::vector<double> xs, ys;
    for (std::size_t i = 0; i < powers.size(); ++i) {
        if (bands::hertz(i) < fromHz || bands::hertz(i) > toHz) continue;
        xs.push_back(std::log2(bands::hertz(i)));
        ys.push_back(decibels(powers[i]) + double{SpectrumLevels::tilt(i)});
    }
    const auto count = static_cast<double>(xs.size());
    double x = 0, y = 0, xx = 0, xy = 0, farthest = 0;
    for (std::size_t i = 0; i < xs.size(); ++i) {
        x += xs[i] / count;
        y += ys[i] / count;
    }
    for (std::size_t i = 0; i < xs.size(); ++i) {
        xx += (xs[i] - x) * (xs[i] - x);
        xy += (xs[i] - x) * (ys[i] - y);
    }
    for (std::size_t i = 0; i < xs.size(); ++i)
        farthest = std::max(farthest, std::abs(ys[i] - y - xy / xx * (xs[i] - x)));
    return {xy / xx, farthest};
}

TEST(SignalSpectrum, ASineStandsAtItsLevelAndItsFrequency) {
    // All over the band, in and between the bins of each transform, and where one hands over to another.
    for (double hertz = 20; hertz < 22000; hertz *= 1.0893) {
        const Peak found = peakOf(powersOf(sounds::sine(hertz, 0.1, kRate, kSecond)));
        EXPECT_NEAR(found.decibels, -20, 0.5) << hertz;
        EXPECT_NEAR(std::log2(found.hertz / hertz), 0, 1.0 / 12) << hertz;
    }
}

TEST(SignalSpectrum, AnotherSineDoesNot) {
    const double semitone = std::exp2(2.0 / 12);
    const Peak higher = peakOf(powersOf(sounds::sine(1000 * semitone, 0.1, kRate, kSecond)));
    EXPECT_GT(std::log2(higher.hertz / 1000), 1.0 / 12);
    const Peak louder = peakOf(powersOf(sounds::sine(1000, 0.11, kRate, kSecond)));
    EXPECT_GT(louder.decibels, -19.5);
}

TEST(SignalSpectrum, AtEveryRate) {
    for (const double rate : {22050.0, 44100.0, 88200.0, 96000.0, 192000.0}) {
        for (const double hertz : {31.0, 440.0, 5000.0}) {
            const auto frames = static_cast<std::size_t>(rate);
            const Peak found = peakOf(powersOf(sounds::sine(hertz, 0.5, rate, frames), rate));
            EXPECT_NEAR(found.decibels, -6.02, 0.5) << hertz << " at " << rate;
            EXPECT_NEAR(std::log2(found.hertz / hertz), 0, 1.0 / 12) << hertz << " at " << rate;
        }
    }
}

TEST(SignalSpectrum, TwoTonesAThirdOfAnOctaveApartAreTwoPeaks) {
    for (const double hertz : {60.0, 200.0, 1000.0, 9000.0}) {
        std::vector<float> both = sounds::sine(hertz, 0.1, kRate, kSecond);
        const std::vector<float> upper = sounds::sine(hertz * std::exp2(1.0 / 3), 0.1, kRate, kSecond);
        std::ranges::transform(both, upper, both.begin(), std::plus<>());
        const std::vector<float> powers = powersOf(both);
        const auto at = [&](double f) {
            return decibels(double{powers[static_cast<std::size_t>(std::lround(24 * std::log2(f / 4)))]});
        };
        EXPECT_LT(at(hertz * std::exp2(1.0 / 6)), at(hertz) - 15) << hertz;
        EXPECT_LT(at(hertz * std::exp2(1.0 / 6)), at(hertz * std::exp2(1.0 / 3)) - 15) << hertz;
    }
}

TEST(SignalSpectrum, ASideAloneHasHalfThePowerInEitherOrder) {
    const std::vector<float> tone = sounds::sine(1000, 1, kRate, kSecond), silence(kSecond);
    EXPECT_NEAR(peakOf(powersOf(tone, silence)).decibels, -3.01, 0.2);
    EXPECT_NEAR(peakOf(powersOf(silence, tone)).decibels, -3.01, 0.2);
    EXPECT_NEAR(peakOf(powersOf(tone, tone)).decibels, 0, 0.2);
    std::vector<float> opposite = tone;
    for (float& sample : opposite)
        sample = -sample;
    EXPECT_NEAR(peakOf(powersOf(tone, opposite)).decibels, 0, 0.2) << "out of phase is as loud";
}

TEST(SignalSpectrum, WhiteNoiseRisesByFourAndAHalfDecibelsAnOctaveAsItIsShown) {
    const std::size_t frames = 12 * kSecond;
    const std::vector<double> found = meanPowers(sounds::white(0.1, frames, 1), sounds::white(0.1, frames, 2));
    const Slope slope = slopeOf(found, 45, 21000);
    EXPECT_NEAR(slope.decibelsAnOctave, 4.5, 0.1);
    EXPECT_LT(slope.farthest, 2.5);
    EXPECT_LT(slopeOf(found, 200, 21000).farthest, 1) << "no step between two transforms";
    // As theory has it: 0.01 of power over 24 kHz, against a half for a sine at full scale.
    const double expected = 0.01 / 0.5 * (1000 * std::log(2.0) / 6) / 24000 * 220; // of 220 moments
    EXPECT_NEAR(decibels(found[191] / expected), 0, 0.5);
}

TEST(SignalSpectrum, PinkNoiseRisesByOneAndAHalf) {
    const std::size_t frames = 12 * kSecond;
    const Slope slope =
        slopeOf(meanPowers(sounds::pink(0.1, kRate, frames, 1), sounds::pink(0.1, kRate, frames, 2)), 45, 12000);
    EXPECT_NEAR(slope.decibelsAnOctave, 4.5 - 10 * std::log10(2.0), 0.15);
    EXPECT_LT(slope.farthest, 2.5);
}

TEST(SignalSpectrum, SilenceIsEmpty) {
    SignalSpectrum spectrum(kRate);
    const std::vector<float> silence(kSecond), noise = sounds::white(0.1, kSecond);
    const auto isEmpty = [&] { return std::ranges::all_of(spectrum.powers(), [](float power) { return power == 0; }); };
    EXPECT_TRUE(isEmpty()) << "at first";
    spectrum.take(noise.data(), noise.data(), noise.size());
    EXPECT_FALSE(isEmpty());
    spectrum.take(silence.data(), silence.data(), silence.size());
    EXPECT_TRUE(isEmpty()) << "a second later";
    spectrum.take(noise.data(), noise.data(), noise.size());
    spectrum.reset();
    EXPECT_TRUE(isEmpty()) << "after a reset";
}

TEST(SignalSpectrum, WhatStandsStillIsNotHeard) {
    const std::vector<float> offset(2 * kSecond, 0.5f);
    EXPECT_LT(peakOf(powersOf(offset)).decibels, -90);
}

TEST(SignalSpectrum, WhatIsNoSoundCountsAsSilence) {
    std::vector<float> tone = sounds::sine(1000, 0.1, kRate, kSecond);
    tone[kSecond - 10] = std::numeric_limits<float>::quiet_NaN();
    tone[kSecond - 3000] = std::numeric_limits<float>::infinity();
    tone[kSecond - 5000] = 1e30f;
    const Peak found = peakOf(powersOf(tone));
    EXPECT_NEAR(found.decibels, -20, 0.5);
    EXPECT_NEAR(found.hertz, 1000, 60);
}

} // namespace
} // namespace QVM_NAMESPACE
