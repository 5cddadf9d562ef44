#include "platform/runloop/DisplayTickSource.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <utility>

#include <pthread.h>

namespace QVM_NAMESPACE {

namespace {

constexpr double kLeastRate = 10, kMostRate = 1000; // hertz
constexpr std::int32_t kNanosecondsPerSecond = 1'000'000'000;

std::int64_t steadyNanoseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * kNanosecondsPerSecond + now.tv_nsec;
}

} // namespace

ThreadTickSource::ThreadTickSource() {
    ::sem_init(&wake_, 0, 0);
}

ThreadTickSource::~ThreadTickSource() {
    stop();
    ::sem_destroy(&wake_);
}

bool ThreadTickSource::isRate(double hertz) {
    return hertz >= kLeastRate && hertz <= kMostRate;
}

void ThreadTickSource::setRate(double hertz) {
    periodNanoseconds_ = static_cast<std::int64_t>(kNanosecondsPerSecond / hertz);
    ::sem_post(&wake_);
}

void ThreadTickSource::start(Tick tick) {
    tick_ = std::move(tick);
    thread_ = std::thread([this] { run(); });
}

void ThreadTickSource::stop() {
    if (!thread_.joinable()) return;
    isStopping_ = true;
    ::sem_post(&wake_);
    thread_.join();
    isStopping_ = false;
}

bool ThreadTickSource::sleepsUntil(std::int64_t time) {
    const timespec until{static_cast<std::time_t>(time / kNanosecondsPerSecond),
                         static_cast<long>(time % kNanosecondsPerSecond)};
    return ::sem_clockwait(&wake_, CLOCK_MONOTONIC, &until) != 0 && errno == ETIMEDOUT;
}

void ThreadTickSource::run() {
    ::pthread_setname_np(::pthread_self(), "display link");
    for (std::int64_t last = steadyNanoseconds(); !isStopping_;) {
        const std::int64_t period = periodNanoseconds_;
        // Frames that were slept through are not made up for.
        const std::int64_t next = std::max(last + period, steadyNanoseconds());
        if (!sleepsUntil(next)) continue; // at the rate of now, from the last tick on
        tick_({next, kNanosecondsPerSecond, period});
        last = next;
    }
}

} // namespace QVM_NAMESPACE
