// The audio side of the goniometer and of the stereoscope: it never waits.
#include "viz/analysis/StereoTap.h"

#include "StereoSignals.h"
#include "support/RealtimeTrap.h"
#include "viz/displays/QVMGRHistory.h"
#include "viz/displays/QVMGoniometer.h"
#include "viz/displays/QVMStereoscope.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

QVMAudioBuffer<float> counting(unsigned channels, unsigned frames, float first = 1) {
    QVMAudioBuffer<float> buffer(channels);
    buffer.alloc(frames);
    for (std::size_t c = 0; c < channels; ++c)
        for (unsigned i = 0; i < frames; ++i)
            buffer.channels[c][i] = (first + static_cast<float>(i)) * (c ? -1.0f : 1.0f);
    return buffer;
}

class StereoTapTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(tap.init(8)); }
    std::vector<float> leftNow() {
        std::vector<float> now(8), other(8);
        tap.copyFrom(0, 8, now.data(), other.data());
        return now;
    }
    StereoTap tap;
    float left[8] = {}, right[8] = {};
};

TEST_F(StereoTapTest, IsFullOfSilenceAtFirst) {
    EXPECT_EQ(leftNow(), std::vector<float>(8, 0.0f));
    EXPECT_EQ(tap.readPosition(), 0u);
}

TEST_F(StereoTapTest, SlidesAndMovesTheReaderBack) {
    ASSERT_TRUE(tap.takeNext(8, left, right));
    ASSERT_TRUE(tap.append(counting(2, 3), 3));
    EXPECT_EQ(tap.readPosition(), 5u);
    EXPECT_EQ(leftNow(), (std::vector<float>{0, 0, 0, 0, 0, 1, 2, 3}));
    ASSERT_TRUE(tap.takeNext(2, left, right));
    EXPECT_EQ(left[1], 2);
    EXPECT_EQ(right[1], -2);
    EXPECT_FALSE(tap.takeNext(2, left, right));
    ASSERT_TRUE(tap.append(counting(2, 8, 10), 8));
    EXPECT_EQ(tap.readPosition(), 0u);
}

TEST_F(StereoTapTest, OneChannelFeedsBothSidesAndThreeNone) {
    EXPECT_TRUE(tap.append(counting(1, 8), 8));
    tap.copyFrom(0, 8, left, right);
    EXPECT_EQ(right[7], 8);
    EXPECT_FALSE(tap.append(counting(3, 8, 20), 8));
    EXPECT_FALSE(tap.append(QVMAudioBuffer<float>(0), 8));
    EXPECT_EQ(leftNow().back(), 8);
}

TEST_F(StereoTapTest, OfABlockLongerThanTheWindowTheLastFramesStay) {
    EXPECT_TRUE(tap.append(counting(2, 20), 20));
    EXPECT_EQ(leftNow(), (std::vector<float>{13, 14, 15, 16, 17, 18, 19, 20}));
}

TEST_F(StereoTapTest, AdvancesAsFarAsAWindowFits) {
    EXPECT_EQ(tap.advance(2, 5), 2u);
    EXPECT_EQ(tap.advance(2, 5), 3u);
    EXPECT_EQ(tap.advance(2, 5), std::nullopt);
    EXPECT_EQ(tap.advance(1, 9), std::nullopt);
    EXPECT_FALSE(tap.takeNext(9, left, right));
}

TEST_F(StereoTapTest, AWindowThatCannotBeMadeTakesNothing) {
    StereoTap none;
    EXPECT_FALSE(none.append(counting(2, 3), 3));
    EXPECT_FALSE(none.takeNext(1, left, right));
    EXPECT_EQ(none.advance(1, 1), std::nullopt);
}

TEST_F(StereoTapTest, ABlockIsDroppedWhileTheDrawingSideHoldsTheLock) {
    const std::scoped_lock drawing(tap.lock());
    EXPECT_FALSE(std::async(std::launch::async, [this] { return tap.append(counting(2, 8), 8); }).get());
}

// Runs `audio` on a thread of its own while the drawing side holds the lock, and says whether it came back meanwhile.
template <class Audio>
bool comesBackWhileHeld(StereoTap& tap, Audio&& audio) {
    std::unique_lock drawing(tap.lock());
    std::future<void> side = std::async(std::launch::async, audio);
    const bool cameBack = side.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
    drawing.unlock();
    return cameBack;
}

