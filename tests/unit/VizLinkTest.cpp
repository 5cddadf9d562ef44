#include "unit/VizLink.h"

#include "description/Description.h"
#include "unit/MeterDrawing.h"
#include "unit/QVM0015_AudioUnit.h"
#include "unit/Signals.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cmath>
#include <memory>
#include <random>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

constexpr double blockSeconds = 512.0 / 48000;
constexpr double movingHertz = 60, restingHertz = 12; // how often an editor draws

float hostValue(std::uint32_t pid, float shown) {
    return GetParameter(pid)->reverseCastValue(shown);
}

class VizLinkTest : public testing::Test {
protected:
    float posted(std::uint32_t pid) const { return drawing->parameterStates[pid].value; }
    float level(int channel) const { return drawing->levelMeter()->channel(channel).level; }
    void endGlide() {
        for (int i = 0; i < 8; ++i)
            drawing->performInterp();
    }
    void set(std::uint32_t pid, float value) {
        ASSERT_EQ(parameters.set(pid, value), noErr);
        link.parameterChanged(pid);
    }

    UnitParameters parameters;
    VizLink link{parameters};
    std::unique_ptr<QVM0015GLSketch> drawing = makeDrawing();
};

TEST_F(VizLinkTest, ANewObjectGetsEveryParameterAndGlidesThere) {
    set(1, -7);
    link.exchange(&drawing->sharedState);
    EXPECT_EQ(link.state(), &drawing->sharedState);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const float shown = GetParameter(pid)->heldValueFromHostValue(parameters.value(pid));
        EXPECT_EQ(posted(pid), shown) << pid;
        EXPECT_EQ(drawing->interpTargets[pid], shown) << pid;
    }
    EXPECT_EQ(posted(1), -7);
    EXPECT_TRUE(drawing->isInterpolating);
    endGlide();
    EXPECT_EQ(drawing->parameterStates[1].displayValue, -7);
}

TEST_F(VizLinkTest, AnObjectThatShowsTheValuesAlreadyGlidesAllTheSame) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        drawing->parameterStates[pid].value = drawing->interpTargets[pid] =
            GetParameter(pid)->heldValueFromHostValue(parameters.value(pid));
    link.exchange(&drawing->sharedState);
    EXPECT_TRUE(drawing->isInterpolating) << "its first picture is made in a glide";
}

TEST_F(VizLinkTest, AChangeIsPostedAtOnceInTheShownDomain) {
    link.exchange(&drawing->sharedState);
    endGlide();
    ASSERT_FALSE(drawing->isInterpolating);
    set(2, 12005);
    EXPECT_NEAR(posted(2), 489.9f, 1e-3);
    EXPECT_EQ(drawing->interpTargets[2], posted(2));
    EXPECT_TRUE(drawing->parameterStates[2].interpolating);
    EXPECT_FALSE(drawing->parameterStates[3].interpolating);
    EXPECT_TRUE(drawing->isInterpolating);
}

TEST_F(VizLinkTest, AValueThatIsThereAlreadyStartsNoGlide) {
    link.exchange(&drawing->sharedState);
    set(2, 12005);
    endGlide();
    set(2, 12005);
    link.allParametersChanged();
    EXPECT_FALSE(drawing->isInterpolating);
    EXPECT_FALSE(drawing->parameterStates[2].interpolating);
}

// What any control of the editor can send, for every parameter but the hidden link switches, which read clamped.
TEST_F(VizLinkTest, AValueThatTheEditorSentComesBackBitForBit) {
    link.exchange(&drawing->sharedState);
    std::mt19937 random(15);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        std::uniform_real_distribution<float> position(0, 1);
        for (int i = 0; i < 3000; ++i) {
            const std::uint32_t granularity = i % 2 ? QVMGranularityFine : QVMGranularityNormal;
            const float sent = parameter.normalizedFloatValueFromPercent(position(random), granularity);
            if (parameter.castValue(hostValue(pid, sent)) < parameter.minValue) continue;
            set(pid, hostValue(pid, sent));
            ASSERT_EQ(posted(pid), parameter.heldValueFromHostValue(hostValue(pid, sent)));
            ASSERT_NEAR(posted(pid), sent, parameter.fineGranularity * 0.51f) << pid;
            if (i % 2 == 0) continue;
            ASSERT_EQ(posted(pid), sent) << pid;
        }
    }
}

