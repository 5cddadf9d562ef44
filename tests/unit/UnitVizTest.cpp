// The unit and the state that an editor's drawing object shares with it, through the unit's own interface.
#include "unit/MeterDrawing.h"
#include "unit/QVM0015_AudioUnit.h"
#include "unit/Signals.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

class UnitViz : public testing::Test {
protected:
    void SetUp() override { give(drawing->sharedState); }
    ~UnitViz() override { close(); }
    void give(SharedState& state) {
        SharedState* vizRef = &state;
        AudioUnitSetProperty(&unit, 64011, 0, 0, &vizRef, sizeof(void*));
    }
    void close() {
        const std::uint32_t one = 1;
        AudioUnitSetProperty(&unit, 64012, 0, 0, &one, sizeof one);
    }
    void play(float amplitude, std::uint32_t frames) {
        std::vector<float> left = signals::tone<float>(frames, 1000, amplitude), right = left;
        float* channels[] = {left.data(), right.data()};
        unit.process(channels, channels, frames);
    }

    std::unique_ptr<QVM0015GLSketch> drawing = makeDrawing();
    QVM0015_AudioUnit unit;
};

TEST_F(UnitViz, AChangeOfTheHostsIsPostedWithNoAudio) {
    AudioUnitSetParameter(&unit, 1, 0, 0, -4, 0);
    EXPECT_EQ(drawing->parameterStates()[pidTiltGain].value, -4);
}

TEST_F(UnitViz, ARestoredStateIsPosted) {
    QVM0015_AudioUnit other;
    AudioUnitSetParameter(&other, 1, 0, 0, 9, 0);
    ASSERT_EQ(unit.restoreState(other.saveState()), UnitStateResult::ok);
    EXPECT_EQ(drawing->parameterStates()[pidTiltGain].value, 9);
}

TEST_F(UnitViz, TheMeterShowsTheOutput) {
    AudioUnitSetParameter(&unit, 8, 0, 0, 1, 0); // what leaves, not what comes in
    AudioUnitSetParameter(&unit, 7, 0, 0, -6, 0);
    AudioUnitSetParameter(&unit, 8, 0, 0, 1, 0); // after the gain, not before it
    play(0.5f, 4096);                            // past the gain's ramp
    play(0.5f, 512);
    EXPECT_NEAR(drawing->levelMeter()->channel(0).level, -12.0f, 0.1);
    play(0.5f, 0);
    EXPECT_NEAR(drawing->levelMeter()->channel(0).level, -12.0f, 0.1) << "an empty block says nothing";
}

TEST_F(UnitViz, AResetClearsWhatTheUserSees) {
    play(1, 512);
    const PBGLCanvas canvas = meterCanvas(1);
    drawing->prepareForDrawing(canvas, 0.1f);
    QVMLevelMeter::Channel& left = drawing->levelMeter()->channel(0);
    ASSERT_GT(left.clip, 0.9f);
    ASSERT_GT(left.fill, 0.5f);
    play(1, 512);
    const std::uint32_t one = 1;
    ASSERT_EQ(AudioUnitSetProperty(&unit, 64007, 0, 0, &one, sizeof one), noErr);
    drawing->prepareForDrawing(canvas, 0.1f);
    EXPECT_EQ(left.clip, 0);
    EXPECT_NEAR(left.fill, 0, 1e-6);
    EXPECT_EQ(left.display, -96);
}

TEST_F(UnitViz, ANewFormatStartsInSilence) {
    play(0.5f, 512);
    ASSERT_EQ(unit.prepare(48000, 512, 2, 2), noErr);
    EXPECT_EQ(drawing->levelMeter()->channel(0).level, -96);
}

// Under the thread and address sanitizers the test is that they say nothing: each object dies right after it was given
// up, while the render thread and a host's automation go on.
TEST_F(UnitViz, OpensAndClosesThousandsOfTimesWhileRendering) {
    std::atomic<bool> stop = false;
    std::atomic<int> blocks = 0;
    std::thread render([&] {
        for (float amplitude = 0.1f; !stop; amplitude = 1 - amplitude) {
            play(amplitude, 64);
            ++blocks;
        }
    });
    std::thread automation([&] {
        for (int i = 0; !stop; ++i)
            AudioUnitSetParameter(&unit, static_cast<std::uint32_t>(i % 24), 0, 0, static_cast<float>(i % 500), 0);
    });
    using Clock = std::chrono::steady_clock;
    constexpr int exchanges = 3000, waited = 100, reset = 7;
    constexpr std::chrono::seconds patience{30}; // where it fails, on a busy machine
    const std::uint32_t one = 1;
    const auto isLevelled = [&] { return drawing->levelMeter()->channel(0).level > -96; };
    int unlevelled = 0; // of those that were waited for
    for (int i = 0; i < exchanges && unlevelled == 0; ++i) {
        auto next = makeDrawing();
        if (i % 2) close();
        give(next->sharedState);
        drawing = std::move(next); // the earlier one is destroyed here
        drawing->performInterp();
        if (i % reset == 0) AudioUnitSetProperty(&unit, 64007, 0, 0, &one, sizeof one);
        if (i % waited != 0) continue;
        const int seen = blocks;
        while (blocks < seen + 3) // let it play into this one
            std::this_thread::yield();
        // A level is missed only while another thread is inside.
        for (const auto givenUp = Clock::now() + patience; !isLevelled() && Clock::now() < givenUp;)
            std::this_thread::yield();
        unlevelled += isLevelled() ? 0 : 1;
    }
    EXPECT_EQ(unlevelled, 0);
    stop = true;
    render.join();
    automation.join();
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        float now = 0;
        AudioUnitGetParameter(&unit, pid, 0, 0, &now);
        EXPECT_EQ(drawing->parameterStates()[pid].value, GetParameter(pid)->heldValueFromHostValue(now)) << pid;
    }
}

// Several writers at once: the last value of each parameter is the one that is shown, whoever posted it.
TEST_F(UnitViz, NoChangeIsLeftBehindByThreadsThatMeet) {
    for (int round = 0; round < 200; ++round) {
        std::vector<std::thread> writers;
        for (std::uint32_t pid : {pidTiltGain, pidOutputGain, pidFilterResonanceLow}) {
            writers.emplace_back([this, pid, round] {
                for (int i = 0; i <= 20; ++i)
                    AudioUnitSetParameter(&unit, pid, 0, 0, static_cast<float>((round + i) % 10), 0);
            });
        }
        for (std::thread& writer : writers)
            writer.join();
        for (const std::uint32_t pid : {pidTiltGain, pidOutputGain, pidFilterResonanceLow}) {
            float now = 0;
            AudioUnitGetParameter(&unit, pid, 0, 0, &now);
            ASSERT_EQ(drawing->parameterStates()[pid].value, GetParameter(pid)->heldValueFromHostValue(now));
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
