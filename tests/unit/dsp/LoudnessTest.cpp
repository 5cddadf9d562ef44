// Mode Auto keeps the loudness of what the filters leave of pink noise.
#include "unit/dsp/Loudness.h"

#include "unit/dsp/Response.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace QVM_NAMESPACE {
namespace {

// Stands beside the implementation on purpose.
double weight(double f) {
    return 1 / std::sqrt((1 + std::pow(500 / f, 2)) * (1 + std::pow(63 / f, 2.7)) * (1 + std::pow(f / 5000, 4.8)) *
                         (1 + std::pow(f / 20, 2)));
}

// The weighted level of pink noise behind a unit with these settings: noise with random phases and equal energy in
// every octave is sent through it.
double weightedLevel(const ShownValues& values) {
    constexpr double rateHz = 48000;
    constexpr std::size_t frames = 1 << 16;
    std::mt19937 random(3);
    Spectrum noise(frames);
    for (std::size_t i = 4; i < frames / 2; ++i) {
        const double phase = static_cast<double>(random() % 6283) / 1000;
        noise[i] = std::polar(1 / std::sqrt(static_cast<double>(i)), phase);
    }
    transform(noise);
    // Twice the same period: in the second one the unit has settled.
    std::vector<double> signal;
    for (int period = 0; period < 2; ++period)
        for (const auto& sample : noise)
            signal.push_back(sample.real());
    QVM0015_AudioUnit unit;
    setAll(unit, values);
    EXPECT_EQ(unit.prepare(rateHz, 512, 1, 1), noErr);
    double* const all[] = {signal.data()};
    unit.process(all, all, static_cast<std::uint32_t>(signal.size()));
    Spectrum out(signal.begin() + frames, signal.end());
    transform(out);
    double energy = 0;
    for (std::size_t i = 4; i < frames / 2; ++i) {
        energy += std::norm(out[i]) * std::pow(weight(static_cast<double>(i) * rateHz / frames), 2);
    }
    return 10 * std::log10(energy);
}

TEST(Loudness, ModeAutoKeepsTheWeightedLevelOfPinkNoiseForEveryPreset) {
    double worst = 0;
    for (std::uint32_t preset = 0; preset < 23; ++preset) {
        const ShownValues tilted = presetValues(preset);
        ShownValues straight = tilted;
        straight[pidTiltGain] = 0;
        const double difference = weightedLevel(tilted) - weightedLevel(straight);
        worst = std::max(worst, std::abs(difference));
        EXPECT_NEAR(difference, 0, 0.5) << preset;
    }
    std::printf("loudness over all presets: within %.3f dB\n", worst);
}

// The negative control: without a match the level does change.
TEST(Loudness, ModeTrebleDoesNotKeepIt) {
    ShownValues values = presetValues(1);
    const double matched = weightedLevel(values);
    values[pidTiltLoudnessMode] = QVMTiltEQ_LoudnessNone;
    EXPECT_GT(std::abs(weightedLevel(values) - matched), 2);
}

TEST(Loudness, TheCompensationIsTheOneThatTheDisplayShows) {
    std::mt19937 random(11);
    dsp::Loudness loudness;
    for (int i = 0; i < 200; ++i) {
        const ShownValues v = randomValues(random);
        UnitParameters parameters;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            parameters.set(pid, GetParameter(pid)->reverseCastValue(v[pid]));
        const double shown = -curveOf(v, 1000).reference - static_cast<double>(v[pidTiltGain]);
        EXPECT_NEAR(loudness.compensation(dsp::EqReader().read(parameters)), shown, 0.1);
    }
}

TEST(Loudness, WithoutATiltThereIsNothingToMakeUpFor) {
    dsp::Loudness loudness;
    for (const int mode : {0, 1, 2, 3}) {
        dsp::EqSettings settings;
        settings.loudness = static_cast<QVMTiltEQ_LoudnessMode>(mode);
        EXPECT_EQ(loudness.compensation(settings), 0);
    }
}

} // namespace
} // namespace QVM_NAMESPACE
