// The equaliser by itself; what the unit makes of it is tested beside this.
#include "unit/dsp/Equaliser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace QVM_NAMESPACE::dsp {
namespace {

constexpr double rateHz = 48000;

std::vector<double> ones(std::size_t frames) {
    return std::vector<double>(2 * frames, 1.0);
}

std::vector<double> impulseThrough(Equaliser& equaliser, const EqSettings& settings) {
    constexpr std::uint32_t frames = 2048;
    std::vector<double> signal(2 * std::size_t{frames});
    signal[0] = signal[1] = 1;
    equaliser.process(signal.data(), frames, settings);
    return signal;
}

// The largest difference of two signals of one length.
double distance(const std::vector<double>& a, const std::vector<double>& b) {
    double most = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        most = std::max(most, std::abs(a[i] - b[i]));
    return most;
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

// Each of them by itself, in steps that are near enough to glide.
TEST(EqualiserAlone, WhateverGlidesArrivesWhereItWouldStand) {
    struct Move {
        const char* what;
        void (*make)(EqSettings&);
    };
    const Move moves[] = {
        {"tilt gain", [](EqSettings& s) { s.tiltGain += 3; }},
        {"tilt low", [](EqSettings& s) { s.tiltLow *= 1.5; }},
        {"tilt high", [](EqSettings& s) { s.tiltHigh /= 1.5; }},
        {"low corner", [](EqSettings& s) { s.low.corner *= 1.5; }},
        {"low slope", [](EqSettings& s) { s.low.order += 1; }},
        {"low resonance", [](EqSettings& s) { s.low.resonance += 3; }},
        {"high corner", [](EqSettings& s) { s.high.corner /= 1.5; }},
        {"high slope", [](EqSettings& s) { s.high.order -= 0.75; }},
        {"high resonance", [](EqSettings& s) { s.high.resonance -= 2; }},
    };
    EqSettings first;
    first.tiltGain = 4;
    first.low = {Switch::on, Switch::off, 200, 2, 3};
    first.high = {Switch::on, Switch::off, 5000, 3, 4};
    for (const Move& move : moves) {
        EqSettings last = first;
        move.make(last);
        Equaliser before, moved, there;
        before.prepare(rateHz, first);
        moved.prepare(rateHz, first);
        there.prepare(rateHz, last);
        std::vector<double> second(96000);
        moved.process(second.data(), 48000, last);
        const std::vector<double> expected = impulseThrough(there, last);
        EXPECT_GT(distance(impulseThrough(before, first), expected), 1e-3) << move.what << " is no difference";
        EXPECT_LT(distance(impulseThrough(moved, last), expected), 1e-6) << move.what;
    }
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
