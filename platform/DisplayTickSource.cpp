#include "platform/DisplayTickSource.h"

#include <algorithm>
#include <chrono>
#include <pthread.h>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double kLeastRate = 10, kMostRate = 1000; // hertz
constexpr std::int32_t kNanosecondsPerSecond = 1'000'000'000;

} // namespace

void ThreadTickSource::setRate(double hertz) {
    if (!(hertz >= kLeastRate && hertz <= kMostRate)) return;
    periodNanoseconds_ = static_cast<std::int64_t>(kNanosecondsPerSecond / hertz);
}

void ThreadTickSource::start(Tick tick) {
    tick_ = std::move(tick);
    thread_ = std::thread([this] { run(); });
}

void ThreadTickSource::stop() {
    if (!thread_.joinable()) return;
    {
        const std::lock_guard lock(mutex_);
        isStopping_ = true;
    }
    wake_.notify_all();
    thread_.join();
    isStopping_ = false;
}

void ThreadTickSource::run() {
    using Clock = std::chrono::steady_clock;
    ::pthread_setname_np(::pthread_self(), "display link");
    std::unique_lock lock(mutex_);
    for (auto next = Clock::now();;) {
        const std::chrono::nanoseconds period(periodNanoseconds_.load());
        // Frames that were slept through are not made up for.
        next = std::max(next + period, Clock::now());
        if (wake_.wait_until(lock, next, [this] { return isStopping_; })) return;
        lock.unlock();
        tick_({std::chrono::nanoseconds(next.time_since_epoch()).count(), kNanosecondsPerSecond, period.count()});
        lock.lock();
    }
}

} // namespace QVM_NAMESPACE
