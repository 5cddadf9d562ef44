#include "plugin/SlantwiseProcessor.h"

#include "SlantwiseProcessorBench.h"

#include "description/Description.h"
#include "platform/runloop/VirtualTime.h"
#include "plugin/HostRecorder.h"
#include "support/RealtimeTrap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <future>

namespace QVM_NAMESPACE {
namespace {

using juce::AudioChannelSet;

bool supports(SlantwiseProcessor& processor, const AudioChannelSet& in, const AudioChannelSet& out) {
    juce::AudioProcessor::BusesLayout layout;
    layout.inputBuses.add(in);
    layout.outputBuses.add(out);
    return processor.checkBusesLayoutSupported(layout);
}

TEST(SlantwiseProcessor, OffersTheProductsParametersInOrderAndThenTheBypass) {
    SlantwiseProcessor processor;
    const auto& parameters = processor.getParameters();
    ASSERT_EQ(parameters.size(), 25);
    EXPECT_EQ(parameters[24], processor.getBypassParameter());
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const auto* parameter = dynamic_cast<juce::AudioProcessorParameterWithID*>(parameters[static_cast<int>(pid)]);
        ASSERT_NE(parameter, nullptr);
        EXPECT_EQ(parameter->paramID.toStdString(), GetParameter(pid)->codesafeName);
        EXPECT_EQ(parameter->getValue(), parameter->getDefaultValue()) << pid;
        EXPECT_TRUE(parameter->isAutomatable());
    }
}

TEST(SlantwiseProcessor, OffersTheMasterSwitchAsTheHostsBypassOutsideLv2) {
    SlantwiseProcessor processor;
    ASSERT_NE(processor.getBypassParameter(), nullptr);
    EXPECT_EQ(processor.getBypassParameter()->getValue(), 0);
    processor.parameter(pidMasterOnOff).setValue(0);
    EXPECT_EQ(processor.getBypassParameter()->getValue(), 1);
    processor.getBypassParameter()->setValue(0);
    EXPECT_EQ(valueOf(processor, pidMasterOnOff), 1);

    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_LV2);
    SlantwiseProcessor inLv2;
    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_Undefined);
    EXPECT_EQ(inLv2.getBypassParameter(), nullptr);
}

// The bypass (24) is the master switch (0) under another name: what the host does to the one it is told of the other,
// once, and not of the one that it changed itself. What the editor does is done to the bypass, which hosts show.
TEST(SlantwiseProcessor, TheHostIsToldOfTheOtherNameOfTheMasterSwitch) {
    using Lines = std::vector<std::string>;
    VirtualTime time;
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    slantwise_tests::HostRecorder host(processor);

    processor.getBypassParameter()->setValue(1);
    processOnce(processor);
    EXPECT_EQ(host.lines, (Lines{"value 0 0"}));
    host.lines.clear();

    processor.parameter(pidMasterOnOff).setValue(1);
    processOnce(processor);
    EXPECT_EQ(host.lines, (Lines{"value 24 0"}));
    host.lines.clear();

    const AudioUnitParameter master{&processor.unit(), 0, kAudioUnitScope_Global, 0}; // from the editor
    AUParameterSet(nullptr, nullptr, &master, 0, 0);
    time.settle();
    EXPECT_EQ(host.lines, (Lines{"begin 24", "value 24 1", "end 24"}));
    host.lines.clear();
    processOnce(processor);
    processOnce(processor);
    EXPECT_EQ(host.lines, (Lines{"value 0 0"}));
}

TEST(SlantwiseProcessor, ABypassedUnitPassesWhatComesIn) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    processor.parameter(pidOutputGain).setValue(0); // nothing of the processed signal
    juce::AudioBuffer<float> buffer(2, 4096);
    const auto fill = [&] {
        for (int i = 0; i < buffer.getNumSamples(); ++i)
            for (int channel = 0; channel < 2; ++channel)
                buffer.setSample(channel, i, std::sin(0.1f * static_cast<float>(i)));
    };
    fill();
    processOnce(processor, buffer);
    EXPECT_LT(buffer.getMagnitude(2048, 2048), 1e-3f);
    processor.getBypassParameter()->setValue(1);
    fill();
    processOnce(processor, buffer); // it fades
    fill();
    const juce::AudioBuffer<float> dry = buffer;
    processOnce(processor, buffer);
    for (int channel = 0; channel < 2; ++channel)
        EXPECT_TRUE(std::equal(dry.getReadPointer(channel), dry.getReadPointer(channel) + dry.getNumSamples(),
                               buffer.getReadPointer(channel)));
}

