#include "plugin/SlantwiseProcessor.h"

#include "description/Description.h"
#include "description/Presets.h"
#include "platform/Log.h"
#include "plugin/HostRecorder.h"
#include "support/RealtimeTrap.h"
#include "unit/PrivateProperties.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <future>
#include <limits>

namespace QVM_NAMESPACE {
namespace {

using juce::AudioChannelSet;

juce::MemoryBlock stateOf(SlantwiseProcessor& processor) {
    juce::MemoryBlock bytes;
    processor.getStateInformation(bytes);
    return bytes;
}

void restore(SlantwiseProcessor& processor, const juce::MemoryBlock& bytes) {
    processor.setStateInformation(bytes.getData(), static_cast<int>(bytes.getSize()));
}

bool supports(SlantwiseProcessor& processor, const AudioChannelSet& in, const AudioChannelSet& out) {
    juce::AudioProcessor::BusesLayout layout;
    layout.inputBuses.add(in);
    layout.outputBuses.add(out);
    return processor.checkBusesLayoutSupported(layout);
}

void prepare(SlantwiseProcessor& processor, int channelsIn, int channelsOut, int maxFrames = 512) {
    processor.setPlayConfigDetails(channelsIn, channelsOut, 48000, maxFrames);
    processor.prepareToPlay(48000, maxFrames);
}

template <class Sample>
void processOnce(SlantwiseProcessor& processor, juce::AudioBuffer<Sample>& buffer) {
    juce::MidiBuffer midi;
    processor.processBlock(buffer, midi);
}

void processOnce(SlantwiseProcessor& processor) {
    juce::AudioBuffer<float> buffer(2, 64);
    buffer.clear();
    processOnce(processor, buffer);
}

float valueOf(SlantwiseProcessor& processor, std::uint32_t pid) {
    float value = 0;
    EXPECT_EQ(AudioUnitGetParameter(&processor.unit(), pid, kAudioUnitScope_Global, 0, &value), noErr);
    return value;
}

TEST(SlantwiseProcessor, OffersTheProductsParametersInOrder) {
    SlantwiseProcessor processor;
    const auto& parameters = processor.getParameters();
    ASSERT_EQ(parameters.size(), 24);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const auto* parameter = dynamic_cast<juce::AudioProcessorParameterWithID*>(parameters[static_cast<int>(pid)]);
        ASSERT_NE(parameter, nullptr);
        EXPECT_EQ(parameter->paramID.toStdString(), GetParameter(pid)->codesafeName);
        EXPECT_EQ(parameter->getValue(), parameter->getDefaultValue()) << pid;
        EXPECT_TRUE(parameter->isAutomatable());
    }
}

TEST(SlantwiseProcessor, OffersTheFactoryPresetsAsPrograms) {
    SlantwiseProcessor processor;
    ASSERT_EQ(processor.getNumPrograms(), static_cast<int>(QVMPresetCount));
    for (int index = 0; index < processor.getNumPrograms(); ++index)
        EXPECT_EQ(processor.getProgramName(index).toStdString(),
                  GetPresets()->stringValues[static_cast<std::size_t>(index)]);
    EXPECT_EQ(processor.getCurrentProgram(), 0);
    EXPECT_TRUE(processor.getProgramName(-1).isNotEmpty());
    EXPECT_TRUE(processor.getProgramName(99).isNotEmpty());
}

TEST(SlantwiseProcessor, OffersTheMasterSwitchAsTheHostsBypassOutsideLv2) {
    SlantwiseProcessor processor;
    ASSERT_NE(processor.getBypassParameter(), nullptr);
    EXPECT_EQ(processor.getParameters().indexOf(processor.getBypassParameter()), -1) << "the list is the product's";
    EXPECT_EQ(processor.getBypassParameter()->getValue(), 0);
    processor.parameter(0).setValue(0);
    EXPECT_EQ(processor.getBypassParameter()->getValue(), 1);
    processor.getBypassParameter()->setValue(0);
    EXPECT_EQ(valueOf(processor, 0), 1);

    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_LV2);
    SlantwiseProcessor inLv2;
    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_Undefined);
    EXPECT_EQ(inLv2.getBypassParameter(), nullptr);
}

