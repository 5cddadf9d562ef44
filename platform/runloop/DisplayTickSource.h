// Where display ticks come from: a thread, or a test's own hand.
#pragma once

#include "BuildNamespace.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>

#include <semaphore.h>

namespace QVM_NAMESPACE {

// When a frame will be seen, as a display counts time.
struct DisplayTimeStamp {
    std::int64_t videoTime = 0;          // units since an arbitrary start
    std::int32_t videoTimeScale = 1;     // units a second
    std::int64_t videoRefreshPeriod = 0; // units a frame
};

class DisplayTickSource {
public:
    using Tick = std::function<void(const DisplayTimeStamp&)>;
    virtual ~DisplayTickSource() = default;
    // From now on calls `tick` once a frame, on a thread of its own. Main thread; not when it is started already.
    virtual void start(Tick tick) = 0;
    // Returns once no tick is running and none will come. Main thread.
    virtual void stop() = 0;
};

// Ticks at the display's rate. The thread is there only between start and stop. It sleeps on a semaphore with nothing
// to lock, because what an editor at rest costs is little more than these awakenings.
class ThreadTickSource final : public DisplayTickSource {
public:
    ThreadTickSource();
    ~ThreadTickSource() override;
    void start(Tick tick) override;
    void stop() override;
    // Whether a display may have so many frames a second.
    static bool isRate(double hertz);
    // Such a number, 60 at first; taken on at once. Any thread.
    void setRate(double hertz);

private:
    void run();
    // Sleeps until that time of the steady clock, in nanoseconds. False when something is to be looked at before.
    bool sleepsUntil(std::int64_t time);

    Tick tick_;
    std::thread thread_;
    sem_t wake_; // posted after a change of the next two
    std::atomic<std::int64_t> periodNanoseconds_{1'000'000'000 / 60};
    std::atomic<bool> isStopping_{false};
};

} // namespace QVM_NAMESPACE
