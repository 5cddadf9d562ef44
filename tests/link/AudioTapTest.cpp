#include "link/AudioTap.h"

#include "support/RealtimeTrap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include <sys/resource.h>

namespace QVM_NAMESPACE {
namespace {

// Numbered, so that one that is missing or moved is seen.
std::vector<TapFrame> frames(int from, int count) {
    std::vector<TapFrame> made(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const auto number = static_cast<float>(from + i);
        made[static_cast<std::size_t>(i)] = {{number, -number}, {number / 2, -number / 2}};
    }
    return made;
}
bool areFrom(std::span<const TapFrame> found, int from) {
    const std::vector<TapFrame> expected = frames(from, static_cast<int>(found.size()));
    return std::ranges::equal(found, expected, [](const TapFrame& one, const TapFrame& other) {
        return one.input == other.input && one.output == other.output;
    });
}

TEST(AudioTap, IsNotWantedAtFirstAndHasNothing) {
    AudioTap tap;
    EXPECT_FALSE(tap.isWanted());
    EXPECT_TRUE(tap.waiting().empty());
    EXPECT_EQ(tap.sampleRateHz(), 0);
}

TEST(AudioTap, HandsOnWhatWasAppendedInItsOrder) {
    AudioTap tap;
    ASSERT_TRUE(tap.setWanted(true));
    EXPECT_TRUE(tap.isWanted());
    tap.append(frames(0, 100));
    tap.append(frames(100, 28));
    ASSERT_EQ(tap.waiting().size(), 128u);
    EXPECT_TRUE(areFrom(tap.waiting(), 0));
    tap.consume(100);
    ASSERT_EQ(tap.waiting().size(), 28u);
    EXPECT_TRUE(areFrom(tap.waiting(), 100));
}

// Pages of this thread's that the system has had to bring.
long pagesBrought() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_minflt + usage.ru_majflt;
}

TEST(AudioTap, EveryPageOfItsMemoryIsThereBeforeTheFirstFrame) {
    const std::vector<TapFrame> some = frames(0, AudioTap::capacity);
    for (const bool isWarm : {false, true}) { // the first time brings the code
        AudioTap tap;
        ASSERT_TRUE(tap.setWanted(true));
        const long before = pagesBrought();
        tap.append(std::span(some).first(AudioTap::capacity - 1));
        tap.consume(AudioTap::capacity - 1);
        tap.append(some); // nearly all of it beyond the wrap
        if (isWarm) {
            EXPECT_EQ(pagesBrought(), before);
        }
    }
}

TEST(AudioTap, LeavesOutWhatHasNoRoom) {
    constexpr int room = AudioTap::capacity;
    AudioTap tap;
    ASSERT_TRUE(tap.setWanted(true));
    tap.append(frames(0, room - 10));
    tap.append(frames(room - 10, 30)); // of which the latest ten are kept
    tap.append(frames(0, 5));
    ASSERT_EQ(tap.waiting().size(), AudioTap::capacity);
    EXPECT_TRUE(areFrom(tap.waiting().first(AudioTap::capacity - 10), 0));
    EXPECT_TRUE(areFrom(tap.waiting().last(10), room + 10));
}

TEST(AudioTap, WhatIsWantedAgainBeginsAnew) {
    AudioTap tap;
    ASSERT_TRUE(tap.setWanted(true));
    tap.append(frames(0, 50));
    tap.setWanted(false);
    EXPECT_FALSE(tap.isWanted());
    ASSERT_TRUE(tap.setWanted(true));
    EXPECT_TRUE(tap.waiting().empty());
}

TEST(AudioTap, TheAudiosSideNeitherAllocatesNorLocks) {
    AudioTap tap;
    ASSERT_TRUE(tap.setWanted(true));
    const std::vector<TapFrame> block = frames(0, 700);
    const realtime::Offences seen = realtime::offencesOf([&] {
        for (int i = 0; i < 100; ++i) { // past the end of the ring
            tap.setSampleRateHz(48000);
            if (tap.isWanted()) tap.append(block);
        }
    });
    EXPECT_FALSE(seen.any()) << seen;
    EXPECT_EQ(tap.sampleRateHz(), 48000);
}

TEST(AudioTap, TwoThreadsLoseNothingWhileThereIsRoom) {
    AudioTap tap;
    ASSERT_TRUE(tap.setWanted(true));
    constexpr int block = 127, blocks = 2000; // co-prime to the ring
    std::atomic<int> taken = 0;
    std::thread audio([&] {
        for (int i = 0; i < blocks; ++i) {
            while ((i + 1) * block - taken > static_cast<int>(AudioTap::capacity))
                std::this_thread::yield();
            tap.append(frames(i * block, block));
        }
    });
    bool isInOrder = true;
    while (taken < block * blocks) {
        const std::span<const TapFrame> waiting = tap.waiting();
        const std::size_t some = std::min<std::size_t>(waiting.size(), 311);
        isInOrder &= areFrom(waiting.first(some), taken);
        tap.consume(some);
        taken += static_cast<int>(some);
    }
    audio.join();
    EXPECT_TRUE(isInOrder);
}

} // namespace
} // namespace QVM_NAMESPACE
