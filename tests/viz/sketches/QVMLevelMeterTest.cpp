#include "viz/sketches/QVMLevelMeter.h"

#include "LevelMeterFixture.h"

#include <atomic>
#include <chrono>
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

TEST_F(QVMLevelMeterTest, StartsAtTheParametersMinimumAndOpaque) {
    for (int i = 0; i < 2; ++i) {
        const QVMLevelMeter::Channel& c = meter.channel(i);
        EXPECT_EQ(c.level, -96);
        EXPECT_EQ(c.display, -96);
        EXPECT_EQ(c.fill, 0);
        EXPECT_EQ(c.clip, 0);
        EXPECT_EQ(c.opacity, 1);
        EXPECT_TRUE(c.clampFill && c.slewEnabled && !c.atRest);
        EXPECT_EQ(c.attackMs, 10);
        EXPECT_EQ(c.releaseMs, 250);
        EXPECT_EQ(c.colourFull, (Color{0, 0, 0, 0.5f}));
    }
}

TEST_F(QVMLevelMeterTest, TakesTheLargestAbsoluteSample) {
    EXPECT_NEAR(levelOf({0.1f, -0.5f, 0.25f}), 20 * std::log10(0.5), 1e-4);
    EXPECT_FLOAT_EQ(levelOf({1, -1}), 0);
}

TEST_F(QVMLevelMeterTest, DigitalSilenceIsTheEndOfTheRange) {
    EXPECT_EQ(levelOf({0, 0, -0.0f}), -96);
    EXPECT_EQ(levelOf({}), -96);
    meter.processAudio(static_cast<const float*>(nullptr), 0, {-60, 0}, 0);
    EXPECT_EQ(meter.channel(0).level, -60);
}

TEST_F(QVMLevelMeterTest, LevelsStayWithinTheRange) {
    EXPECT_EQ(levelOf({1000}), 12);
    EXPECT_EQ(levelOf({1e-9f}), -96);
    EXPECT_EQ(levelOf({std::numeric_limits<float>::infinity()}), 12);
}

TEST_F(QVMLevelMeterTest, SamplesThatAreNoNumbersCountForNothing) {
    EXPECT_NEAR(levelOf({NAN, 0.5f, NAN}), -6.0206, 1e-3);
    EXPECT_EQ(levelOf({NAN}), -96);
}

TEST_F(QVMLevelMeterTest, ABuffersPeakIsThatOfAllItsChannels) {
    QVMAudioBuffer<float> buffer(2);
    buffer.alloc(4);
    buffer.channels[0][1] = 0.1f;
    buffer.channels[1][3] = -0.5f;
    meter.processAudio(&buffer, 4, kRange, 1);
    EXPECT_NEAR(meter.channel(1).level, -6.0206, 1e-3);
    meter.processAudio(&buffer, 3, kRange, 1); // the last frame is not asked for
    EXPECT_NEAR(meter.channel(1).level, -20, 1e-3);
    EXPECT_EQ(meter.channel(0).level, -96);
}

TEST_F(QVMLevelMeterTest, DoublesAreMeasuredLikeFloats) {
    QVMAudioBuffer<double> buffer(1);
    buffer.alloc(2);
    buffer.channels[0][0] = -0.25;
    meter.processAudio(&buffer, 2, kRange, 0);
    EXPECT_NEAR(meter.channel(0).level, -12.0412, 1e-3);
    const double samples[] = {0.5, 1e-300};
    meter.processAudio(samples, 2, kRange, 0);
    EXPECT_NEAR(meter.channel(0).level, -6.0206, 1e-3);
    meter.processAudio(samples + 1, 1, kRange, 0);
    EXPECT_EQ(meter.channel(0).level, -96);
}

TEST_F(QVMLevelMeterTest, AStepUpIsTwoThirdsDoneInTenMilliseconds) {
    EXPECT_NEAR(doneAfter(1, 0.010f, -96, -6), 1 - std::exp(-1.0), 1e-4);
    EXPECT_NEAR(doneAfter(10, 0.001f, -96, -6), 1 - std::exp(-1.0), 1e-4);
    EXPECT_NEAR(doneAfter(1, 1.0f / 60, -96, -6), 1 - std::exp(-100.0 / 60), 1e-4);
}

TEST_F(QVMLevelMeterTest, AStepDownIsTwoThirdsDoneInAQuarterOfASecond) {
    EXPECT_NEAR(doneAfter(15, 1.0f / 60, -6, -96), 1 - std::exp(-1.0), 1e-4);
}

