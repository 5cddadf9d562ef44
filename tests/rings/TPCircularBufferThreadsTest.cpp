// Two real threads, as the render thread and the drawing side are.
#include "rings/QVMCircularBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <numeric>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t kSamples = 300'000;

// Chunk sizes share no factor with the capacity, so that every offset of head and tail is met.
struct Chunks {
    std::uint32_t written, read;
};

class TPCircularBufferThreadsTest : public testing::TestWithParam<Chunks> {};

TEST_P(TPCircularBufferThreadsTest, ReaderSeesEveryStampInOrder) {
    TPCircularBuffer ring;
    ASSERT_TRUE(TPCircularBufferInit(&ring, 1));
    constexpr auto sampleBytes = static_cast<std::int32_t>(sizeof(std::uint32_t));
    const auto capacity = static_cast<std::uint32_t>(ring.length / sampleBytes);
    ASSERT_EQ(std::gcd(capacity, GetParam().written), 1u);
    ASSERT_EQ(std::gcd(capacity, GetParam().read), 1u);

    std::thread writer([&] {
        for (std::uint32_t next = 0; next < kSamples;) {
            const std::uint32_t count = std::min(GetParam().written, kSamples - next);
            std::int32_t free = 0;
            auto* const head = static_cast<std::uint32_t*>(TPCircularBufferHead(&ring, &free));
            if (free < static_cast<std::int32_t>(count) * sampleBytes) {
                std::this_thread::yield();
                continue;
            }
            std::iota(head, head + count, next);
            next += count;
            TPCircularBufferProduce(&ring, static_cast<std::int32_t>(count) * sampleBytes);
        }
    });
    std::uint32_t expected = 0, wrong = 0;
    while (expected < kSamples) {
        const std::uint32_t count = std::min(GetParam().read, kSamples - expected);
        std::int32_t readable = 0;
        const auto* const tail = static_cast<const std::uint32_t*>(TPCircularBufferTail(&ring, &readable));
        if (readable < static_cast<std::int32_t>(count) * sampleBytes) {
            std::this_thread::yield();
            continue;
        }
        for (std::uint32_t i = 0; i < count; ++i)
            wrong += tail[i] != expected + i;
        expected += count;
        TPCircularBufferConsume(&ring, static_cast<std::int32_t>(count) * sampleBytes);
    }
    writer.join();
    EXPECT_EQ(wrong, 0u);
    EXPECT_EQ(ring.fillCount.load(), 0);
    TPCircularBufferCleanup(&ring);
}

INSTANTIATE_TEST_SUITE_P(Chunks, TPCircularBufferThreadsTest,
                         testing::Values(Chunks{1, 1}, Chunks{7, 5}, Chunks{5, 7}, Chunks{333, 17}, Chunks{3, 511},
                                         Chunks{1023, 1023}, Chunks{1023, 1}));

// The sliding window as the displays use it: the audio side skips a block when the lock is busy.
TEST(QVMCircularBufferThreadsTest, SlidingWindowIsWholeUnderTheSharedLock) {
    constexpr unsigned window = 1600, blockFrames = 37;
    QVMCircularBuffer<float> buffer(2, window, true);
    ASSERT_TRUE(buffer.init());
    std::mutex lock;
    // The audio side runs ahead far enough to be at work while a window is looked at, and not so far that a stamp is
    // more than the whole numbers that a float can hold. Who has to wait for the other sleeps, and never with the lock
    // in hand: on a busy machine neither would get to the other's turn.
    constexpr int windows = 400, ahead = 1000;
    std::atomic<int> written = 0, seen = 0; // blocks, windows
    std::thread audio([&] {
        QVMAudioBuffer<float> block(2);
        block.alloc(blockFrames);
        float stamp = 0;
        for (int taken = 0; taken < windows; taken = seen) {
            if (written > ahead * (taken + 1)) {
                seen.wait(taken);
                continue;
            }
            const std::unique_lock held(lock, std::try_to_lock);
            if (!held) {
                std::this_thread::yield();
                continue;
            }
            for (unsigned f = 0; f < blockFrames; ++f) {
                block.channels[0][f] = ++stamp;
                block.channels[1][f] = -stamp;
            }
            buffer.fillAndTap(&block, blockFrames, true);
            ++written;
            written.notify_one();
        }
    });
    int wrong = 0, blocks = 0;
    float newest = 0;
    while (seen < windows) {
        written.wait(blocks); // until something has come
        const std::lock_guard held(lock);
        blocks = written;
        ++seen;
        seen.notify_one(); // before the look, so that the audio side runs into the lock
        wrong += buffer.availFrames != window;
        wrong += buffer.taps[0][window - 1] == newest;
        newest = buffer.taps[0][window - 1];
        wrong += newest != static_cast<float>(blocks * static_cast<int>(blockFrames));
        for (unsigned f = 0; f + 1 < window; ++f) {
            const float now = buffer.taps[0][f], next = buffer.taps[0][f + 1];
            wrong += next != now + 1 && !(now == 0 && next == 0);
            wrong += buffer.taps[1][f] != -now;
        }
    }
    audio.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
} // namespace QVM_NAMESPACE
