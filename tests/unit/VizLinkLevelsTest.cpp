// How the audio's levels reach the meter, whatever blocks the host plays and however often an editor draws.
#include "unit/VizLinkFixture.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cmath>
#include <memory>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

constexpr double movingHertz = 60, restingHertz = 12; // how often an editor draws

// A link that plays blocks at 48 kHz while an editor shows the meter, each in its own time.
class VizLinkLevels : public VizLinkFixture {
protected:
    void SetUp() override { link.exchange(&drawing->sharedState); }
    QVMLevelMeter& meter() { return *drawing->levelMeter(); }
    void frame() {
        drawing->prepareForDrawing(meterCanvas(1), static_cast<float>(1 / frameHertz));
        framesShown += 1;
    }
    void frames(double seconds) {
        for (int i = 0; i < seconds * frameHertz; ++i)
            frame();
    }
    // A block, then the frames that are due by its end. Both channels get the amplitude.
    void block(float amplitude) {
        link.postLevels(std::array{amplitude, amplitude}, blockFrames / 48000);
        played += blockFrames / 48000;
        while (framesShown < played * frameHertz)
            frame();
    }
    void blocks(double seconds, float amplitude) {
        for (const double end = played + seconds; played < end;)
            block(amplitude);
    }
    // Frames go on while nothing is played; then both begin anew.
    void stop(double seconds) {
        frames(seconds);
        played = framesShown = 0;
    }

    double blockFrames = 512, frameHertz = movingHertz;
    double played = 0, framesShown = 0; // seconds, frames
};

// Wherever in a display frame the block is that goes over.
TEST_F(VizLinkLevels, EveryOverInASingleBlockLightsTheClipLight) {
    for (const double hertz : {movingHertz, restingHertz}) {
        for (const double length : {16, 64, 441, 512, 1024, 4096}) {
            frameHertz = hertz;
            blockFrames = length;
            const int blocksInAFrame = static_cast<int>(std::ceil(48000 / hertz / length));
            for (int offset = 0; offset < blocksInAFrame; ++offset) {
                played = framesShown = 0;
                for (int i = 0; i < offset; ++i)
                    block(0.1f);
                block(1.0f);
                for (const double before = framesShown; framesShown == before;)
                    block(0.1f);
                for (int channel = 0; channel < 2; ++channel)
                    ASSERT_GT(meter().channel(channel).clip, 0.75f) << length << " frames at " << hertz << " Hz";
                meter().reset();
                frame();
                ASSERT_EQ(meter().channel(0).clip, 0);
            }
        }
    }
}

TEST_F(VizLinkLevels, AFrameSeesTheHighestLevelSinceTheOneBefore) {
    link.postLevels(std::array{0.5f, 0.1f}, blockSeconds);
    link.postLevels(std::array{0.1f, 0.25f}, blockSeconds);
    meter().channel(0).slewEnabled = meter().channel(1).slewEnabled = false;
    frame();
    EXPECT_NEAR(meter().channel(0).display, -6.0206f, 1e-3);
    EXPECT_NEAR(meter().channel(1).display, -12.0412f, 1e-3);
    frame();
    EXPECT_NEAR(meter().channel(0).display, -20, 1e-3) << "the latest one stands";
    EXPECT_NEAR(meter().channel(1).display, -12.0412f, 1e-3);
}

// While a parameter is being written the block's levels wait for the next one.
TEST_F(VizLinkLevels, LevelsThatFoundTheObjectInUseComeWithTheNextBlock) {
    std::atomic<bool> stop = false;
    std::thread automation([&] {
        for (int i = 0; !stop; ++i)
            set(pidTiltGain, static_cast<float>(i % 18));
    });
    meter().channel(0).slewEnabled = false;
    constexpr int enough = 20, patience = 20'000'000;
    int wrong = 0, met = 0; // how often the object was in use
    for (int i = 0; met < enough && i < patience; ++i) {
        link.postLevels(std::array{0.5f, 0.5f}, blockSeconds);
        met += drawing->sharedState.levels.highest(0) == LevelWords::noLevel ? 1 : 0;
        do
            link.postLevels(std::array{0.1f, 0.1f}, blockSeconds);
        while (drawing->sharedState.levels.highest(0) == LevelWords::noLevel);
        frame();
        wrong += std::abs(meter().channel(0).display + 6.0206f) < 1e-3f ? 0 : 1;
    }
    stop = true;
    automation.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(met, enough);
}

TEST_F(VizLinkLevels, WhenTheHostStopsTheMeterFallsAsInSilence) {
    for (const double hertz : {movingHertz, restingHertz}) {
        for (const double length : {64, 512, 4096, 16384}) {
            frameHertz = hertz;
            blockFrames = length;
            blocks(1, 0.5f);
            stop(0.25 - 2 / hertz);
            EXPECT_NEAR(meter().channel(0).display, -6.0206f, 0.02) << "it may only be late";
            stop(3 / hertz + length / 48000 + 0.5);
            EXPECT_LT(meter().channel(0).display, -6 - 90 * (1 - std::exp(-2)) + 0.1) << length << " at " << hertz;
            stop(3);
            EXPECT_NEAR(meter().channel(0).display, -96, 0.01);
            EXPECT_NEAR(meter().channel(0).fill, 0, 1e-4);
            blocks(1, 0.5f);
            EXPECT_NEAR(meter().channel(1).display, -6.0206f, 0.02) << "it goes on";
        }
    }
}

TEST_F(VizLinkLevels, LongBlocksAndThoseThatComeSeveralAtATimeDoNotMakeItFall) {
    frameHertz = movingHertz;
    blockFrames = 32768; // 0.68 s
    blocks(2, 0.5f);
    for (int i = 0; i < 100; ++i) {
        block(0.5f);
        EXPECT_NEAR(meter().channel(0).display, -6.0206f, 0.02);
    }
    blockFrames = 512;
    for (int i = 0; i < 20; ++i) { // 0.2 s worked off at once
        for (int k = 0; k < 19; ++k)
            link.postLevels(std::array{0.5f, 0.5f}, blockSeconds);
        for (int k = 0; k < 12; ++k) {
            frame();
            EXPECT_NEAR(meter().channel(0).display, -6.0206f, 0.02);
        }
    }
}

TEST_F(VizLinkLevels, AResetForgetsLevelHeldPeakAndClipLight) {
    blocks(1, 1.0f);
    link.postLevels(std::array{2.0f, 2.0f}, blockSeconds);
    ASSERT_GT(meter().channel(1).clip, 0.9f);
    link.resetLevels();
    frame();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(level(i), -96);
        EXPECT_EQ(meter().channel(i).display, -96);
        EXPECT_NEAR(meter().channel(i).fill, 0, 1e-6);
        EXPECT_EQ(meter().channel(i).clip, 0);
    }
    blocks(0.5, 0.5f);
    EXPECT_NEAR(meter().channel(0).display, -6.0206f, 0.02) << "what comes afterwards is shown";
}

TEST_F(VizLinkLevels, AResetWithNothingToReset) {
    link.exchange(nullptr);
    link.resetLevels();
    drawing = std::make_unique<QVM0015GLSketch>();
    drawing->sizeStates(QVMParameterCount);
    link.exchange(&drawing->sharedState);
    link.resetLevels();
    EXPECT_EQ(drawing->levelMeter(), nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
