// A session is loaded: the host sets a program and a state, in either order, with no editor open and so off the thread
// that the plug-in takes messages on. The built VST3; LV2 has no programs beside its states.
#include "plugin/host/HostedPlugin.h"
#include "plugin/host/Vst3Block.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace QVM_NAMESPACE {
namespace {

using slantwise_tests::Format;
using slantwise_tests::HostedPlugin;
using slantwise_tests::parametersChangedByBlock;

class ProgramAndState : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(saved_.instance(), nullptr) << saved_.error();
        ASSERT_NE(loaded_.instance(), nullptr) << loaded_.error();
        // A program, and one of its values changed since.
        choose(saved_, "Air");
        saved_.run(0.1);
        saved_.parameter("Tilt Gain").setValue(0.9F);
        saved_.run(0.1);
        state_ = stateOf(saved_);
    }

    static void choose(HostedPlugin& plugin, const juce::String& name) {
        juce::AudioPluginInstance& instance = *plugin.instance();
        int index = 0;
        while (index < instance.getNumPrograms() && instance.getProgramName(index) != name)
            ++index;
        ASSERT_LT(index, instance.getNumPrograms());
        instance.setCurrentProgram(index);
    }
    void restore() { loaded_.instance()->setStateInformation(state_.getData(), static_cast<int>(state_.getSize())); }
    static juce::MemoryBlock stateOf(HostedPlugin& plugin) {
        juce::MemoryBlock bytes;
        plugin.instance()->getStateInformation(bytes);
        return bytes;
    }
    // By several blocks, and by what a host writes back of them.
    void expectThatTheStateStays() {
        for (int block = 0; block < 4; ++block)
            EXPECT_EQ(parametersChangedByBlock(*loaded_.instance()), (std::map<std::string, float>{})) << block;
        loaded_.run(0.3);
        EXPECT_EQ(stateOf(loaded_), state_);
    }

    HostedPlugin saved_{Format::vst3}, loaded_{Format::vst3};
    juce::MemoryBlock state_;
};

TEST_F(ProgramAndState, AStateAfterItsProgramKeepsItsValues) {
    choose(loaded_, "Air");
    restore();
    expectThatTheStateStays();
}

TEST_F(ProgramAndState, AStateBeforeItsProgramKeepsItsValues) {
    restore();
    choose(loaded_, "Air");
    expectThatTheStateStays();
}

TEST_F(ProgramAndState, AStateBeforeTheProgramOfANewInstanceKeepsItsValues) {
    restore();
    choose(loaded_, "Default");
    expectThatTheStateStays();
}

// A program alone is told of, once, value by value: in the first block, as the host's own list does not say them.
TEST_F(ProgramAndState, AProgramAloneIsToldToTheHost) {
    choose(loaded_, "Cellphone");
    const auto told = parametersChangedByBlock(*loaded_.instance());
    EXPECT_GE(told.size(), 23U);
    ASSERT_TRUE(told.contains("Tilt Gain"));
    EXPECT_NEAR(told.at("Tilt Gain"), (7.0 + 18) / 36, 1e-5);
    EXPECT_EQ(parametersChangedByBlock(*loaded_.instance()), (std::map<std::string, float>{}));
}

} // namespace
} // namespace QVM_NAMESPACE
