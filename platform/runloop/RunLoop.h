// The main thread's queue and its delayed calls.
//
// One run loop a process. It owns no thread and no timer: a driver (the toolkit adapter, or a test's virtual clock)
// wakes it and calls `runDue()`. So everything above the adapter can be tested in virtual time.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {

// A source of monotonic time. `now()` is in seconds from an arbitrary start.
class Clock {
public:
    virtual ~Clock() = default;
    virtual double now() const = 0;
};

// What makes a run loop go. `wakeAt` may be called from any thread; it asks for `RunLoop::runDue()` to be called on the
// main thread at or soon after the given time. A later call with an earlier time moves the wake-up forward. It only
// asks: it neither runs calls in place nor sets the run loop's driver or clock.
class RunLoopDriver {
public:
    virtual ~RunLoopDriver() = default;
    virtual void wakeAt(double seconds) = 0;
};

class RunLoop {
public:
    using Function = std::function<void()>;
    using CallId = std::uint64_t;

    // The process's run loop. Any thread; lives until the process ends.
    static RunLoop& main();

    RunLoop();
    ~RunLoop();
    RunLoop(const RunLoop&) = delete;
    RunLoop& operator=(const RunLoop&) = delete;

    // Seconds on the injected clock (the steady clock when none was injected). Any thread.
    double now() const;
    // Both are borrowed and may be null; set them from the main thread. A driver that is set learns of pending work;
    // one that was replaced is not called any more once this returns. Pending calls keep their remaining time when the
    // clock changes.
    void setClock(const Clock* clock);
    void setDriver(RunLoopDriver* driver);

    // Runs `fn` on the main thread at the next pass, never in place. Any thread.
    void post(Function fn);
    // Runs `fn` on the main thread once `seconds` have passed (0: at the next pass). Any thread.
    CallId schedule(double seconds, Function fn);
    // A call that has run or was cancelled is no error. Any thread.
    void cancel(CallId id);

    // Main thread: runs what is due, in order of due time, then of scheduling. What it schedules itself waits for the
    // next pass. Returns the due time of the earliest call left.
    std::optional<double> runDue();
    // Due time of the earliest pending call. Any thread.
    std::optional<double> nextDue() const;

    // Whether the calling thread is the one that last ran `runDue()` or `becomeMainThread()`. A host may move the
    // message thread while no editor is open, so this is asked anew each time.
    bool isMainThread() const;
    void becomeMainThread();

private:
    struct Call {
        double due = 0;
        CallId id = 0;
        Function fn;
    };
    void wakeDriver(double due);

    mutable std::mutex mutex_;
    std::vector<Call> calls_;    // guarded by mutex_; by due time, then by id
    CallId lastId_ = 0;          // guarded by mutex_
    std::thread::id mainThread_; // guarded by mutex_

    // Shared by who calls the driver or the clock, exclusive for who replaces them. Never taken with mutex_ held.
    mutable std::shared_mutex borrowedMutex_;
    RunLoopDriver* driver_ = nullptr;
    const Clock* clock_ = nullptr;
};

} // namespace QVM_NAMESPACE
