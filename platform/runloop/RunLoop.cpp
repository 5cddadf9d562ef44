#include "platform/runloop/RunLoop.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

double steadySeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace

RunLoop& RunLoop::main() {
    // Never destroyed: calls may be cancelled by objects that die while the process ends.
    static RunLoop& loop = *new RunLoop;
    return loop;
}

RunLoop::RunLoop() = default;
RunLoop::~RunLoop() = default;

double RunLoop::now() const {
    const std::shared_lock lock(borrowedMutex_);
    return clock_ ? clock_->now() : steadySeconds();
}

void RunLoop::setClock(const Clock* clock) {
    const double before = now();
    {
        const std::unique_lock lock(borrowedMutex_);
        clock_ = clock;
    }
    const double moved = now() - before;
    {
        const std::lock_guard lock(mutex_);
        for (Call& call : calls_)
            call.due += moved;
    }
    if (const auto due = nextDue()) wakeDriver(*due);
}

void RunLoop::setDriver(RunLoopDriver* driver) {
    {
        const std::unique_lock lock(borrowedMutex_);
        driver_ = driver;
    }
    if (const auto due = nextDue()) wakeDriver(*due);
}

void RunLoop::post(Function fn) {
    schedule(0, std::move(fn));
}

RunLoop::CallId RunLoop::schedule(double seconds, Function fn) {
    const double due = now() + std::max(0.0, seconds);
    CallId id = 0;
    {
        const std::lock_guard lock(mutex_);
        id = ++lastId_;
        const auto behind = std::upper_bound(calls_.begin(), calls_.end(), due,
                                             [](double time, const Call& call) { return time < call.due; });
        calls_.insert(behind, Call{due, id, std::move(fn)});
    }
    wakeDriver(due);
    return id;
}

void RunLoop::cancel(CallId id) {
    Function dropped; // destroyed without the lock: what it holds may call back
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(calls_.begin(), calls_.end(), [id](const Call& call) { return call.id == id; });
    if (found == calls_.end()) return;
    dropped = std::move(found->fn);
    calls_.erase(found);
}

std::optional<double> RunLoop::runDue() {
    becomeMainThread();
    const double time = now();
    std::unique_lock lock(mutex_);
    const CallId last = lastId_;
    for (;;) {
        const auto next = std::find_if(calls_.begin(), calls_.end(), [last](const Call& c) { return c.id <= last; });
        if (next == calls_.end() || next->due > time) break;
        {
            const Function fn = std::move(next->fn);
            calls_.erase(next);
            lock.unlock();
            if (fn) fn();
        }
        lock.lock();
    }
    if (calls_.empty()) return std::nullopt;
    return calls_.front().due;
}

std::optional<double> RunLoop::nextDue() const {
    const std::lock_guard lock(mutex_);
    if (calls_.empty()) return std::nullopt;
    return calls_.front().due;
}

bool RunLoop::isMainThread() const {
    const std::lock_guard lock(mutex_);
    return mainThread_ == std::this_thread::get_id();
}

void RunLoop::becomeMainThread() {
    const std::lock_guard lock(mutex_);
    mainThread_ = std::this_thread::get_id();
}

void RunLoop::wakeDriver(double due) {
    // Held while the driver is called, so that one that was taken away is never called again.
    const std::shared_lock lock(borrowedMutex_);
    if (driver_) driver_->wakeAt(due);
}

} // namespace QVM_NAMESPACE
