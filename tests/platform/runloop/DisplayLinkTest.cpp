#include "platform/runloop/DisplayLink.h"

#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <thread>

#include <pthread.h>

namespace QVM_NAMESPACE {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;

// What a view does: reads the stamp on the tick's thread, makes its frame on the main thread.
struct Viewer {
    std::shared_ptr<DisplayLink> link = DisplayLink::create();
    std::vector<double> times;
    double duration = 0;
    std::atomic<int> callbacks{0};

    Viewer() { link->setOutputCallback(&callback, this); }
    ~Viewer() { link->stop(); }
    static int callback(const std::shared_ptr<DisplayLink>& link, const DisplayTimeStamp& output, void* context) {
        auto* const self = static_cast<Viewer*>(context);
        ++self->callbacks;
        const double seconds = static_cast<double>(output.videoTime) / output.videoTimeScale;
        const double period = static_cast<double>(output.videoRefreshPeriod) / output.videoTimeScale;
        link->postFrame([self, seconds, period] {
            self->times.push_back(seconds);
            self->duration = period;
        });
        return 0;
    }
};

struct DisplayLinkTest : testing::Test {
    VirtualTime time;
    ManualTickSource source;
};

TEST_F(DisplayLinkTest, FrameRunsOnTheMainQueueWithTimeAndDuration) {
    Viewer viewer;
    viewer.link->start();
    source.tick(1.25, 144);
    EXPECT_TRUE(viewer.times.empty()) << "ran in place";
    time.settle();
    EXPECT_THAT(viewer.times, ElementsAre(DoubleEq(1.25)));
    EXPECT_DOUBLE_EQ(viewer.duration, 1.0 / 144);
}

TEST_F(DisplayLinkTest, AtMostOneFrameIsInFlight) {
    Viewer viewer;
    viewer.link->start();
    for (int i = 0; i < 10; ++i)
        source.tick(i);
    time.settle();
    EXPECT_THAT(viewer.times, ElementsAre(0));
    source.tick(11);
    time.settle();
    EXPECT_THAT(viewer.times, ElementsAre(0, 11));
}

TEST_F(DisplayLinkTest, FrameThatArrivesAfterStopIsDropped) {
    Viewer viewer;
    viewer.link->start();
    source.tick(1);
    viewer.link->stop();
    time.settle();
    EXPECT_TRUE(viewer.times.empty());
}

TEST_F(DisplayLinkTest, FrameOfAnEarlierRunIsDroppedToo) {
    Viewer viewer;
    viewer.link->start();
    source.tick(1);
    viewer.link->stop();
    viewer.link->start();
    time.settle();
    EXPECT_TRUE(viewer.times.empty());
    source.tick(2);
    time.settle();
    EXPECT_THAT(viewer.times, ElementsAre(2));
}

TEST_F(DisplayLinkTest, FrameMayOutliveItsView) {
    {
        Viewer viewer;
        viewer.link->start();
        source.tick(1);
    }
    time.settle();
    EXPECT_FALSE(source.isStarted());
}

TEST_F(DisplayLinkTest, SourceRunsWhileAnyLinkDoes) {
    EXPECT_FALSE(source.isStarted());
    Viewer a, b;
    a.link->start();
    b.link->start();
    b.link->start();
    a.link->stop();
    EXPECT_TRUE(source.isStarted());
    source.tick(1);
    time.settle();
    EXPECT_TRUE(a.times.empty());
    EXPECT_EQ(b.times.size(), 1u);
    b.link->stop();
    b.link->stop();
    EXPECT_FALSE(source.isStarted());
    EXPECT_EQ(source.starts, 1);
    EXPECT_EQ(source.stops, 1);
}

TEST_F(DisplayLinkTest, LinkMayBeStoppedByItsOwnFrame) {
    Viewer viewer;
    viewer.link->start();
    viewer.link->postFrame([&] { viewer.link->stop(); });
    time.settle();
    EXPECT_FALSE(viewer.link->isRunning());
    EXPECT_FALSE(source.isStarted());
}

// A main thread that sleeps until the run loop has something for it.
class SleepingDriver final : public RunLoopDriver {
public:
    SleepingDriver() {
        RunLoop::main().becomeMainThread();
        RunLoop::main().setDriver(this);
    }
    ~SleepingDriver() override { RunLoop::main().setDriver(nullptr); }
    void wakeAt(double) override {
        const std::lock_guard lock(mutex_);
        isAwake_ = true;
        wake_.notify_one();
    }
    void runOnce() {
        {
            std::unique_lock lock(mutex_);
            wake_.wait(lock, [this] { return isAwake_; });
            isAwake_ = false;
        }
        RunLoop::main().runDue();
    }

private:
    std::mutex mutex_;
    std::condition_variable wake_;
    bool isAwake_ = false;
};

TEST(DisplayLinkThreadTest, FramesComeAtTheDisplaysRate) {
    SleepingDriver driver;
    DisplayRate display;
    display.setHertz(250);
    Viewer viewer;
    viewer.link->start();
    while (viewer.times.size() < 20)
        driver.runOnce();
    viewer.link->stop();
    EXPECT_NEAR(viewer.duration, 1.0 / 250, 1e-9);
    for (std::size_t i = 1; i < viewer.times.size(); ++i)
        EXPECT_GE(viewer.times[i] - viewer.times[i - 1], 0.00399); // later when the machine is busy, never sooner
}

TEST(DisplayLinkThreadTest, NoCallbackRunsOnceStopHasReturned) {
    SleepingDriver driver;
    DisplayRate display;
    display.setHertz(1000);
    for (int i = 0; i < 50; ++i) {
        Viewer viewer, other;
        viewer.link->start();
        other.link->start();
        while (viewer.callbacks < 2)
            std::this_thread::yield();
        viewer.link->stop();
        const int called = viewer.callbacks;
        const int others = other.callbacks;
        while (other.callbacks < others + 2)
            std::this_thread::yield();
        EXPECT_EQ(viewer.callbacks, called);
        RunLoop::main().runDue();
        EXPECT_TRUE(viewer.times.empty());
    }
    RunLoop::main().runDue();
}

// The period of the next frame.
double nextDuration(Viewer& viewer, SleepingDriver& driver) {
    viewer.times.clear();
    while (viewer.times.empty())
        driver.runOnce();
    return viewer.duration;
}

TEST(DisplayLinkThreadTest, TheFastestWindowSetsTheRate) {
    SleepingDriver driver;
    Viewer viewer;
    viewer.link->start();
    EXPECT_NEAR(nextDuration(viewer, driver), 1.0 / 60, 1e-9) << "none has asked";
    DisplayRate first;
    first.setHertz(12);
    {
        DisplayRate second;
        second.setHertz(200);
        first.setHertz(100);
        viewer.link->stop();
        viewer.link->start();
        EXPECT_NEAR(nextDuration(viewer, driver), 1.0 / 200, 1e-9);
    }
    viewer.link->stop();
    viewer.link->start();
    EXPECT_NEAR(nextDuration(viewer, driver), 1.0 / 100, 1e-9) << "a window that is gone asks for nothing";
}

TEST(DisplayLinkThreadTest, AFasterRateDoesNotWaitForTheSlowersNextFrame) {
    SleepingDriver driver;
    DisplayRate window;
    window.setHertz(10);
    Viewer viewer;
    viewer.link->start();
    nextDuration(viewer, driver);
    const double slow = viewer.times.front();
    window.setHertz(100);
    EXPECT_NEAR(nextDuration(viewer, driver), 1.0 / 100, 1e-9) << "no frame of the slow rate comes between";
    EXPECT_GE(viewer.times.front() - slow, 0.00999);
}

// A host may have signals of its own, and any thread may be the one that deals with them.
TEST(DisplayLinkThreadTest, ASignalIsNoTick) {
    struct sigaction before {};
    struct sigaction ignoring {};
    ignoring.sa_handler = [](int) {};
    ASSERT_EQ(::sigaction(SIGUSR1, &ignoring, &before), 0);
    std::atomic<::pthread_t> tickThread{};
    std::atomic<int> ticks{0}, early{0};
    ThreadTickSource source;
    source.setRate(20);
    source.start([&](const DisplayTimeStamp& stamp) {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        if (std::chrono::nanoseconds(now).count() < stamp.videoTime) ++early;
        tickThread = ::pthread_self();
        ++ticks;
    });
    while (ticks == 0)
        std::this_thread::yield();
    while (ticks < 4) {
        ::pthread_kill(tickThread, SIGUSR1);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    source.stop();
    EXPECT_EQ(early, 0);
    ::sigaction(SIGUSR1, &before, nullptr);
}

TEST(DisplayLinkThreadTest, RatesThatNoDisplayHasAskForNothing) {
    SleepingDriver driver;
    Viewer viewer;
    viewer.link->start();
    for (const double rate : {0.0, -60.0, 1e9, std::numeric_limits<double>::quiet_NaN()}) {
        DisplayRate window;
        window.setHertz(200);
        window.setHertz(rate);
        viewer.link->stop();
        viewer.link->start();
        EXPECT_NEAR(nextDuration(viewer, driver), 1.0 / 60, 1e-9) << rate;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
