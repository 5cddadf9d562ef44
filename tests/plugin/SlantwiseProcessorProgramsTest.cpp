// The factory presets as the host's programs.
#include "SlantwiseProcessorBench.h"

#include "description/Description.h"
#include "description/Presets.h"
#include "plugin/HostRecorder.h"
#include "support/RealtimeTrap.h"
#include "unit/PrivateProperties.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

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

TEST(SlantwiseProcessor, AProgramSetsEverythingButTheQualityMode) {
    SlantwiseProcessor processor;
    processor.parameter(pidHQMode).setValue(1);
    for (int index = processor.getNumPrograms() - 1; index >= 0; --index) {
        processor.setCurrentProgram(index);
        EXPECT_EQ(processor.getCurrentProgram(), index);
        const auto values = PresetIndexToPresetValues(index);
        for (std::uint32_t pid = 0; pid < 23; ++pid)
            EXPECT_EQ(valueOf(processor, pid), GetParameter(pid)->reverseCastValue(values->at(pid)))
                << index << " " << pid;
        EXPECT_EQ(valueOf(processor, pidHQMode), 1);
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
    from.parameter(pidTiltGain).setValue(0.9f);
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
    EXPECT_EQ(valueOf(to, pidTiltGain), 0);
}

TEST(SlantwiseProcessor, AProgramsValuesAreToldByTheNextBlockOnce) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    slantwise_tests::HostRecorder host(processor);
    processor.setCurrentProgram(22);
    EXPECT_TRUE(host.lines.empty()) << host.lines.front();
    processOnce(processor);
    EXPECT_EQ(host.lines.size(), QVMParameterCount + 1);
    EXPECT_THAT(host.lines, testing::Contains("value 1 0.694444")); // 7 dB
    host.lines.clear();
    processOnce(processor);
    EXPECT_TRUE(host.lines.empty()) << host.lines.front();
}

TEST(SlantwiseProcessor, ARestoredStateTakesAwayWhatWasToBeToldOfAProgram) {
    SlantwiseProcessor from, to;
    from.setCurrentProgram(8);
    from.parameter(pidTiltGain).setValue(0.9f);
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
    EXPECT_EQ(host.lines.size(), QVMParameterCount + 1) << "what is no state takes nothing away";
}

// In LV2 a program comes with a state of the bundle, and the host knows values by what it is told alone.
TEST(SlantwiseProcessor, InLv2AProgramsValuesAreDueUntilTheyAreTaken) {
    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_LV2);
    SlantwiseProcessor processor;
    juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_Undefined);
    constexpr std::uint32_t all = (1U << QVMParameterCount) - 1;
    processor.setCurrentProgram(8);
    processOnce(processor);
    EXPECT_EQ(processor.takeDue() & all, all);
    EXPECT_EQ(processor.takeDue(), 0U);
    processor.setCurrentProgram(8);
    EXPECT_EQ(processor.takeDue() & all, all) << "the same preset, once more by hand";
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
        processor.parameter(pidMasterOnOff).setValue(0);
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

TEST(SlantwiseProcessor, APresetOfTheUsersIsNoProgramAndTheEchoOfOneLeavesItsValues) {
    SlantwiseProcessor processor;
    processor.setCurrentProgram(8);
    const std::string users = "User: Warm";
    const std::string* const name = &users;
    AudioUnitSetParameter(&processor.unit(), pidTiltGain, kAudioUnitScope_Global, 0, 4.5f, 0);
    AudioUnitSetProperty(&processor.unit(), kQVMProperty_PresetName, kAudioUnitScope_Global, 0, &name, sizeof(name));
    EXPECT_EQ(processor.getNumPrograms(), static_cast<int>(QVMPresetCount));
    const auto before = stateOf(processor);
    processor.setCurrentProgram(processor.getCurrentProgram());
    EXPECT_EQ(stateOf(processor), before);
    SlantwiseProcessor restored;
    restore(restored, before);
    EXPECT_EQ(stateOf(restored), before);
    processor.setCurrentProgram(8);
    EXPECT_EQ(processor.getCurrentProgram(), 8) << "any other one is asked for";
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
    EXPECT_EQ(valueOf(processor, pidTiltGain), 7);
}

} // namespace
} // namespace QVM_NAMESPACE
