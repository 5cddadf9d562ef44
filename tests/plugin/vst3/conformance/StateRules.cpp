// What passes between component, controller and host beside the blocks.
#include "plugin/host/Vst3Process.h"
#include "plugin/vst3/conformance/ConformanceRule.h"

#include <gtest/gtest.h>

#include <pluginterfaces/vst/ivstmessage.h>
#include <public.sdk/source/common/memorystream.h>

#include <array>
#include <atomic>
#include <thread>

namespace slantwise_tests {
namespace {

using namespace Steinberg;

std::string bytesOf(MemoryStream& stream) {
    return {stream.getData(), static_cast<std::size_t>(stream.getSize())};
}

void stateBeforeAndWhileActive(Vst3UnderTest& plugin) {
    const Vst::ParamID gain = plugin.instance().parameter("Tilt Gain").id;
    MemoryStream saved, again;
    plugin.controller().setParamNormalized(gain, 0.875);
    ASSERT_EQ(plugin.component().getState(&saved), kResultTrue);
    plugin.controller().setParamNormalized(gain, 0.25);
    plugin.restore(saved);
    EXPECT_NEAR(plugin.controller().getParamNormalized(gain), 0.875, 1e-6);
    {
        const Vst3UnderTest::Running running(plugin, Vst::kSample32);
        plugin.controller().setParamNormalized(gain, 0.25);
        plugin.restore(saved);
        EXPECT_NEAR(plugin.controller().getParamNormalized(gain), 0.875, 1e-6);
        ASSERT_EQ(plugin.component().getState(&again), kResultTrue);
    }
    EXPECT_EQ(bytesOf(again), bytesOf(saved));
    // A controller that stands elsewhere learns the values from the component's
    // state.
    Vst3Instance other(plugin.module());
    saved.seek(0, IBStream::kIBSeekSet, nullptr);
    other.component().setState(&saved);
    saved.seek(0, IBStream::kIBSeekSet, nullptr);
    EXPECT_EQ(other.controller().setComponentState(&saved), kResultTrue);
    EXPECT_NEAR(other.controller().getParamNormalized(gain), 0.875, 1e-6);
    plugin.controller().setParamNormalized(gain, 0.5);
}

void statesThatAreNone(Vst3UnderTest& plugin) {
    const Vst::ParamID gain = plugin.instance().parameter("Tilt Gain").id;
    plugin.controller().setParamNormalized(gain, 0.75);
    MemoryStream empty;
    plugin.component().setState(&empty);
    std::array<char, 64> bytes{};
    bytes.fill('x');
    MemoryStream garbage(bytes.data(), static_cast<TSize>(bytes.size()));
    plugin.component().setState(&garbage);
    EXPECT_NE(plugin.component().setState(nullptr), kResultTrue);
    EXPECT_NE(plugin.component().getState(nullptr), kResultTrue);
    EXPECT_NEAR(plugin.valueOfState(gain), 0.75, 1e-6);
    MemoryStream editing;
    plugin.controller().getState(&editing);
    editing.seek(0, IBStream::kIBSeekSet, nullptr);
    plugin.controller().setState(&editing);
}

void connectedAndParted(Vst3UnderTest& plugin) {
    const FUnknownPtr<Vst::IConnectionPoint> processing(&plugin.component()), editing(&plugin.controller());
    ASSERT_TRUE(processing && editing);
    processing->connect(nullptr);
    EXPECT_EQ(processing->disconnect(editing), kResultTrue);
    EXPECT_EQ(editing->disconnect(processing), kResultTrue);
    EXPECT_EQ(processing->connect(editing), kResultTrue);
    editing->connect(processing); // they know each other still
    const Vst::ParamID gain = plugin.instance().parameter("Tilt Gain").id;
    plugin.controller().setParamNormalized(gain, 0.625);
    EXPECT_NEAR(plugin.valueOfState(gain), 0.625, 1e-6);
    TUID id = {};
    EXPECT_EQ(plugin.component().getControllerClassId(id), kResultTrue);
}

void otherThreadsAskWhileAudioRuns(Vst3UnderTest& plugin) {
    const Vst3UnderTest::Running running(plugin, Vst::kSample32);
    std::atomic<bool> isOver = false;
    std::thread audio([&] {
        while (!isOver) {
            Vst3Block<float> block(64);
            plugin.processor()->process(block.data);
        }
    });
    for (int i = 0; i < 20; ++i) {
        for (const Vst::ParameterInfo& info : plugin.instance().parameters()) {
            plugin.controller().setParamNormalized(info.id, (i % 5) / 4.0);
            plugin.controller().getParamNormalized(info.id);
        }
        MemoryStream state;
        plugin.component().getState(&state);
    }
    isOver = true;
    audio.join();
    for (const Vst::ParameterInfo& info : plugin.instance().parameters())
        plugin.controller().setParamNormalized(info.id, info.defaultNormalizedValue);
}

} // namespace

std::vector<ConformanceRule> stateRules() {
    return {
        {"StateBeforeAndWhileActive", &stateBeforeAndWhileActive},
        {"StatesThatAreNone", &statesThatAreNone},
        {"ConnectedAndParted", &connectedAndParted},
        {"OtherThreadsAskWhileAudioRuns", &otherThreadsAskWhileAudioRuns},
    };
}

} // namespace slantwise_tests
