// What a host saves of the processor, and gives back to it.
#include "SlantwiseProcessorBench.h"

#include "platform/system/Log.h"
#include "support/RealtimeTrap.h"

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
