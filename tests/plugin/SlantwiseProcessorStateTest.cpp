// What a host saves of the processor, and gives back to it.
#include "SlantwiseProcessorBench.h"

#include "platform/system/Log.h"
#include "support/RealtimeTrap.h"
#include "support/StateBytes.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>

namespace QVM_NAMESPACE {
namespace {

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
    processor.parameter(pidTiltGain).setValue(0.25f);
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

// What a session keeps is the unit's bytes: a processor of another build may have written them.
TEST(SlantwiseProcessor, AStateOfABuildWithFewerOrMoreParametersIsRestored) {
    UnitState saved;
    saved.settings.presetName = "Warmer";
    const UnitParameters::Values initial = UnitParameters::initialValues();
    std::vector<float> values(initial.begin(), initial.end());
    values.resize(values.size() + 5, 1e6F);
    values[pidTiltGain] = -6;
    for (const std::size_t count : {std::size_t{2}, values.size()}) {
        SlantwiseProcessor processor;
        const statebytes::Bytes bytes = statebytes::withValues(saved, std::span(values).first(count));
        restore(processor, {bytes.data(), bytes.size()});
        EXPECT_EQ(processor.parameter(pidTiltGain).getCurrentValueAsText(), "-6.0 dB");
        EXPECT_EQ(processor.parameter(pidFilterSlopeLow).getCurrentValueAsText(), "12.0 dB/Oct");
        EXPECT_EQ(processor.getProgramName(processor.getCurrentProgram()), "Warmer");
    }
}

TEST(SlantwiseProcessor, AMutatedStateChangesNothingAndIsLoggedOrIsRestoredWhole) {
    SlantwiseProcessor processor;
    processor.parameter(pidTiltGain).setValue(0.25f);
    const auto bytesOf = [](const juce::MemoryBlock& block) { return statebytes::Bytes(block.begin(), block.end()); };
    statebytes::Mutations mutations({bytesOf(stateOf(processor))}, 7);
    int logged = 0, restored = 0;
    const ScopedLogSink sink([&](const std::string&) { ++logged; });
    for (int round = 0; round < 10'000; ++round) {
        const statebytes::Bytes bytes = mutations.next();
        const juce::MemoryBlock before = stateOf(processor);
        logged = 0;
        restore(processor, {bytes.data(), bytes.size()});
        if (logged == 1) {
            ASSERT_EQ(stateOf(processor), before) << round;
        } else if (statebytes::wordAt(bytes, statebytes::countWord) == QVMParameterCount) {
            ASSERT_EQ(bytesOf(stateOf(processor)), bytes) << round;
            ++restored;
        }
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            const float value = processor.parameter(pid).getValue();
            ASSERT_TRUE(value >= 0 && value <= 1) << round << ": " << pid << " is " << value;
        }
    }
    EXPECT_GT(restored, 500);
}

// The negative control: what the same processor does elsewhere is seen by the same trap.
TEST(SlantwiseProcessor, SavingStateIsNotForTheRenderThread) {
    SlantwiseProcessor processor;
    const realtime::Offences seen = realtime::offencesOf([&] { stateOf(processor); });
    EXPECT_TRUE(seen.any());
}

TEST(SlantwiseProcessor, StateIsSavedWhileItIsProcessing) {
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    std::atomic<bool> done{false};
    auto render = std::async(std::launch::async, [&] {
        juce::AudioBuffer<float> buffer(2, 128);
        juce::MidiBuffer midi;
        while (!done) {
            processor.parameter(pidTiltGain).setValue(0.1f);
            processor.processBlock(buffer, midi);
            processor.parameter(pidTiltGain).setValue(0.9f);
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