TEST_F(VizLinkTest, NothingIsWrittenBeforeAnObjectIsThereOrAfterItWasTaken) {
    set(1, 3);
    link.exchange(&drawing->sharedState);
    EXPECT_EQ(posted(1), 3);
    link.exchange(nullptr);
    EXPECT_EQ(link.state(), nullptr);
    set(1, 5);
    link.postLevels(std::array{1.0f, 1.0f}, blockSeconds);
    EXPECT_EQ(posted(1), 3);
    EXPECT_EQ(level(0), -96);
    link.exchange(&drawing->sharedState);
    EXPECT_EQ(posted(1), 5) << "the next one is up to date";
}

TEST_F(VizLinkTest, AnObjectWithFewerParametersGetsThose) {
    drawing->sizeStates(2);
    link.exchange(&drawing->sharedState);
    set(7, -3);
    set(1, 4);
    EXPECT_EQ(posted(1), 4);
}

TEST_F(VizLinkTest, ABlocksPeaksAreTheMetersLevels) {
    link.exchange(&drawing->sharedState);
    link.postLevels(std::array{1.0f, 0.1f}, blockSeconds);
    EXPECT_NEAR(level(0), 0, 1e-4);
    EXPECT_NEAR(level(1), -20, 1e-4);
    link.postLevels(std::array{0.0f, 8.0f}, blockSeconds);
    EXPECT_EQ(level(0), -96);
    EXPECT_EQ(level(1), 12);
}

TEST_F(VizLinkTest, OneOutputShowsOnBothChannels) {
    link.exchange(&drawing->sharedState);
    link.postLevels(std::array{0.5f}, blockSeconds);
    EXPECT_NEAR(level(0), -6.0206f, 1e-3);
    EXPECT_EQ(level(1), level(0));
}

TEST_F(VizLinkTest, WhateverIsPostedAsksForAFrame) {
    link.exchange(&drawing->sharedState);
    EXPECT_TRUE(drawing->takeFrameRequest());
    EXPECT_FALSE(drawing->takeFrameRequest());
    set(1, 5);
    EXPECT_TRUE(drawing->takeFrameRequest());
    set(1, 5);
    EXPECT_TRUE(drawing->takeFrameRequest()) << "an editor may have sent another value, which it is not";
    link.postLevels(std::array{0.0f, 1e-3f}, blockSeconds);
    EXPECT_TRUE(drawing->takeFrameRequest());
}

TEST_F(VizLinkTest, SilenceAsksForNoFrame) {
    link.exchange(&drawing->sharedState);
    drawing->takeFrameRequest();
    link.postLevels(std::array{0.0f, 1e-6f}, blockSeconds);
    EXPECT_FALSE(drawing->takeFrameRequest());
}

TEST_F(VizLinkTest, TheEditorWhoseObjectIsTakenAwayGetsAFrameToSeeIt) {
    link.exchange(&drawing->sharedState);
    drawing->takeFrameRequest();
    const std::unique_ptr<QVM0015GLSketch> another = makeDrawing();
    link.exchange(&another->sharedState);
    EXPECT_TRUE(drawing->takeFrameRequest());
    link.exchange(nullptr);
}

TEST_F(VizLinkTest, ADrawingWithoutAMeterTakesLevelsAndShowsNone) {
    drawing = std::make_unique<QVM0015GLSketch>();
    drawing->sizeStates(QVMParameterCount);
    link.exchange(&drawing->sharedState);
    link.postLevels(std::array{1.0f, 1.0f}, blockSeconds);
    EXPECT_EQ(drawing->levelMeter(), nullptr);
}

// A link that plays blocks at 48 kHz while an editor shows the meter, each in its own time.
class VizLinkLevels : public VizLinkTest {
protected:
    void SetUp() override { link.exchange(&drawing->sharedState); }
    QVMLevelMeter& meter() { return *drawing->levelMeter(); }
    void frame() {
        drawing->prepareForDrawing({PBSketchLevelMeter, PB_Sketches[1], PB_Parameters[7], 97, 217, 1},
                                   static_cast<float>(1 / frameHertz));
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
            set(1, static_cast<float>(i % 18));
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
