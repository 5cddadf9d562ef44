#include "platform/audiounit/AudioUnit.h"

#include "support/FakeAudioUnit.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(AudioUnit, ErrorNumbersAreTheUsualOnes) {
    EXPECT_EQ(kAudioUnitErr_InvalidProperty, -10879);
    EXPECT_EQ(kAudioUnitErr_InvalidParameter, -10878);
    EXPECT_EQ(kAudioUnitErr_InvalidScope, -10866);
    EXPECT_EQ(kAudioUnitErr_PropertyNotWritable, -10865);
    EXPECT_EQ(kAudioUnitErr_InvalidPropertyValue, -10851);
    EXPECT_EQ(kAudioUnitProperty_SampleRate, 2U);
    EXPECT_EQ(kAudioUnitProperty_MaximumFramesPerSlice, 14U);
}

TEST(AudioUnit, ANullUnitGivesErrors) {
    float value = 5;
    std::uint32_t size = sizeof value;
    EXPECT_EQ(AudioUnitGetParameter(nullptr, 0, 0, 0, &value), kAudio_ParamError);
    EXPECT_EQ(AudioUnitSetParameter(nullptr, 0, 0, 0, 1, 0), kAudio_ParamError);
    EXPECT_EQ(AudioUnitGetProperty(nullptr, 2, 0, 0, &value, &size), kAudio_ParamError);
    EXPECT_EQ(AudioUnitSetProperty(nullptr, 2, 0, 0, &value, size), kAudio_ParamError);
    EXPECT_EQ(value, 5.0F);
}

TEST(AudioUnit, MissingPointersGiveErrors) {
    FakeAudioUnit unit;
    unit.addProperty(2, 1.0F);
    float value = 5;
    std::uint32_t size = sizeof value;
    EXPECT_EQ(AudioUnitGetParameter(&unit, 0, 0, 0, nullptr), kAudio_ParamError);
    EXPECT_EQ(AudioUnitGetProperty(&unit, 2, 0, 0, nullptr, &size), kAudio_ParamError);
    EXPECT_EQ(AudioUnitGetProperty(&unit, 2, 0, 0, &value, nullptr), kAudio_ParamError);
    EXPECT_EQ(AudioUnitSetProperty(&unit, 2, 0, 0, nullptr, 4), kAudio_ParamError);
}

TEST(AudioUnit, ParametersReachTheUnit) {
    FakeAudioUnit unit;
    float value = 0;
    EXPECT_EQ(AudioUnitSetParameter(&unit, 3, 0, 0, 0.5F, 17), noErr);
    EXPECT_EQ(unit.lastBufferOffset, 17U);
    EXPECT_EQ(AudioUnitGetParameter(&unit, 3, 0, 0, &value), noErr);
    EXPECT_EQ(value, 0.5F);
    EXPECT_EQ(AudioUnitGetParameter(&unit, 99, 0, 0, &value), kAudioUnitErr_InvalidParameter);
}

TEST(AudioUnit, PropertiesOfAnotherSizeNeverReachTheUnit) {
    FakeAudioUnit unit;
    unit.addProperty(64010, std::uint32_t{7});
    std::uint32_t word = 0;
    for (std::uint32_t size : {0U, 1U, 3U, 5U, 8U}) {
        EXPECT_EQ(AudioUnitGetProperty(&unit, 64010, 0, 0, &word, &size), kAudioUnitErr_InvalidPropertyValue);
        EXPECT_EQ(AudioUnitSetProperty(&unit, 64010, 0, 0, &word, size), kAudioUnitErr_InvalidPropertyValue);
    }
    EXPECT_TRUE(unit.calls.empty());
    std::uint32_t size = 4;
    EXPECT_EQ(AudioUnitGetProperty(&unit, 64010, 0, 0, &word, &size), noErr);
    EXPECT_EQ(word, 7U);
}

TEST(AudioUnit, AnUnknownPropertyGivesAnError) {
    FakeAudioUnit unit;
    std::uint32_t word = 3, size = sizeof word;
    EXPECT_EQ(AudioUnitGetProperty(&unit, 1, 0, 0, &word, &size), kAudioUnitErr_InvalidProperty);
    EXPECT_EQ(AudioUnitSetProperty(&unit, 1, 0, 0, &word, size), kAudioUnitErr_InvalidProperty);
    EXPECT_EQ(word, 3U);
}

} // namespace
} // namespace QVM_NAMESPACE