TEST(SlantwiseProcessor, TakesMonoToMonoMonoToStereoAndStereo) {
    SlantwiseProcessor processor;
    const auto mono = AudioChannelSet::mono(), stereo = AudioChannelSet::stereo(), off = AudioChannelSet::disabled();
    EXPECT_TRUE(supports(processor, mono, mono));
    EXPECT_TRUE(supports(processor, mono, stereo));
    EXPECT_TRUE(supports(processor, stereo, stereo));
    EXPECT_FALSE(supports(processor, stereo, mono));
    EXPECT_FALSE(supports(processor, off, stereo));
    EXPECT_FALSE(supports(processor, stereo, off));
    EXPECT_FALSE(supports(processor, AudioChannelSet::create5point1(), AudioChannelSet::create5point1()));
}

TEST(SlantwiseProcessor, AValueFromTheHostReachesTheUnitAndIsNotSentBack) {
    SlantwiseProcessor processor;
    slantwise_tests::HostRecorder host(processor);
    processor.parameter(pidTiltGain).setValue(0.75f);
    float value = 0;
    EXPECT_EQ(AudioUnitGetParameter(&processor.unit(), 1, kAudioUnitScope_Global, 0, &value), noErr);
    EXPECT_EQ(value, 9);
    EXPECT_TRUE(host.lines.empty()) << host.lines.front();
}

TEST(SlantwiseProcessor, AValueOfTheEditorsReachesTheHostInsideAGesture) {
    VirtualTime time;
    SlantwiseProcessor processor;
    slantwise_tests::HostRecorder host(processor);
    const AudioUnitParameter gain{&processor.unit(), 1, kAudioUnitScope_Global, 0};
    AUParameterSet(nullptr, nullptr, &gain, 9, 0);
    EXPECT_EQ(host.lines, (std::vector<std::string>{"begin 1", "value 1 0.75"}));
    time.settle();
    EXPECT_EQ(host.lines, (std::vector<std::string>{"begin 1", "value 1 0.75", "end 1"}));
}

// Such a host has no gestures to know it by, and would close the session unasked.
TEST(SlantwiseProcessor, AnLv2HostIsToldOfEachEditOnceAndOfNothingThatItDidItself) {
    VirtualTime time;
    constexpr std::uint32_t change = SlantwiseProcessor::stateChangeBit;
    for (const auto type : {juce::AudioProcessor::wrapperType_LV2, juce::AudioProcessor::wrapperType_VST3}) {
        juce::AudioProcessor::setTypeOfNextNewPlugin(type);
        SlantwiseProcessor processor;
        juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_Undefined);
        const bool isLv2 = type == juce::AudioProcessor::wrapperType_LV2;
        prepare(processor, 2, 2);
        processor.parameter(pidTiltGain).setValue(0.75F);
        EXPECT_EQ(processor.takeDue(), 0U) << "what it set itself";
        processor.setCurrentProgram(3);
        restore(processor, stateOf(processor));
        processOnce(processor);
        time.settle();
        EXPECT_EQ(processor.takeDue() & change, 0U) << type;
        for (const std::uint32_t pid : {pidTiltGain, pidOutputGain}) {
            const AudioUnitParameter gain{&processor.unit(), pid, kAudioUnitScope_Global, 0};
            AUParameterSet(nullptr, nullptr, &gain, -3, 0);
        }
        time.settle();
        processOnce(processor);
        EXPECT_EQ(processor.takeDue(), isLv2 ? change | 1U << pidTiltGain | 1U << pidOutputGain : 0U) << type;
        EXPECT_EQ(processor.takeDue(), 0U) << type;
        const AudioUnitParameter gain{&processor.unit(), pidTiltGain, kAudioUnitScope_Global, 0};
        AUParameterSet(nullptr, nullptr, &gain, -3, 0);
        time.settle();
        processOnce(processor);
        EXPECT_EQ(processor.takeDue() & change, 0U) << "the value that it has, " << type;
    }
}

TEST(SlantwiseProcessor, GesturesNeverNestAndNeverEndTwice) {
    VirtualTime time;
    SlantwiseProcessor processor;
    slantwise_tests::HostRecorder host(processor);
    const AudioUnitParameter gain{&processor.unit(), 1, kAudioUnitScope_Global, 0};
    for (const auto type : {kAudioUnitEvent_EndParameterChangeGesture, kAudioUnitEvent_BeginParameterChangeGesture,
                            kAudioUnitEvent_BeginParameterChangeGesture, kAudioUnitEvent_EndParameterChangeGesture,
                            kAudioUnitEvent_EndParameterChangeGesture}) {
        const AudioUnitEvent event{type, gain};
        AUEventListenerNotify(nullptr, nullptr, &event);
    }
    EXPECT_EQ(host.lines, (std::vector<std::string>{"begin 1", "end 1"}));
}

