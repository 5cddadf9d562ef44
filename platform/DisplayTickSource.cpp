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

bool ThreadTickSource::isRate(double hertz) {
    return hertz >= kLeastRate && hertz <= kMostRate;
}

void ThreadTickSource::setRate(double hertz) {
    {
        const std::lock_guard lock(mutex_);
        periodNanoseconds_ = static_cast<std::int64_t>(kNanosecondsPerSecond / hertz);
    }
    wake_.notify_all();
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
    for (auto last = Clock::now();;) {
        const std::int64_t period = periodNanoseconds_;
        // Frames that were slept through are not made up for.
        const auto next = std::max(last + std::chrono::nanoseconds(period), Clock::now());
        const auto isDisturbed = [&] { return isStopping_ || periodNanoseconds_ != period; };
        if (wake_.wait_until(lock, next, isDisturbed)) {
            if (isStopping_) return;
            continue; // at the new rate, from the last tick on
        }
        lock.unlock();
        tick_({std::chrono::nanoseconds(next.time_since_epoch()).count(), kNanosecondsPerSecond, period});
        lock.lock();
        last = next;
    }
}

} // namespace QVM_NAMESPACE
