// What hosts do wrong, and what must come of it: nothing.
#include "SlantwiseProcessorBench.h"

#include "plugin/SlantwiseProcessor.h"

#include "description/Description.h"
#include "platform/system/Log.h"
#include "plugin/HostRecorder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <future>
#include <limits>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

template <class Sample>
bool isFinite(const juce::AudioBuffer<Sample>& buffer) {
    for (int channel = 0; channel < buffer.getNumChannels(); ++channel)
        for (int i = 0; i < buffer.getNumSamples(); ++i)
            if (!std::isfinite(buffer.getSample(channel, i))) return false;
    return true;
}

template <class Sample>
void fill(juce::AudioBuffer<Sample>& buffer, Sample value) {
    for (int channel = 0; channel < buffer.getNumChannels(); ++channel)
        juce::FloatVectorOperations::fill(buffer.getWritePointer(channel), value, buffer.getNumSamples());
}

// Everything that filters and amplifies at its most.
void turnUp(SlantwiseProcessor& processor) {
    for (const std::uint32_t pid : {pidTiltGain, pidOutputGain})
        processor.parameter(pid).setValue(1);
    processor.parameter(pidFilterSlopeLow).setValue(1);
    processor.parameter(pidFilterSlopeHigh).setValue(1);
    processor.parameter(pidFilterResonanceLow).setValue(1);
    processor.parameter(pidFilterResonanceHigh).setValue(1);
}

TEST(SlantwiseProcessorFaults, WhateverNumberAHostSendsEveryValueStaysInItsRange) {
    constexpr float none = std::numeric_limits<float>::quiet_NaN(), endless = std::numeric_limits<float>::infinity();
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    for (const float sent : {none, -none, endless, -endless, -1.0F, 2.0F, 1e30F, -1e30F, 1e-42F}) {
        for (juce::AudioProcessorParameter* parameter : processor.getParameters())
            parameter->setValue(sent);
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            const auto range = GetParameter(pid)->heldRange();
            EXPECT_GE(valueOf(processor, pid), range.min) << pid << " " << sent;
            EXPECT_LE(valueOf(processor, pid), range.max) << pid << " " << sent;
        }
        juce::AudioBuffer<float> buffer(2, 4000);
        fill(buffer, 0.5F);
        processOnce(processor, buffer);
        EXPECT_TRUE(isFinite(buffer)) << sent;
    }
}

// A sample that is no number, or one that no converter has ever made, is silence; what comes behind it is heard.
template <class Sample>
void expectFiniteAndGone(Sample bad) {
    SlantwiseProcessor processor;
    turnUp(processor);
    prepare(processor, 2, 2);
    juce::AudioBuffer<Sample> buffer(2, 512);
    for (int block = 0; block < 20; ++block) {
        fill(buffer, bad);
        processOnce(processor, buffer);
        EXPECT_TRUE(isFinite(buffer)) << bad << " in block " << block;
    }
    for (int block = 0; block < 400; ++block) {
        buffer.clear();
        processOnce(processor, buffer);
    }
    EXPECT_TRUE(isFinite(buffer)) << bad;
    EXPECT_LT(buffer.getMagnitude(0, 512), 1e-3) << bad;
}

template <class Sample>
void expectAllFiniteAndGone() {
    using Limits = std::numeric_limits<Sample>;
    for (const Sample bad : {Limits::quiet_NaN(), Limits::signaling_NaN(), Limits::infinity(), -Limits::infinity(),
                             Limits::max(), Limits::lowest(), Limits::denorm_min(), Limits::min() / 2})
        expectFiniteAndGone(bad);
}

TEST(SlantwiseProcessorFaults, SamplesThatAreNoSoundLeaveTheOutputFiniteAndNothingBehind) {
    expectAllFiniteAndGone<float>();
    expectAllFiniteAndGone<double>();
}

TEST(SlantwiseProcessorFaults, SilenceInPlaceStaysSilence) {
    SlantwiseProcessor processor;
    turnUp(processor);
    prepare(processor, 2, 2);
    juce::AudioBuffer<float> buffer(2, 512);
    buffer.clear();
    processOnce(processor, buffer);
    EXPECT_EQ(buffer.getMagnitude(0, 512), 0);
}

TEST(SlantwiseProcessorFaults, ItPlaysBeforeItIsPrepared) {
    SlantwiseProcessor processor;
    juce::AudioBuffer<float> single(2, 700);
    juce::AudioBuffer<double> dual(2, 700);
    fill(single, 0.5F);
    fill(dual, 0.5);
    processOnce(processor, single);
    processOnce(processor, dual);
    EXPECT_NEAR(single.getSample(1, 699), 0.5F, 1e-6);
    EXPECT_NEAR(dual.getSample(1, 699), 0.5, 1e-6);
}