TEST(SlantwiseProcessor, AProgramSetsEverythingButTheQualityMode) {
    SlantwiseProcessor processor;
    processor.parameter(23).setValue(1);
    for (int index = processor.getNumPrograms() - 1; index >= 0; --index) {
        processor.setCurrentProgram(index);
        EXPECT_EQ(processor.getCurrentProgram(), index);
        const auto values = PresetIndexToPresetValues(index);
        for (std::uint32_t pid = 0; pid < 23; ++pid)
            EXPECT_EQ(valueOf(processor, pid), GetParameter(pid)->reverseCastValue(values->at(pid)))
                << index << " " << pid;
        EXPECT_EQ(valueOf(processor, 23), 1);
    }
    processor.setCurrentProgram(8);
    processor.setCurrentProgram(-1);
    processor.setCurrentProgram(23);
    EXPECT_EQ(processor.getCurrentProgram(), 8);
}

TEST(SlantwiseProcessor, AProgramIsSavedByName) {
    SlantwiseProcessor from, to;
    from.setCurrentProgram(22);
    restore(to, stateOf(from));
    EXPECT_EQ(to.getCurrentProgram(), 22);
    EXPECT_EQ(stateOf(to), stateOf(from));
}

TEST(SlantwiseProcessor, ARestoredStateWinsOverTheProgramsThatAHostSendsWithIt) {
    SlantwiseProcessor from, to;
    from.setCurrentProgram(8);
    from.parameter(1).setValue(0.9f);
    prepare(to, 2, 2);
    restore(to, stateOf(from));
    to.setCurrentProgram(8); // the one that was saved
    to.setCurrentProgram(0); // the one of the new instance
    EXPECT_EQ(stateOf(to), stateOf(from));
    juce::AudioBuffer<float> buffer(2, 64);
    buffer.clear();
    processOnce(to, buffer);
    to.setCurrentProgram(0); // now somebody wants it
    EXPECT_EQ(to.getCurrentProgram(), 0);
    EXPECT_EQ(valueOf(to, 1), 0);
}

TEST(SlantwiseProcessor, AProgramsValuesAreToldByTheNextBlockOnce) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    slantwise_tests::HostRecorder host(processor);
    processor.setCurrentProgram(22);
    EXPECT_TRUE(host.lines.empty()) << host.lines.front();
    processOnce(processor);
    EXPECT_EQ(host.lines.size(), QVMParameterCount);
    EXPECT_THAT(host.lines, testing::Contains("value 1 0.694444")); // 7 dB
    host.lines.clear();
    processOnce(processor);
    EXPECT_TRUE(host.lines.empty()) << host.lines.front();
}

TEST(SlantwiseProcessor, ARestoredStateTakesAwayWhatWasToBeToldOfAProgram) {
    SlantwiseProcessor from, to;
    from.setCurrentProgram(8);
    from.parameter(1).setValue(0.9f);
    prepare(to, 2, 2);
    slantwise_tests::HostRecorder host(to);
    to.setCurrentProgram(8);
    restore(to, stateOf(from));
    processOnce(to);
    EXPECT_TRUE(host.lines.empty()) << host.lines.front();
    EXPECT_EQ(stateOf(to), stateOf(from));

    to.setCurrentProgram(22);
    to.setStateInformation("none", 4);
    processOnce(to);
    EXPECT_EQ(host.lines.size(), QVMParameterCount) << "what is no state takes nothing away";
}

// In LV2 a program comes with a state of the bundle, and the host knows values by what it is told alone.
TEST(SlantwiseProcessor, InLv2AProgramsValuesAreToldAtOnce) {
    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_LV2);
    SlantwiseProcessor processor;
    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_Undefined);
    slantwise_tests::HostRecorder host(processor);
    processor.setCurrentProgram(8);
    EXPECT_EQ(host.lines.size(), QVMParameterCount);
}

