// The trap must catch what it is for, or a test that sees no offence proves nothing.
#include "support/RealtimeTrap.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

TEST(RealtimeTrap, SeesNothingInPlainArithmetic) {
    volatile double sum = 0;
    const realtime::Offences seen = realtime::offencesOf([&] {
        for (int i = 0; i < 1000; ++i)
            sum = sum + 0.5;
    });
    EXPECT_FALSE(seen.any()) << seen;
}

TEST(RealtimeTrap, CatchesOperatorNewAndDelete) {
    const realtime::Offences seen = realtime::offencesOf([] {
        std::vector<int> grown;
        grown.push_back(1);
        volatile int kept = grown.back();
        (void)kept;
    });
    EXPECT_EQ(seen.heapCalls, 2U) << seen;
}

TEST(RealtimeTrap, CatchesMallocAndReallocAndFree) {
    void* volatile block = nullptr;
    const realtime::Offences seen = realtime::offencesOf([&] {
        block = std::malloc(16);
        block = std::realloc(block, 160);
        std::free(block);
    });
    EXPECT_GE(seen.heapCalls, 3U) << seen;
}

TEST(RealtimeTrap, CatchesAnOverAlignedAllocation) {
    struct alignas(64) Wide {
        char bytes[64];
    };
    std::unique_ptr<Wide> kept;
    const realtime::Offences seen = realtime::offencesOf([&] { kept = std::make_unique<Wide>(); });
    EXPECT_GE(seen.heapCalls, 1U) << seen;
}

TEST(RealtimeTrap, CatchesAFreeMutexBeingLocked) {
    std::mutex mutex;
    const realtime::Offences seen = realtime::offencesOf([&] { const std::lock_guard lock(mutex); });
    EXPECT_EQ(seen.locks, 1U) << seen;
}

TEST(RealtimeTrap, CatchesReadersAndWritersLocks) {
    std::shared_mutex mutex;
    const realtime::Offences seen = realtime::offencesOf([&] {
        { const std::shared_lock lock(mutex); }
        { const std::unique_lock lock(mutex); }
    });
    EXPECT_EQ(seen.locks, 2U) << seen;
}

TEST(RealtimeTrap, LetsTryLockPass) {
    std::mutex mutex;
    const realtime::Offences seen = realtime::offencesOf([&] {
        if (mutex.try_lock()) mutex.unlock();
    });
    EXPECT_FALSE(seen.any()) << seen;
}

TEST(RealtimeTrap, CatchesASystemCallThatNoLibraryFunctionStandsFor) {
    if (!realtime::seesSystemCalls()) GTEST_SKIP() << "this build or kernel cannot stop system calls";
    long process = 0;
    const realtime::Offences seen = realtime::offencesOf([&] { process = syscall(SYS_getpid); });
    EXPECT_EQ(seen.systemCalls, 1U) << seen;
    EXPECT_EQ(seen.firstSystemCall, SYS_getpid);
    EXPECT_EQ(process, getpid()) << "the call itself must still happen";
}

TEST(RealtimeTrap, CatchesSleepingAndYielding) {
    if (!realtime::seesSystemCalls()) GTEST_SKIP() << "this build or kernel cannot stop system calls";
    EXPECT_EQ(realtime::offencesOf([] { std::this_thread::yield(); }).systemCalls, 1U);
    EXPECT_EQ(realtime::offencesOf([] { usleep(1); }).systemCalls, 1U);
}

TEST(RealtimeTrap, LeavesOtherThreadsAlone) {
    std::mutex mutex;
    bool go = false;
    std::thread other([&] {
        while (!__atomic_load_n(&go, __ATOMIC_ACQUIRE))
            std::this_thread::yield();
        for (int i = 0; i < 1000; ++i) {
            const std::lock_guard lock(mutex);
            std::make_unique<int>(i);
        }
    });
    const realtime::Offences seen = realtime::offencesOf([&] {
        __atomic_store_n(&go, true, __ATOMIC_RELEASE);
        volatile double sum = 0;
        for (int i = 0; i < 100000; ++i)
            sum = sum + 0.5;
    });
    other.join();
    EXPECT_FALSE(seen.any()) << seen;
}

TEST(RealtimeTrap, CountsNothingOnceDisarmed) {
    realtime::arm();
    realtime::disarm();
    const auto kept = std::make_unique<int>(1);
    EXPECT_FALSE(realtime::offencesOf([] {}).any());
}

} // namespace