TEST_F(QVMLevelMeterTest, BallisticsAreTheSameAtEveryDisplayRate) {
    for (const int rate : {30, 60, 144}) {
        const float dt = 1.0f / static_cast<float>(rate);
        EXPECT_NEAR(doneAfter(rate / 6, dt, -96, -6), 1 - std::exp(-(rate / 6) / double(rate) * 100), 1e-4) << rate;
        EXPECT_NEAR(doneAfter(rate / 2, dt, -6, -96), 1 - std::exp(-0.5 * 4), 1e-4) << rate;
    }
}

TEST_F(QVMLevelMeterTest, WithoutBallisticsTheDisplayIsTheLevel) {
    meter.channel(0).slewEnabled = false;
    meter.channel(0).level = -24;
    frame();
    EXPECT_EQ(meter.channel(0).display, -24);
    EXPECT_EQ(meter.channel(0).clip, 0);
}

TEST_F(QVMLevelMeterTest, ExactlyZeroDecibelsCountsAsClipping) {
    meter.channel(0).level = -0.001f;
    meter.slew(0.01f, 0);
    EXPECT_EQ(meter.channel(0).clip, 0);
    meter.channel(0).level = 0.0f;
    meter.slew(0.01f, 0);
    EXPECT_NEAR(meter.channel(0).clip, 1 - std::exp(-1.0), 1e-5);
}

TEST_F(QVMLevelMeterTest, TheClipLightDiesAwayWithinSeconds) {
    meter.channel(0).clip = 1;
    for (int i = 0; i < 60; ++i)
        meter.slew(1.0f / 60, 0);
    EXPECT_NEAR(meter.channel(0).clip, std::exp(-1.0), 1e-4);
}

TEST_F(QVMLevelMeterTest, AFrameTakesTheHighestLevelSinceTheLastOne) {
    meter.channel(0).slewEnabled = false;
    levelOf({0.5f});
    levelOf({0.25f});
    EXPECT_NEAR(meter.channel(0).level, -12.0412, 1e-3) << "the latest one";
    frame();
    EXPECT_NEAR(meter.channel(0).display, -6.0206, 1e-3);
    frame();
    EXPECT_NEAR(meter.channel(0).display, -12.0412, 1e-3) << "taken is taken";
    levelOf({0});
    frame();
    EXPECT_EQ(meter.channel(0).display, -96) << "a level that is lower counts as well";
}

TEST_F(QVMLevelMeterTest, AnOverBetweenTwoFramesIsAnOver) {
    levelOf({1});
    levelOf({0.1f});
    meter.slew(0.01f, 0);
    EXPECT_NEAR(meter.channel(0).clip, 1 - std::exp(-1.0), 1e-5);
    EXPECT_NEAR(meter.channel(0).display, -96 * std::exp(-1.0), 1e-3);
    EXPECT_EQ(meter.channel(1).clip, 0);
}

// As when a window is moved to a display of another scale.
TEST_F(QVMLevelMeterTest, AFrameOfNoTimeLeavesThePeakToTheNextOne) {
    levelOf({1});
    levelOf({0.1f});
    frame(0);
    EXPECT_EQ(meter.channel(0).clip, 0);
    frame(0.1f);
    EXPECT_NEAR(meter.channel(0).clip, 1, 1e-3);
}

TEST_F(QVMLevelMeterTest, ALevelStandsForItsTimeAndIsThenSilence) {
    meter.channel(0).slewEnabled = false;
    levelOf({0.5f});
    for (int i = 0; i < 1000; ++i)
        frame(0.1f);
    EXPECT_NEAR(meter.channel(0).display, -6.0206, 1e-3) << "unless it has one, for ever";
    meter.setLevelSeconds(0.35f);
    for (int round = 0; round < 2; ++round) {
        levelOf({0.5f});
        for (int i = 0; i < 4; ++i) {
            frame(0.1f);
            EXPECT_NEAR(meter.channel(0).display, -6.0206, 1e-3) << i;
        }
        frame(0.1f);
        EXPECT_EQ(meter.channel(0).display, -96);
        EXPECT_NEAR(meter.channel(0).level, -6.0206, 1e-3) << "the word is the audio side's";
    }
}

TEST_F(QVMLevelMeterTest, ASilencedClipLightDiesAwayAndTheBarFallsWithItsRelease) {
    meter.setLevelSeconds(0.05f);
    levelOf({1});
    frame(0.1f);
    const float lit = meter.channel(0).clip, shown = meter.channel(0).display;
    ASSERT_GT(lit, 0.9f);
    frame(0.25f);
    EXPECT_NEAR(meter.channel(0).clip, lit * std::exp(-0.25), 1e-5);
    EXPECT_NEAR(meter.channel(0).display, -96 + (shown + 96) * std::exp(-1.0), 1e-3);
}

