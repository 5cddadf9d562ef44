#include "unit/QVM0015_AudioUnit.h"

#include "unit/Signals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t global = kAudioUnitScope_Global;

class Unit : public testing::Test {
protected:
    float parameter(std::uint32_t pid) {
        float value = -1;
        EXPECT_EQ(AudioUnitGetParameter(&unit, pid, global, 0, &value), noErr);
        return value;
    }
    void setParameter(std::uint32_t pid, float value) {
        EXPECT_EQ(AudioUnitSetParameter(&unit, pid, global, 0, value, 0), noErr);
    }
    std::vector<float> processedTone(std::size_t frames = 4800) {
        return signals::render<float>(
            {signals::tone<float>(frames, 1000, 0.5)}, 1, 480,
            [&](float* const* in, float* const* out, std::uint32_t n) { unit.process(in, out, n); })[0];
    }

    QVM0015_AudioUnit unit;
};

TEST_F(Unit, ASetParameterIsThereAtOnce) {
    setParameter(pidTiltGain, 4.5F);
    EXPECT_EQ(parameter(pidTiltGain), 4.5F);
}

TEST_F(Unit, UnknownParametersScopesAndElementsGiveErrors) {
    float value = 7;
    EXPECT_EQ(AudioUnitGetParameter(&unit, 24, global, 0, &value), kAudioUnitErr_InvalidParameter);
    EXPECT_EQ(AudioUnitGetParameter(&unit, 0xFFFFFFFF, global, 0, &value), kAudioUnitErr_InvalidParameter);
    EXPECT_EQ(AudioUnitGetParameter(&unit, 0, kAudioUnitScope_Input, 0, &value), kAudioUnitErr_InvalidScope);
    EXPECT_EQ(AudioUnitGetParameter(&unit, 0, global, 1, &value), kAudioUnitErr_InvalidElement);
    EXPECT_EQ(AudioUnitSetParameter(&unit, 24, global, 0, 1, 0), kAudioUnitErr_InvalidParameter);
    EXPECT_EQ(AudioUnitSetParameter(&unit, 0, kAudioUnitScope_Output, 0, 1, 0), kAudioUnitErr_InvalidScope);
    EXPECT_EQ(AudioUnitSetParameter(&unit, 0, global, 9, 1, 0), kAudioUnitErr_InvalidElement);
    EXPECT_EQ(value, 7.0F);
}

TEST_F(Unit, NaNFromTheHostIsRefused) {
    setParameter(pidOutputGain, -3);
    EXPECT_NE(AudioUnitSetParameter(&unit, 7, global, 0, std::nanf(""), 0), noErr);
    EXPECT_EQ(parameter(pidOutputGain), -3.0F);
}

TEST_F(Unit, PlaysAtOnceWithTheFormatItIsMadeWith) {
    std::vector<float> left = signals::tone<float>(64, 1000, 0.5), right = left;
    const std::vector<float> before = left;
    float* channels[] = {left.data(), right.data()};
    unit.process(channels, channels, 64);
    EXPECT_EQ(left, before);
    EXPECT_EQ(right, before);
}

TEST_F(Unit, FormatsThatAreNotSupportedChangeNothing) {
    ASSERT_EQ(unit.prepare(48000, 256, 1, 1), noErr);
    for (const double rate : {0.0, -1.0, 2e6, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(unit.prepare(rate, 256, 2, 2), kAudioUnitErr_FormatNotSupported);
    }
    EXPECT_EQ(unit.prepare(48000, 256, 0, 2), kAudioUnitErr_FormatNotSupported);
    EXPECT_EQ(unit.prepare(48000, 256, 2, 1), kAudioUnitErr_FormatNotSupported);
    EXPECT_EQ(unit.prepare(48000, 256, 3, 3), kAudioUnitErr_FormatNotSupported);
    std::uint32_t channels = 0, size = sizeof channels;
    ASSERT_EQ(AudioUnitGetProperty(&unit, 64006, global, 0, &channels, &size), noErr);
    EXPECT_EQ(channels, 1U);
}

TEST_F(Unit, OutputGainIsHeard) {
    setParameter(pidOutputGain, -6.0205999F);
    ASSERT_EQ(unit.prepare(48000, 480, 1, 1), noErr);
    const std::vector<float> dry = signals::tone<float>(4800, 1000, 0.5), wet = processedTone();
    for (std::size_t i = 0; i < wet.size(); ++i)
        EXPECT_NEAR(wet[i], dry[i] / 2, 1e-6F);
}

TEST_F(Unit, TheLowestOutputGainIsSilence) {
    setParameter(pidOutputGain, -96);
    ASSERT_EQ(unit.prepare(48000, 480, 1, 1), noErr);
    EXPECT_EQ(processedTone(), std::vector<float>(4800));
}

TEST_F(Unit, TheMasterSwitchTurnsTheGainOff) {
    setParameter(pidOutputGain, 12);
    setParameter(pidMasterOnOff, 0);
    ASSERT_EQ(unit.prepare(48000, 480, 1, 1), noErr);
    EXPECT_EQ(processedTone(), signals::tone<float>(4800, 1000, 0.5));
}

TEST_F(Unit, AnyMasterValueButZeroIsOn) {
    setParameter(pidOutputGain, -96);
    setParameter(pidMasterOnOff, 0.3F);
    ASSERT_EQ(unit.prepare(48000, 480, 1, 1), noErr);
    EXPECT_EQ(processedTone(), std::vector<float>(4800));
}

TEST_F(Unit, PrepareStartsWithoutARamp) {
    ASSERT_EQ(unit.prepare(48000, 480, 1, 1), noErr);
    setParameter(pidOutputGain, -96);
    ASSERT_EQ(unit.prepare(48000, 480, 1, 1), noErr);
    EXPECT_EQ(processedTone(480), std::vector<float>(480));
}

TEST_F(Unit, DoublePrecisionBlocksAreProcessedToo) {
    setParameter(pidOutputGain, 6);
    ASSERT_EQ(unit.prepare(48000, 480, 1, 1), noErr);
    std::vector<double> signal = signals::tone<double>(1000, 1000, 0.5);
    const std::vector<double> dry = signal;
    double* channels[] = {signal.data()};
    unit.process(channels, channels, 1000);
    for (std::size_t i = 0; i < 1000; ++i)
        EXPECT_NEAR(signal[i], dry[i] * std::pow(10, 0.3), 1e-12);
}

} // namespace
} // namespace QVM_NAMESPACE
