// The signal on its way from the unit to an editor that wants to see it.
#include "unit/QVM0015_AudioUnit.h"

#include "support/RealtimeTrap.h"
#include "unit/Signals.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <memory>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

class UnitTap : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(unit.prepare(96000, 512, 2, 2), noErr);
        lend(state.get());
    }
    void TearDown() override { lend(nullptr); }
    void lend(SharedState* lent) {
        ASSERT_EQ(AudioUnitSetProperty(&unit, kQVMProperty_VizRef, kAudioUnitScope_Global, 0, &lent, sizeof(lent)),
                  noErr);
    }
    static std::unique_ptr<SharedState> makeState() {
        auto made = std::make_unique<SharedState>();
        made->glide.sizeStates(UnitParameters::count);
        return made;
    }
    void set(std::uint32_t pid, float value) { AudioUnitSetParameter(&unit, pid, kAudioUnitScope_Global, 0, value, 0); }
    // In place, as hosts do.
    void render(std::vector<float>& left, std::vector<float>& right) {
        float* channels[] = {left.data(), right.data()};
        unit.process(channels, channels, static_cast<std::uint32_t>(left.size()));
    }
    std::vector<float> tone(double amplitude, std::size_t frames = 1000) {
        return signals::tone<float>(frames, 1000, amplitude);
    }

    QVM0015_AudioUnit unit;
    std::unique_ptr<SharedState> state = makeState();
};

TEST_F(UnitTap, HearsNothingUntilItIsWanted) {
    std::vector<float> left = tone(0.5), right = tone(0.25);
    render(left, right);
    EXPECT_TRUE(state->tap.waiting().empty());
    EXPECT_EQ(state->tap.sampleRateHz(), 0);
}

TEST_F(UnitTap, HearsWhatGoesInBesideWhatComesOut) {
    ASSERT_TRUE(state->tap.setWanted(true));
    set(pidOutputGain, 6);
    std::vector<float> left = tone(0.5), right = tone(0.25);
    const std::vector<float> leftIn = left, rightIn = right;
    render(left, right);
    ASSERT_NE(left, leftIn) << "the gain is heard";
    const std::span<const TapFrame> heard = state->tap.waiting();
    ASSERT_EQ(heard.size(), 1000u);
    for (std::size_t i = 0; i < heard.size(); ++i) {
        ASSERT_EQ(heard[i].input, (std::array{leftIn[i], rightIn[i]})) << i;
        ASSERT_EQ(heard[i].output, (std::array{left[i], right[i]})) << i;
    }
    EXPECT_EQ(state->tap.sampleRateHz(), 96000);
}

TEST_F(UnitTap, OneChannelIsHeardOnBothSides) {
    ASSERT_EQ(unit.prepare(48000, 512, 1, 1), noErr);
    ASSERT_TRUE(state->tap.setWanted(true));
    std::vector<float> mono = tone(0.5, 300);
    float* channel[] = {mono.data()};
    unit.process(channel, channel, 300);
    ASSERT_EQ(state->tap.waiting().size(), 300u);
    for (const TapFrame& frame : state->tap.waiting()) {
        ASSERT_EQ(frame.input[0], frame.input[1]);
        ASSERT_EQ(frame.output[0], frame.output[1]);
    }
    EXPECT_EQ(state->tap.waiting()[7].input[0], tone(0.5, 300)[7]);
}

TEST_F(UnitTap, AsksForAFrameWhereThereIsSomethingToBeSeen) {
    ASSERT_TRUE(state->tap.setWanted(true));
    set(pidOutputGain, -96);
    set(pidMeterMode, 1); // of the output, which is silent
    std::vector<float> left = tone(0.5, 20000), right = left;
    render(left, right);
    state->frameRequest.take();
    left = right = tone(0.5);
    render(left, right);
    EXPECT_TRUE(state->frameRequest.take()) << "the input is heard";
    std::ranges::fill(left, 0.0f);
    right = left;
    render(left, right); // what rings on may ask once more
    render(left, right);
    state->frameRequest.take();
    render(left, right);
    EXPECT_FALSE(state->frameRequest.take()) << "silence moves nothing";
    state->tap.setWanted(false);
    left = right = tone(0.5);
    render(left, right);
    EXPECT_FALSE(state->frameRequest.take()) << "nobody looks at the input";
}

TEST_F(UnitTap, NeitherAllocatesNorLocksNorCallsTheSystem) {
    for (const bool isWanted : {false, true}) {
        ASSERT_TRUE(state->tap.setWanted(isWanted));
        std::vector<float> left = tone(0.5, 5000), right = left;
        const realtime::Offences seen = realtime::offencesOf([&] {
            for (int i = 0; i < 5; ++i) // more than there is room for
                render(left, right);
        });
        EXPECT_FALSE(seen.any()) << seen << ", wanted " << isWanted;
    }
    EXPECT_EQ(state->tap.waiting().size(), AudioTap::capacity);
}

// Editors that come, want the signal and go, while it is rendered: nothing is written into what has gone.
TEST_F(UnitTap, AnEditorMayGoInTheMiddleOfABlock) {
    std::atomic<bool> stop = false;
    std::thread audio([&] {
        std::vector<float> left = tone(0.5, 2000), right = left;
        while (!stop)
            render(left, right);
    });
    std::size_t heard = 0;
    for (int i = 0; i < 300; ++i) {
        std::unique_ptr<SharedState> other = makeState();
        lend(other.get());
        ASSERT_TRUE(other->tap.setWanted(true));
        while (i % 3 == 0 && other->tap.waiting().empty())
            std::this_thread::yield();
        heard += other->tap.waiting().size();
        lend(nullptr);
    }
    stop = true;
    audio.join();
    EXPECT_GT(heard, 0u);
}

} // namespace
} // namespace QVM_NAMESPACE