TEST(AudioSide, OfTheGoniometerNeverBlocks) {
    QVMGoniometer goniometer;
    goniometer.init(displayCanvas(), 48000, kBlock);
    QVMAudioBuffer<float> block = counting(2, kBlock);
    EXPECT_TRUE(comesBackWhileHeld(goniometer.tap(), [&] {
        for (int i = 0; i < 1000; ++i)
            goniometer.processAudio(&block, kBlock, i % 2 == 0);
    }));
    ASSERT_EQ(goniometer.prepareForDrawing(kFrame), Redraw::yes);
    EXPECT_EQ(goniometer.magnitudes()[0], 0) << "the blocks were dropped";
    goniometer.processAudio(&block, kBlock, false);
    ASSERT_EQ(goniometer.prepareForDrawing(1), Redraw::no);
    ASSERT_EQ(goniometer.prepareForDrawing(kFrame), Redraw::yes);
    EXPECT_EQ(goniometer.tap().readPosition(), 1600u - kBlock);
}

TEST(AudioSide, OfTheStereoscopeNeverBlocks) {
    QVMStereoscope stereoscope;
    stereoscope.init(displayCanvas(), 48000, kBlock);
    QVMAudioBuffer<float> block = counting(2, kBlock);
    EXPECT_TRUE(comesBackWhileHeld(stereoscope.tap(), [&] {
        for (int i = 0; i < 1000; ++i)
            stereoscope.processAudio(&block, kBlock);
    }));
    stereoscope.processAudioData(static_cast<int>(stereoscope.tap().capacity() - stereoscope.fftSize()));
    EXPECT_LT(stereoscope.levelDb()[1], -120) << "the blocks were dropped";
}

// A side that waits is noticed: this one does.
TEST(AudioSide, TheTestNoticesOneThatBlocks) {
    StereoTap tap;
    tap.init(8);
    std::unique_lock drawing(tap.lock());
    std::future<unsigned> side = std::async(std::launch::async, [&] { return tap.readPosition(); });
    EXPECT_EQ(side.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    drawing.unlock();
    EXPECT_EQ(side.get(), 0u);
}

// All that take audio, set up.
class AllDisplays : public testing::Test {
protected:
    void SetUp() override {
        goniometer.init(displayCanvas(), 48000, kBlock);
        stereoscope.init(displayCanvas(), 48000, kBlock);
        history.init(displayCanvas(), {-24, 0}, true, false);
    }
    QVMGoniometer goniometer;
    QVMStereoscope stereoscope;
    QVMGRHistory history;
};
using AudioSideOfAll = AllDisplays;

TEST_F(AudioSideOfAll, AllocatesAndWaitsForNothing) {
    QVMAudioBuffer<float> block = counting(2, kBlock), mono = counting(1, kBlock);
    const auto offences = realtime::offencesOf([&] {
        for (int i = 0; i < 8; ++i) {
            goniometer.processAudio(&block, kBlock, i % 2 == 0);
            stereoscope.processAudio(&block, kBlock);
            stereoscope.processAudio(&mono, kBlock);
            history.processAudio(-3, true);
        }
    });
    EXPECT_FALSE(offences.any()) << offences;
}

TEST_F(AudioSideOfAll, RunsBesideTheDrawingSide) {
    std::atomic<bool> isDone = false;
    std::thread audio([&] {
        SignalSource source(Signal::mono, 48000);
        while (!isDone) {
            QVMAudioBuffer<float>& block = source.next(kBlock);
            goniometer.processAudio(&block, kBlock, false);
            stereoscope.processAudio(&block, kBlock);
            history.processAudio(-6, true);
        }
    });
    const auto isSound = [](float x) { return x != 0; };
    int torn = 0, sounding = 0; // frames in which mono is not mono, and in which there is something to see
    for (int i = 0; i < 1'000'000 && sounding < 200; ++i) {
        const bool isNew = goniometer.prepareForDrawing(kFrame) == Redraw::yes;
        stereoscope.prepareForDrawing(kFrame);
        history.prepareForDrawing(kFrame);
        torn += std::any_of(goniometer.x().begin(), goniometer.x().end(), isSound);
        sounding += isNew && std::any_of(goniometer.y().begin(), goniometer.y().end(), isSound);
        std::this_thread::yield();
    }
    isDone = true;
    audio.join();
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(sounding, 200);
    EXPECT_TRUE(
        std::any_of(stereoscope.levelDb().begin(), stereoscope.levelDb().end(), [](float l) { return l > -60; }));
    EXPECT_NEAR(history.smoothed(), -6, 0.5);
}

} // namespace
} // namespace QVM_NAMESPACE