TEST(SlantwiseProcessorFaults, FewerOrMoreChannelsThanWerePreparedAreTakenAsTheyAre) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    for (const int channels : {0, 1, 3, 40}) {
        juce::AudioBuffer<float> buffer(channels, 512);
        fill(buffer, 0.5F);
        processOnce(processor, buffer);
        for (int channel = 0; channel < channels; ++channel)
            EXPECT_NEAR(buffer.getSample(channel, 511), 0.5F, 1e-6) << channels;
    }
    juce::AudioBuffer<double> none;
    processOnce(processor, none);
}

TEST(SlantwiseProcessorFaults, AChannelWithoutSamplesIsSilence) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    std::array<float, 64> samples;
    samples.fill(0.5F);
    for (const auto& pointers :
         {std::array<float*, 2>{samples.data(), nullptr}, std::array<float*, 2>{nullptr, nullptr}}) {
        juce::AudioBuffer<float> buffer(pointers.data(), 2, 64);
        processOnce(processor, buffer);
        EXPECT_NEAR(samples.back(), 0.5F, 1e-6);
    }
}

TEST(SlantwiseProcessorFaults, AFormatThatItCannotTakeIsLoggedAndItGoesOnAsBefore) {
    std::string said;
    const ScopedLogSink sink([&](const std::string& line) { said += line; });
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    EXPECT_EQ(said, "");
    for (const auto& [rateHz, text] : {std::pair{0.0, "0"}, std::pair{-1.0, "-1"}, std::pair{2e9, "2000000000"},
                                       std::pair{std::numeric_limits<double>::quiet_NaN(), "nan"},
                                       std::pair{std::numeric_limits<double>::infinity(), "inf"}}) {
        said.clear();
        processor.prepareToPlay(rateHz, 512);
        EXPECT_NE(said.find("not prepared for " + std::string(text) + " Hz and 2 to 2 channels: it goes on as before"),
                  std::string::npos)
            << said;
        juce::AudioBuffer<float> buffer(2, 512);
        fill(buffer, 0.5F);
        processOnce(processor, buffer);
        EXPECT_NEAR(buffer.getSample(0, 511), 0.5F, 1e-6) << rateHz;
    }
}

// At any rate that a host may have.
TEST(SlantwiseProcessorFaults, TheOutputIsFiniteAtTheStrangestRates) {
    SlantwiseProcessor processor;
    turnUp(processor);
    for (const double rateHz : {1.0, 100.0, 7999.0, 1e6}) {
        processor.setPlayConfigDetails(2, 2, rateHz, 512);
        processor.prepareToPlay(rateHz, 512);
        for (int block = 0; block < 50; ++block) {
            juce::AudioBuffer<float> buffer(2, 512);
            fill(buffer, block % 2 == 0 ? 0.5F : -0.5F);
            processOnce(processor, buffer);
            ASSERT_TRUE(isFinite(buffer)) << rateHz << " " << block;
        }
    }
}

TEST(SlantwiseProcessorFaults, AStateIsSetByAnotherThreadWhileItIsProcessing) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    const juce::MemoryBlock plain = stateOf(processor);
    turnUp(processor);
    const juce::MemoryBlock loud = stateOf(processor);
    std::atomic<bool> isDone = false;
    std::atomic<int> blocks = 0;
    auto render = std::async(std::launch::async, [&] {
        for (; !isDone; ++blocks) {
            juce::AudioBuffer<float> buffer(2, 64);
            fill(buffer, 0.5F);
            processOnce(processor, buffer);
            if (!isFinite(buffer)) return false;
            std::this_thread::yield();
        }
        return true;
    });
    for (int i = 0; i < 200 || blocks < 200; ++i) {
        restore(processor, i % 2 == 0 ? plain : loud);
        std::this_thread::yield();
    }
    restore(processor, loud);
    isDone = true;
    EXPECT_TRUE(render.get());
    EXPECT_EQ(stateOf(processor), loud);
}

TEST(SlantwiseProcessorFaults, OneThatNeverPlaysKeepsAndGivesBackItsState) {
    SlantwiseProcessor processor, other;
    turnUp(processor);
    const juce::MemoryBlock bytes = stateOf(processor);
    processor.releaseResources();
    restore(other, bytes);
    EXPECT_EQ(stateOf(other), bytes);
    EXPECT_EQ(valueOf(other, pidTiltGain), 18);
}

} // namespace
} // namespace QVM_NAMESPACE
