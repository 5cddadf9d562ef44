// A VST3 host that breaks its word, by the format's own interface. The built VST3, without a display.
#include "plugin/host/Vst3Instance.h"

#include <gtest/gtest.h>

#include <pluginterfaces/gui/iplugview.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace slantwise_tests {
namespace {

using namespace Steinberg;

constexpr int32 announcedFrames = 64;
constexpr float level = 0.5F;

// A block of stereo, of either kind of sample, in place unless said otherwise.
template <class Sample>
struct Block {
    explicit Block(int32 frames) : samples(2, std::vector<Sample>(static_cast<std::size_t>(frames), Sample(level))) {
        for (std::size_t channel = 0; channel < pointers.size(); ++channel)
            pointers[channel] = samples[channel].data();
        bus.numChannels = 2;
        setPointers(pointers.data());
        data.symbolicSampleSize = sizeof(Sample) == 4 ? Vst::kSample32 : Vst::kSample64;
        data.numSamples = frames;
        data.numInputs = data.numOutputs = 1;
        data.inputs = data.outputs = &bus;
    }
    void setPointers(Sample** to) {
        if constexpr (sizeof(Sample) == 4)
            bus.channelBuffers32 = to;
        else
            bus.channelBuffers64 = to;
    }
    bool isAll(double expected) const {
        return std::ranges::all_of(samples, [expected](const auto& channel) {
            return std::ranges::all_of(channel, [expected](Sample s) { return std::abs(s - expected) < 1e-6; });
        });
    }

    std::vector<std::vector<Sample>> samples;
    std::array<Sample*, 2> pointers{};
    Vst::AudioBusBuffers bus;
    Vst::ProcessData data;
};

class Vst3Faults : public testing::Test {
protected:
    void setUp(int32 sampleSize = Vst::kSample32) {
        Vst::ProcessSetup setup = {Vst::kRealtime, sampleSize, announcedFrames, 48000};
        EXPECT_EQ(audio_->setupProcessing(setup), kResultTrue);
        EXPECT_EQ(instance_->component().setActive(true), kResultTrue);
        audio_->setProcessing(true);
    }
    void TearDown() override {
        instance_->component().setActive(false);
        audio_ = nullptr;
    }
    template <class Sample = float>
    void expectPlays(int32 frames = announcedFrames) {
        Block<Sample> block(frames);
        EXPECT_EQ(audio_->process(block.data), kResultTrue);
        EXPECT_TRUE(block.isAll(level)) << frames;
    }

    Vst3Module module_;
    std::optional<Vst3Instance> instance_{module_};
    IPtr<Vst::IAudioProcessor> audio_ = instance_->audio();
};

TEST_F(Vst3Faults, ABlockLongerThanAnnouncedIsProcessedToItsEnd) {
    setUp();
    for (const int32 frames : {announcedFrames + 1, 4 * announcedFrames, 100000, 1, 0, announcedFrames})
        expectPlays(frames);
}

TEST_F(Vst3Faults, ABlockOfDoublesLongerThanAnnouncedIsProcessedToItsEnd) {
    setUp(Vst::kSample64);
    for (const int32 frames : {announcedFrames, 100000, announcedFrames})
        expectPlays<double>(frames);
}

TEST_F(Vst3Faults, ItPlaysBeforeItIsSetUp) {
    expectPlays();
    expectPlays(100000);
}

TEST_F(Vst3Faults, BusesThatAreCountedAndNotThereAreNone) {
    setUp();
    for (const bool hasInputs : {false, true}) {
        for (const bool hasOutputs : {false, true}) {
            Block<float> block(announcedFrames);
            if (!hasInputs) block.data.inputs = nullptr;
            if (!hasOutputs) block.data.outputs = nullptr;
            EXPECT_EQ(audio_->process(block.data), kResultTrue);
            EXPECT_TRUE(block.isAll(hasOutputs && !hasInputs ? 0 : level)) << hasInputs << hasOutputs;
        }
    }
    Block<float> backwards(announcedFrames);
    backwards.data.numSamples = -1;
    audio_->process(backwards.data);
    EXPECT_TRUE(backwards.isAll(level));
    expectPlays();
}

TEST_F(Vst3Faults, ChannelsWithoutSamplesAreSilentAndTheRestIsLeftAlone) {
    setUp();
    {
        Block<float> block(announcedFrames);
        block.setPointers(nullptr);
        EXPECT_EQ(audio_->process(block.data), kResultTrue);
    }
    for (const std::size_t missing : {0U, 1U}) {
        Block<float> block(announcedFrames);
        block.pointers.at(missing) = nullptr;
        EXPECT_EQ(audio_->process(block.data), kResultTrue);
        EXPECT_EQ(block.samples.at(1 - missing).back(), 0);
    }
    expectPlays();
}

TEST_F(Vst3Faults, SilentFlagsAndSeparateBuffersAreTakenAsTheyAre) {
    setUp();
    Block<float> in(announcedFrames), out(announcedFrames);
    in.bus.silenceFlags = 3;
    for (auto& channel : in.samples)
        std::ranges::fill(channel, 0.0F);
    in.data.outputs = &out.bus;
    EXPECT_EQ(audio_->process(in.data), kResultTrue);
    EXPECT_TRUE(out.isAll(0));
    expectPlays();
}

TEST_F(Vst3Faults, ValuesThatAreNoNumbersLeaveEveryValueInItsRange) {
    setUp();
    for (const double value :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), -1.0, 1e300}) {
        for (const Vst::ParameterInfo& info : instance_->parameters()) {
            instance_->controller().setParamNormalized(info.id, value);
            const double now = instance_->controller().getParamNormalized(info.id);
            EXPECT_TRUE(now >= 0 && now <= 1) << plainText(info.title) << " " << value << " " << now;
        }
        Block<float> block(announcedFrames);
        audio_->process(block.data);
        for (const auto& channel : block.samples)
            EXPECT_TRUE(std::ranges::all_of(channel, [](float s) { return std::isfinite(s); })) << value;
    }
}

// The host lets go of the plug-in first and of its editor afterwards.
TEST_F(Vst3Faults, AnEditorMayOutliveTheInstance) {
    setUp();
    expectPlays();
    IPtr<IPlugView> view = owned(instance_->controller().createView(Vst::ViewType::kEditor));
    ASSERT_TRUE(view);
    ViewRect size;
    EXPECT_EQ(view->getSize(&size), kResultTrue);
    EXPECT_EQ(size.getWidth(), 480);
    instance_->component().setActive(false);
    audio_ = nullptr;
    instance_.reset();
    EXPECT_EQ(view->getSize(&size), kResultTrue);
    view = nullptr;
    instance_.emplace(module_);
    audio_ = instance_->audio();
    setUp();
    expectPlays();
}

} // namespace
} // namespace slantwise_tests