// The bypass is the master switch under another name: what the host does to the one it is told of the other, once, and
// not of the one that it changed itself.
TEST(SlantwiseProcessor, TheHostIsToldOfTheOtherNameOfTheMasterSwitch) {
    struct BypassLog final : juce::AudioProcessorParameter::Listener {
        void parameterValueChanged(int, float value) override { told.push_back(value); }
        void parameterGestureChanged(int, bool) override {}
        std::vector<float> told;
    } bypass;
    RunLoop::main().becomeMainThread(); // as an open editor does
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    slantwise_tests::HostRecorder host(processor);
    processor.getBypassParameter()->addListener(&bypass);

    processor.getBypassParameter()->setValue(1);
    processOnce(processor);
    EXPECT_EQ(host.lines, (std::vector<std::string>{"value 0 0"}));
    EXPECT_TRUE(bypass.told.empty());

    processor.parameter(0).setValue(1);
    processOnce(processor);
    EXPECT_EQ(host.lines.size(), 1U);
    EXPECT_EQ(bypass.told, (std::vector<float>{0}));

    const AudioUnitParameter master{&processor.unit(), 0, kAudioUnitScope_Global, 0}; // from the editor
    AUParameterSet(nullptr, nullptr, &master, 0, 0);
    processOnce(processor);
    processOnce(processor);
    EXPECT_EQ(bypass.told, (std::vector<float>{0, 1}));
    processor.endOpenGestures();
    EXPECT_EQ(host.lines, (std::vector<std::string>{"value 0 0", "begin 0", "value 0 0", "end 0"}));
    processor.getBypassParameter()->removeListener(&bypass);
}

TEST(SlantwiseProcessor, ABypassedUnitPassesWhatComesIn) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    processor.parameter(7).setValue(0); // nothing of the processed signal
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

// The toolkit guards its listeners with locks, here as for every value that a host automates.
TEST(SlantwiseProcessor, ABlockThatTellsOfAProgramNeitherAllocatesNorCallsTheSystem) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    juce::AudioBuffer<float> buffer(2, 64);
    juce::MidiBuffer midi;
    buffer.clear();
    processor.setCurrentProgram(22);
    realtime::Offences seen = realtime::offencesOf([&] { processor.processBlock(buffer, midi); });
    EXPECT_EQ(seen.heapCalls, 0U) << seen;
    EXPECT_EQ(seen.systemCalls, 0U) << seen;
    EXPECT_LE(seen.locks, QVMParameterCount + 1) << "the toolkit's, one a parameter";
    seen = realtime::offencesOf([&] { processor.processBlock(buffer, midi); });
    EXPECT_FALSE(seen.any()) << seen;
    seen = realtime::offencesOf([&] {
        processor.parameter(0).setValue(0);
        processor.processBlock(buffer, midi);
    });
    EXPECT_EQ(seen.heapCalls, 0U) << seen;
    EXPECT_EQ(seen.systemCalls, 0U) << seen;
    EXPECT_LE(seen.locks, 1U) << "the toolkit's, for the bypass";
}

TEST(SlantwiseProcessor, ChoosingAPresetInTheEditorTellsTheHostOfTheProgram) {
    RunLoop::main().becomeMainThread(); // as an open editor does
    struct Programs final : juce::AudioProcessorListener {
        void audioProcessorParameterChanged(juce::AudioProcessor*, int, float) override {}
        void audioProcessorChanged(juce::AudioProcessor* processor, const ChangeDetails& details) override {
            if (details.programChanged) told.push_back(processor->getCurrentProgram());
        }
        std::vector<int> told;
    } programs;
    SlantwiseProcessor processor;
    processor.addListener(&programs);
    for (const char* name : {"Air", "Air", "Cellphone"}) {
        const std::string text = name;
        const std::string* reference = &text;
        AudioUnitSetProperty(&processor.unit(), kQVMProperty_PresetName, kAudioUnitScope_Global, 0, &reference,
                             sizeof reference);
    }
    processor.removeListener(&programs);
    EXPECT_EQ(programs.told, (std::vector<int>{8, 22}));
}

TEST(SlantwiseProcessor, AProgramIsChosenOnTheRenderThreadWithoutAllocatingOrLocking) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    int program = 0;
    const realtime::Offences seen = realtime::offencesOf([&] {
        processor.unit().choosePreset(22);
        program = processor.getCurrentProgram();
    });
    EXPECT_FALSE(seen.any()) << seen;
    EXPECT_EQ(program, 22);
    EXPECT_EQ(valueOf(processor, 1), 7);
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
    processor.parameter(1).setValue(0.75f);
    float value = 0;
    EXPECT_EQ(AudioUnitGetParameter(&processor.unit(), 1, kAudioUnitScope_Global, 0, &value), noErr);
    EXPECT_EQ(value, 9);
    EXPECT_TRUE(host.lines.empty()) << host.lines.front();
}