TEST(SlantwiseProcessor, OutputGainIsHeardInEitherPrecision) {
    SlantwiseProcessor processor;
    processor.parameter(pidOutputGain).setValue(processor.parameter(pidOutputGain).getValueForText("-6 dB"));
    prepare(processor, 2, 2);
    juce::AudioBuffer<float> single(2, 256);
    juce::AudioBuffer<double> dual(2, 256);
    for (int i = 0; i < 256; ++i) {
        single.setSample(0, i, 0.5f), single.setSample(1, i, -0.25f);
        dual.setSample(0, i, 0.5), dual.setSample(1, i, -0.25);
    }
    processOnce(processor, single);
    processOnce(processor, dual);
    const double gain = std::pow(10, -6.0 / 20);
    EXPECT_NEAR(single.getSample(0, 255), 0.5 * gain, 1e-6);
    EXPECT_NEAR(single.getSample(1, 255), -0.25 * gain, 1e-6);
    EXPECT_NEAR(dual.getSample(0, 255), 0.5 * gain, 1e-6);
}

TEST(SlantwiseProcessor, MonoToStereoFillsBothChannels) {
    SlantwiseProcessor processor;
    prepare(processor, 1, 2);
    juce::AudioBuffer<float> buffer(2, 64);
    buffer.clear();
    for (int i = 0; i < 64; ++i)
        buffer.setSample(0, i, 0.5f);
    processOnce(processor, buffer);
    EXPECT_NEAR(buffer.getSample(0, 63), 0.5f, 1e-6);
    EXPECT_NEAR(buffer.getSample(1, 63), 0.5f, 1e-6);
}

TEST(SlantwiseProcessor, BlocksOfAnyLengthAreProcessed) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2, 512);
    for (const int frames : {0, 1, 511, 512, 4000}) {
        juce::AudioBuffer<float> buffer(2, frames);
        for (int channel = 0; channel < 2; ++channel)
            juce::FloatVectorOperations::fill(buffer.getWritePointer(channel), 0.5f, frames);
        processOnce(processor, buffer);
        for (int channel = 0; channel < 2; ++channel) {
            const auto range = buffer.findMinMax(channel, 0, frames);
            EXPECT_NEAR(range.getStart(), frames > 0 ? 0.5f : 0, 1e-6) << frames;
            EXPECT_NEAR(range.getEnd(), frames > 0 ? 0.5f : 0, 1e-6) << frames;
        }
    }
}

// The render thread may automate as well as process.
void expectRealtimeSafe(SlantwiseProcessor& processor, std::uint32_t firstPid) {
    prepare(processor, 2, 2);
    juce::AudioBuffer<float> buffer(2, 512);
    juce::AudioBuffer<double> dual(2, 512);
    juce::MidiBuffer midi;
    buffer.clear();
    dual.clear();
    const realtime::Offences seen = realtime::offencesOf([&] {
        for (int block = 0; block < 4; ++block) {
            for (std::uint32_t pid = firstPid; pid < QVMParameterCount; ++pid)
                processor.parameter(pid).setValue(static_cast<float>(block) / 3);
            processor.processBlock(buffer, midi);
            processor.processBlock(dual, midi);
        }
    });
    EXPECT_FALSE(seen.any()) << seen;
}

TEST(SlantwiseProcessor, RenderThreadNeitherAllocatesNorLocksNorCallsTheSystem) {
    SlantwiseProcessor processor;
    expectRealtimeSafe(processor, 1); // the master switch has another name, which the host is told of: see above
    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_LV2);
    SlantwiseProcessor inLv2;
    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_Undefined);
    expectRealtimeSafe(inLv2, 0);
}

TEST(SlantwiseProcessor, InstancesAreMadeOnSeveralThreadsAtOnce) {
    std::vector<std::future<std::size_t>> results;
    for (int i = 0; i < 8; ++i) {
        results.push_back(std::async(std::launch::async, [] {
            SlantwiseProcessor processor;
            processor.parameter(pidTiltGain).setValue(1);
            return stateOf(processor).getSize();
        }));
    }
    const std::size_t size = results.front().get();
    for (std::size_t i = 1; i < results.size(); ++i)
        EXPECT_EQ(results[i].get(), size);
}

} // namespace
} // namespace QVM_NAMESPACE