TEST_F(QVMLevelMeterTest, AResetForgetsEverythingThatIsSeen) {
    for (const bool slews : {true, false}) {
        for (int i = 0; i < 2; ++i) {
            const float over = 2;
            meter.channel(i).slewEnabled = slews;
            meter.processAudio(&over, 1, kRange, i);
            meter.channel(i).clip = 1;
        }
        frame(0.1f);
        levelOf({2});
        meter.reset();
        EXPECT_EQ(meter.channel(0).level, -96);
        EXPECT_EQ(frame(0.1f), Redraw::yes);
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(meter.channel(i).display, -96) << i;
            EXPECT_EQ(meter.channel(i).clip, 0) << i;
            EXPECT_NEAR(meter.channel(i).fill, 0, 1e-6) << i;
        }
        levelOf({0.5f});
        frame(0.1f);
        EXPECT_GT(meter.channel(0).display, -7) << "once";
    }
}

TEST_F(QVMLevelMeterTest, AnOverAfterAResetIsSeen) {
    meter.reset();
    levelOf({1});
    levelOf({0.1f});
    frame(0.1f);
    EXPECT_GT(meter.channel(0).clip, 0.9f);
}

TEST_F(QVMLevelMeterTest, ShowsTheLevelsThatItShares) {
    LevelWords words(2, -96);
    QVMLevelMeter shared(meterCanvas(), words);
    ASSERT_EQ(shared.numChannels(), 2);
    EXPECT_EQ(&shared.channel(1).level, &words.latest(1));
    EXPECT_EQ(shared.channel(1).display, -96);
    shared.channel(0).slewEnabled = shared.channel(1).slewEnabled = false;
    words.post(1, -6);
    words.post(1, -40);
    shared.prepareForDrawing(0.1f);
    EXPECT_EQ(shared.channel(1).display, -6);
    EXPECT_EQ(shared.channel(0).display, -96);
    shared.prepareForDrawing(0.1f);
    EXPECT_EQ(shared.channel(1).display, -40);
    const float half = 0.5f;
    shared.processAudio(&half, 1, kRange, 0);
    EXPECT_NEAR(words.latest(0), -6.0206, 1e-3) << "it posts into them as well";
    words.setStandingSeconds(0.15f);
    shared.prepareForDrawing(0.1f);
    shared.prepareForDrawing(0.1f);
    shared.prepareForDrawing(0.1f);
    EXPECT_EQ(shared.channel(0).display, -96) << "nothing came for longer than a level stands";
    words.post(0, 3);
    words.reset();
    shared.prepareForDrawing(0.1f);
    EXPECT_EQ(shared.channel(0).display, -96);
}

TEST_F(QVMLevelMeterTest, MetersThatShareNothingAreKeptApart) {
    QVMLevelMeter other(meterCanvas(), 2);
    levelOf({0.5f});
    EXPECT_EQ(other.channel(0).level, -96);
}

// What the writer raised is in this frame or in the next one.
// Each round takes two turns of the processor, which on a busy machine are milliseconds apart: as many as there is time
// for.
TEST_F(QVMLevelMeterTest, NoPeakIsLostBetweenTwoThreads) {
    constexpr int mostRounds = 60000;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    std::atomic<int> written = 0, taken = 0;
    std::atomic<bool> isOver = false;
    std::thread audio([&] {
        for (int i = 1; !isOver; ++i) {
            const float over = 1, quiet = 0.1f;
            meter.processAudio(&over, 1, kRange, 0);
            meter.processAudio(&quiet, 1, kRange, 0);
            written = i;
            while (taken < i && !isOver)
                std::this_thread::yield();
        }
    });
    meter.channel(0).slewEnabled = false;
    int round = 1;
    for (; round <= mostRounds && std::chrono::steady_clock::now() < end; ++round) {
        bool isSeen = false;
        do {
            const bool isLast = written == round;
            frame();
            isSeen = isSeen || meter.channel(0).display >= 0;
            if (isLast) break;
            std::this_thread::yield(); // the writer may be waiting for this very core
        } while (true);
        EXPECT_TRUE(isSeen) << round;
        taken = round;
    }
    isOver = true;
    audio.join();
    EXPECT_GT(round, 1);
}

} // namespace
} // namespace QVM_NAMESPACE