TEST(SlantwiseProcessor, AValueOfTheEditorsReachesTheHostInsideAGesture) {
    RunLoop::main().becomeMainThread(); // as an open editor does
    SlantwiseProcessor processor;
    slantwise_tests::HostRecorder host(processor);
    const AudioUnitParameter gain{&processor.unit(), 1, kAudioUnitScope_Global, 0};
    AUParameterSet(nullptr, nullptr, &gain, 9, 0);
    EXPECT_EQ(host.lines, (std::vector<std::string>{"begin 1", "value 1 0.75"}));
    processor.endOpenGestures();
    processor.endOpenGestures();
    EXPECT_EQ(host.lines, (std::vector<std::string>{"begin 1", "value 1 0.75", "end 1"}));
}

TEST(SlantwiseProcessor, GesturesNeverNestAndNeverEndTwice) {
    RunLoop::main().becomeMainThread(); // as an open editor does
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

TEST(SlantwiseProcessor, StateComesBackEqual) {
    SlantwiseProcessor from, to;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        from.parameter(pid).setValue(static_cast<float>(pid) / 23);
    restore(to, stateOf(from));
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        EXPECT_EQ(to.parameter(pid).getValue(), from.parameter(pid).getValue()) << pid;
    EXPECT_EQ(stateOf(to), stateOf(from));
    EXPECT_NE(stateOf(to), stateOf(*std::make_unique<SlantwiseProcessor>()));
}

TEST(SlantwiseProcessor, StateThatIsNotOursChangesNothingAndIsLogged) {
    SlantwiseProcessor processor;
    processor.parameter(1).setValue(0.25f);
    const juce::MemoryBlock before = stateOf(processor);
    std::vector<juce::MemoryBlock> bad(1);
    for (std::size_t length = 1; length < before.getSize(); length += 7)
        bad.emplace_back(before.getData(), length);
    bad.emplace_back(std::size_t{1} << 20, true);
    bad.emplace_back("RIFF and then nothing", 21);
    for (std::size_t at = 0; at < before.getSize(); ++at) {
        bad.push_back(before);
        bad.back()[at] = static_cast<char>(bad.back()[at] ^ 0x55);
    }
    std::vector<std::string> log;
    const ScopedLogSink sink([&](const std::string& line) { log.push_back(line); });
    for (const juce::MemoryBlock& bytes : bad) {
        restore(processor, bytes);
        ASSERT_EQ(stateOf(processor), before) << bytes.getSize();
    }
    processor.setStateInformation(nullptr, 0);
    processor.setStateInformation(before.getData(), -1);
    EXPECT_EQ(stateOf(processor), before);
    EXPECT_EQ(log.size(), bad.size() + 2);
    EXPECT_EQ(log.front().rfind("state not restored: ", 0), 0U) << log.front();
}

TEST(SlantwiseProcessor, OutputGainIsHeardInEitherPrecision) {
    SlantwiseProcessor processor;
    processor.parameter(7).setValue(processor.parameter(7).getValueForText("-6 dB"));
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

// The negative control: what the same processor does elsewhere is seen by the same trap.
TEST(SlantwiseProcessor, SavingStateIsNotForTheRenderThread) {
    SlantwiseProcessor processor;
    const realtime::Offences seen = realtime::offencesOf([&] { stateOf(processor); });
    EXPECT_TRUE(seen.any());
}

TEST(SlantwiseProcessor, InstancesAreMadeOnSeveralThreadsAtOnce) {
    std::vector<std::future<std::size_t>> results;
    for (int i = 0; i < 8; ++i) {
        results.push_back(std::async(std::launch::async, [] {
            SlantwiseProcessor processor;
            processor.parameter(1).setValue(1);
            return stateOf(processor).getSize();
        }));
    }
    const std::size_t size = results.front().get();
    for (std::size_t i = 1; i < results.size(); ++i)
        EXPECT_EQ(results[i].get(), size);
}

TEST(SlantwiseProcessor, StateIsSavedWhileItIsProcessing) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    std::atomic<bool> done{false};
    auto render = std::async(std::launch::async, [&] {
        juce::AudioBuffer<float> buffer(2, 128);
        juce::MidiBuffer midi;
        while (!done) {
            processor.parameter(1).setValue(0.1f);
            processor.processBlock(buffer, midi);
            processor.parameter(1).setValue(0.9f);
        }
    });
    for (int i = 0; i < 200; ++i)
        restore(processor, stateOf(processor));
    done = true;
    render.get();
    EXPECT_FALSE(stateOf(processor).isEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
