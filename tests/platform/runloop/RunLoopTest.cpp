#include "platform/runloop/RunLoop.h"

#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

class FixedClock : public Clock {
public:
    double now() const override { return seconds; }
    std::atomic<double> seconds{100};
};

class RecordingDriver : public RunLoopDriver {
public:
    void wakeAt(double seconds) override {
        const std::lock_guard lock(mutex);
        wakes.push_back(seconds);
    }
    std::mutex mutex;
    std::vector<double> wakes;
};

struct RunLoopTest : testing::Test {
    FixedClock clock;
    RunLoop loop;
    std::vector<int> ran;
    RunLoopTest() { loop.setClock(&clock); }
    RunLoop::Function note(int n) {
        return [this, n] { ran.push_back(n); };
    }
};

TEST_F(RunLoopTest, PostedWorkNeverRunsInPlace) {
    loop.post(note(1));
    EXPECT_TRUE(ran.empty());
    loop.runDue();
    EXPECT_THAT(ran, ElementsAre(1));
}

TEST_F(RunLoopTest, RunsInOrderOfDueTimeThenOfScheduling) {
    loop.schedule(2, note(3));
    loop.schedule(1, note(1));
    loop.schedule(1, note(2));
    loop.schedule(3, note(4));
    clock.seconds = 102;
    EXPECT_EQ(loop.runDue(), 103);
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST_F(RunLoopTest, WhatIsScheduledDuringAPassWaitsForTheNext) {
    loop.post([&] {
        ran.push_back(1);
        loop.post(note(2));
        loop.schedule(0, note(3));
    });
    EXPECT_EQ(loop.runDue(), 100);
    EXPECT_THAT(ran, ElementsAre(1));
    EXPECT_EQ(loop.runDue(), std::nullopt);
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST_F(RunLoopTest, ACallCancelledByAnEarlierOneOfTheSamePassDoesNotRun) {
    RunLoop::CallId second = 0;
    loop.post([&] { loop.cancel(second); });
    second = loop.schedule(0, note(2));
    loop.runDue();
    EXPECT_TRUE(ran.empty());
}

TEST_F(RunLoopTest, CancellingWhatHasRunOrNeverWasIsHarmless) {
    const auto id = loop.schedule(0, note(1));
    loop.runDue();
    loop.cancel(id);
    loop.cancel(12345);
    EXPECT_THAT(ran, ElementsAre(1));
}

TEST_F(RunLoopTest, ACancelledCallIsDestroyedWithoutTheLockHeld) {
    struct Callback {
        RunLoop& loop;
        ~Callback() {
            loop.post([] {});
        }
    };
    const auto held = std::make_shared<Callback>(loop);
    auto moved = std::make_unique<std::shared_ptr<Callback>>(std::make_shared<Callback>(loop));
    const auto id = loop.schedule(5, [kept = std::shared_ptr<Callback>(std::move(*moved))] {});
    loop.cancel(id);
    EXPECT_EQ(loop.nextDue(), 100);
}

TEST_F(RunLoopTest, TheDriverIsAskedForEachDueTimeAndLearnsOfPendingWork) {
    loop.schedule(7, note(1));
    RecordingDriver driver;
    loop.setDriver(&driver);
    loop.schedule(3, note(2));
    loop.post(note(3));
    EXPECT_THAT(driver.wakes, ElementsAre(107, 103, 100));
    loop.setDriver(nullptr);
    loop.post(note(4));
    EXPECT_EQ(driver.wakes.size(), 3u);
}

TEST_F(RunLoopTest, ADriverMayAskTheLoopBack) {
    struct Asking : RunLoopDriver {
        RunLoop* loop = nullptr;
        std::optional<double> next;
        void wakeAt(double) override { next = loop->nextDue(); }
    } driver;
    driver.loop = &loop;
    loop.setDriver(&driver);
    loop.schedule(1, note(1));
    EXPECT_EQ(driver.next, 101);
    loop.setDriver(nullptr);
}

TEST_F(RunLoopTest, PendingCallsKeepTheirRemainingTimeWhenTheClockChanges) {
    loop.schedule(5, note(1));
    FixedClock other;
    other.seconds = 1000;
    loop.setClock(&other);
    EXPECT_EQ(loop.nextDue(), 1005);
    loop.setClock(&clock);
}

TEST_F(RunLoopTest, TheMainThreadIsTheOneThatLastRanAPass) {
    EXPECT_FALSE(loop.isMainThread());
    loop.runDue();
    EXPECT_TRUE(loop.isMainThread());
    std::thread([&] {
        EXPECT_FALSE(loop.isMainThread());
        loop.becomeMainThread();
        EXPECT_TRUE(loop.isMainThread());
    }).join();
    EXPECT_FALSE(loop.isMainThread());
    loop.runDue();
    EXPECT_TRUE(loop.isMainThread());
}

TEST(RunLoopClock, IsSteadyWhenNoneIsInjected) {
    const RunLoop loop;
    const double before = loop.now();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    EXPECT_GE(loop.now(), before + 0.002);
}

TEST(RunLoopThreads, PostsFromManyThreadsAllRunOnceAndInEachThreadsOrder) {
    constexpr int threads = 4, posts = 500;
    RunLoop loop;
    RecordingDriver driver;
    loop.setDriver(&driver);
    std::array<std::vector<int>, threads> ran; // touched by the main thread only
    std::atomic<int> done{0};
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&, t] {
            for (int i = 0; i < posts; ++i) {
                loop.post([&ran, t, i] { ran[static_cast<std::size_t>(t)].push_back(i); });
                loop.cancel(loop.schedule(1000, [] { ADD_FAILURE() << "a cancelled call ran"; }));
                EXPECT_FALSE(loop.now() < 0);
            }
            ++done;
        });
    }
    while (done < threads)
        loop.runDue();
    for (std::thread& worker : workers)
        worker.join();
    loop.runDue();
    for (const auto& own : ran) {
        ASSERT_EQ(own.size(), static_cast<std::size_t>(posts));
        EXPECT_TRUE(std::is_sorted(own.begin(), own.end()));
    }
    loop.setDriver(nullptr);
}

TEST(RunLoopThreads, ADriverThatWasTakenAwayIsNotCalledAnyMore) {
    RunLoop loop;
    std::atomic<bool> stop{false};
    std::thread poster([&] {
        while (!stop)
            loop.cancel(loop.schedule(10, [] {}));
    });
    for (int i = 0; i < 200; ++i) {
        RecordingDriver driver; // dies at the end of each turn while the other thread goes on
        loop.setDriver(&driver);
        loop.setDriver(nullptr);
    }
    stop = true;
    poster.join();
}

} // namespace
} // namespace QVM_NAMESPACE
