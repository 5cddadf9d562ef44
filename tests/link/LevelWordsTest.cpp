#include "link/LevelWords.h"

#include "support/RealtimeTrap.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <limits>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

class LevelWordsTest : public testing::Test {
protected:
    LevelWords words{2, -96};
};

TEST_F(LevelWordsTest, StartInSilenceWithNothingToTake) {
    ASSERT_EQ(words.channels(), 2u);
    for (std::size_t channel = 0; channel < 2; ++channel) {
        EXPECT_EQ(words.latest(channel), -96);
        EXPECT_EQ(words.highest(channel), LevelWords::noLevel);
        EXPECT_EQ(words.takeHighest(channel), LevelWords::noLevel);
    }
    EXPECT_FALSE(words.takeReset());
    EXPECT_EQ(words.standingSeconds(), std::numeric_limits<float>::infinity());
}

TEST_F(LevelWordsTest, TheHighestIsKeptUntilItIsTakenAndTheLatestStands) {
    words.post(0, -6);
    words.post(0, -20);
    words.post(0, -12);
    EXPECT_EQ(words.latest(0), -12);
    EXPECT_EQ(words.highest(0), -6);
    EXPECT_EQ(words.takeHighest(0), -6);
    EXPECT_EQ(words.takeHighest(0), LevelWords::noLevel) << "taken is taken";
    EXPECT_EQ(words.latest(0), -12) << "and leaves the latest";
    words.post(0, -40);
    EXPECT_EQ(words.takeHighest(0), -40) << "a lower one counts as well";
}

TEST_F(LevelWordsTest, ChannelsAreKeptApart) {
    words.post(1, -3);
    EXPECT_EQ(words.highest(0), LevelWords::noLevel);
    EXPECT_EQ(words.latest(0), -96);
    EXPECT_EQ(words.takeHighest(1), -3);
}

TEST_F(LevelWordsTest, AResetForgetsWhatNobodyHasTakenAndIsToldOnce) {
    words.post(0, 3);
    words.post(1, -3);
    words.reset();
    for (std::size_t channel = 0; channel < 2; ++channel) {
        EXPECT_EQ(words.latest(channel), -96);
        EXPECT_EQ(words.takeHighest(channel), LevelWords::noLevel);
    }
    EXPECT_TRUE(words.takeReset());
    EXPECT_FALSE(words.takeReset());
    words.post(0, -1);
    EXPECT_EQ(words.takeHighest(0), -1) << "what comes afterwards counts";
}

TEST_F(LevelWordsTest, ItIsToldHowLongALevelStands) {
    words.setStandingSeconds(0.26f);
    EXPECT_EQ(words.standingSeconds(), 0.26f);
    words.reset();
    EXPECT_EQ(words.standingSeconds(), 0.26f) << "that is the host's way, not a level";
}

TEST_F(LevelWordsTest, TheRenderThreadNeitherAllocatesNorLocks) {
    const realtime::Offences seen = realtime::offencesOf([&] {
        words.post(0, -6);
        words.setStandingSeconds(1);
        words.reset();
    });
    EXPECT_FALSE(seen.any()) << seen;
}

// What was posted is in this frame or in the next one. The two meet as often as there is time for.
TEST_F(LevelWordsTest, NoPeakIsLostBetweenTwoThreads) {
    constexpr int last = -1;
    std::atomic<int> written = 0, taken = 0;
    std::thread audio([&] {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(600);
        for (int i = 1; std::chrono::steady_clock::now() < end; ++i) {
            words.post(0, static_cast<float>(i));
            words.post(0, -20);
            written = i;
            while (taken < i)
                std::this_thread::yield();
        }
        written = last;
    });
    int lost = 0;
    for (int i = 1; written != last; ++i) {
        float highest = LevelWords::noLevel;
        for (bool isComplete = false; !isComplete && written != last;) {
            for (int look = 0; look < 50 && !isComplete; ++look) {
                isComplete = written == i;
                highest = std::max(highest, words.takeHighest(0));
            }
            if (!isComplete) std::this_thread::yield();
        }
        lost += written == last || highest == static_cast<float>(i) ? 0 : 1;
        taken = i;
    }
    audio.join();
    EXPECT_EQ(lost, 0);
    RecordProperty("rounds", taken);
}

// A reset may come from any thread, in the middle of a block and of a frame. Each frame takes a level that was posted,
// or none.
TEST_F(LevelWordsTest, AResetInTheMiddleOfABlockAndAFrameLeavesWholeWords) {
    std::atomic<bool> stop = false;
    std::thread audio([&] {
        while (!stop)
            words.post(0, -6);
    });
    std::thread user([&] {
        while (!stop)
            words.reset();
    });
    int wrong = 0, resets = 0;
    for (int i = 0; i < 50000 || resets == 0; ++i) {
        const float taken = words.takeHighest(0), latest = words.latest(0);
        wrong += taken == -6 || taken == LevelWords::noLevel ? 0 : 1;
        wrong += latest == -6 || latest == -96 ? 0 : 1;
        resets += words.takeReset() ? 1 : 0;
    }
    stop = true;
    audio.join();
    user.join();
    EXPECT_EQ(wrong, 0);
    words.reset();
    words.post(0, 3);
    EXPECT_EQ(words.takeHighest(0), 3);
}

} // namespace
} // namespace QVM_NAMESPACE
