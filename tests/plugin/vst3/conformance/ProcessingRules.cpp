// What a host does with blocks, and with what comes along with them.
#include "plugin/host/Vst3Process.h"
#include "plugin/vst3/conformance/ConformanceRule.h"

#include <gtest/gtest.h>

#include <pluginterfaces/vst/ivstprocesscontext.h>

#include <algorithm>
#include <cmath>

namespace slantwise_tests {
namespace {

using namespace Steinberg;

template <class Sample>
constexpr int32 sizeOf() {
    return sizeof(Sample) == sizeof(float) ? Vst::kSample32 : Vst::kSample64;
}

template <class Sample>
void expectFinite(const Vst3Block<Sample>& block) {
    for (const auto& channel : block.out)
        for (const Sample sample : channel)
            ASSERT_TRUE(std::isfinite(sample) && std::abs(sample) < 8) << sample << " of " << channel.size();
}

template <class Sample>
void everyBlockLengthAtEveryRate(Vst3UnderTest& plugin) {
    for (const double rate : {22050.0, 44100.0, 48000.0, 96000.0, 192000.0, 384000.0}) {
        const Vst3UnderTest::Running running(plugin, sizeOf<Sample>(), rate);
        for (const int32 frames : {1, 2, 15, 16, 64, 511, Vst3UnderTest::maxFrames, 3, 0, 7}) {
            Vst3Block<Sample> block(frames);
            block.fill(Sample(0.5));
            EXPECT_EQ(plugin.processor()->process(block.data), kResultTrue) << frames;
            expectFinite(block);
        }
    }
}

void suspendAndResume(Vst3UnderTest& plugin) {
    for (int i = 0; i < 3; ++i) {
        const Vst3UnderTest::Running running(plugin, Vst::kSample32);
        for (int j = 0; j < 3; ++j) {
            plugin.processor()->setProcessing(false);
            plugin.processor()->setProcessing(true);
            Vst3Block<float> block(Vst3UnderTest::maxFrames);
            EXPECT_EQ(plugin.processor()->process(block.data), kResultTrue);
        }
    }
    // Without setProcessing, and twice, as some hosts do.
    plugin.setUp(Vst::kSample32);
    for (const TBool active : {true, true, false, false, true})
        EXPECT_EQ(plugin.component().setActive(active), kResultTrue);
    Vst3Block<float> block(64);
    EXPECT_EQ(plugin.processor()->process(block.data), kResultTrue);
    plugin.component().setActive(false);
}

void flushWithoutBuffers(Vst3UnderTest& plugin) {
    const Vst::ParamID gain = plugin.instance().parameter("Tilt Gain").id;
    const Vst3UnderTest::Running running(plugin, Vst::kSample32);
    for (const double value : {0.25, 0.75, 0.5}) {
        Vst::ProcessData data;
        Vst3Changes changes, answers;
        changes.queues.emplace_back(gain, Vst3Points::Points{{0, value}});
        data.symbolicSampleSize = Vst::kSample32;
        data.inputParameterChanges = &changes;
        data.outputParameterChanges = &answers;
        EXPECT_EQ(plugin.processor()->process(data), kResultTrue);
        EXPECT_NEAR(plugin.valueOfState(gain), value, 1e-6);
    }
    Vst::ProcessData empty;
    empty.symbolicSampleSize = Vst::kSample32;
    EXPECT_EQ(plugin.processor()->process(empty), kResultTrue) << "no changes, no place for any";
}

void busesMayHaveNoBuffers(Vst3UnderTest& plugin) {
    const Vst3UnderTest::Running running(plugin, Vst::kSample32);
    Vst3Block<float> noChannels(64);
    noChannels.input.channelBuffers32 = noChannels.output.channelBuffers32 = nullptr;
    noChannels.input.numChannels = noChannels.output.numChannels = 0;
    plugin.processor()->process(noChannels.data);
    Vst3Block<float> nullChannels(64);
    nullChannels.inPointers[1] = nullChannels.outPointers[1] = nullptr;
    plugin.processor()->process(nullChannels.data);
    Vst3Block<float> noInput(64);
    noInput.data.numInputs = 0;
    noInput.data.inputs = nullptr;
    plugin.processor()->process(noInput.data);
    Vst3Block<float> noOutput(64);
    noOutput.data.numOutputs = 0;
    noOutput.data.outputs = nullptr;
    plugin.processor()->process(noOutput.data);
    Vst3Block<float> inPlace(64);
    inPlace.output.channelBuffers32 = inPlace.inPointers;
    inPlace.fill(0.25f);
    EXPECT_EQ(plugin.processor()->process(inPlace.data), kResultTrue);
    Vst3Block<float> block(64);
    EXPECT_EQ(plugin.processor()->process(block.data), kResultTrue) << "and goes on";
    expectFinite(block);
}

void silenceIsToldAndUnderstood(Vst3UnderTest& plugin) {
    const Vst3UnderTest::Running running(plugin, Vst::kSample32);
    Vst3Block<float> silent(Vst3UnderTest::maxFrames);
    silent.input.silenceFlags = 3;
    for (int i = 0; i < 200; ++i)
        plugin.processor()->process(silent.data);
    for (const auto& channel : silent.out)
        EXPECT_EQ(*std::max_element(channel.begin(), channel.end()), 0);
    Vst3Block<float> loud(Vst3UnderTest::maxFrames);
    loud.fill(0.5f);
    loud.output.silenceFlags = 3; // the host's leftovers
    plugin.processor()->process(loud.data);
    EXPECT_EQ(loud.output.silenceFlags, 0U) << "what sounds is not called silent";
}

void valuesAtSamplesOfABlock(Vst3UnderTest& plugin) {
    const Vst3UnderTest::Running running(plugin, Vst::kSample32);
    const auto parameters = plugin.instance().parameters();
    Vst3Block<float> block(Vst3UnderTest::maxFrames);
    block.fill(0.5f);
    for (const Vst::ParameterInfo& info : parameters)
        block.changes.queues.emplace_back(
            info.id, Vst3Points::Points{
                         {0, 0.0}, {0, 0.3}, {100, 1.0}, {Vst3UnderTest::maxFrames - 1, info.defaultNormalizedValue}});
    block.changes.queues.emplace_back(0x7ffffff1, Vst3Points::Points{{0, 0.5}}); // there is none
    block.changes.queues.emplace_back(parameters[1].id);                         // of no points
    EXPECT_EQ(plugin.processor()->process(block.data), kResultTrue);
    expectFinite(block);
    for (const double value : {0.125, 0.875}) {
        Vst3Block<float> late(Vst3UnderTest::maxFrames);
        late.changes.queues.emplace_back(parameters[1].id,
                                         Vst3Points::Points{{0, 0.5}, {Vst3UnderTest::maxFrames - 1, value}});
        plugin.processor()->process(late.data);
        EXPECT_NEAR(plugin.valueOfState(parameters[1].id), value, 1e-6) << "the last one counts";
    }
}

void contextsOfEveryKind(Vst3UnderTest& plugin) {
    Vst::ProcessContext context = {};
    for (const uint32 state : {0xffffffffU, uint32(Vst::ProcessContext::kPlaying), 0U}) {
        const Vst3UnderTest::Running running(plugin, Vst::kSample32);
        context.state = state;
        context.sampleRate = 48000;
        Vst3Block<float> block(64);
        block.data.processContext = &context;
        EXPECT_EQ(plugin.processor()->process(block.data), kResultTrue);
    }
    for (const int32 mode : {Vst::kOffline, Vst::kPrefetch, Vst::kRealtime})
        plugin.setUp(Vst::kSample32, 48000, mode);
    EXPECT_NE(plugin.component().setIoMode(Vst::kAdvanced), kInternalError);
}

} // namespace

std::vector<ConformanceRule> processingRules() {
    return {
        {"EveryBlockLengthAtEveryRate32", &everyBlockLengthAtEveryRate<float>},
        {"EveryBlockLengthAtEveryRate64", &everyBlockLengthAtEveryRate<double>},
        {"SuspendAndResume", &suspendAndResume},
        {"FlushWithoutBuffers", &flushWithoutBuffers},
        {"BusesMayHaveNoBuffers", &busesMayHaveNoBuffers},
        {"SilenceIsToldAndUnderstood", &silenceIsToldAndUnderstood},
        {"ValuesAtSamplesOfABlock", &valuesAtSamplesOfABlock},
        {"ContextsOfEveryKind", &contextsOfEveryKind},
    };
}

} // namespace slantwise_tests
