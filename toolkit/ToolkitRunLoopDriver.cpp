#include "toolkit/ToolkitRunLoopDriver.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {

namespace {
constexpr double never = std::numeric_limits<double>::infinity();
constexpr double longestSleep = 3600; // seconds; then it looks again
} // namespace

ToolkitRunLoopDriver::ToolkitRunLoopDriver() : nextWake_(never) {
    RunLoop::main().setDriver(this);
}

ToolkitRunLoopDriver::~ToolkitRunLoopDriver() {
    RunLoop::main().setDriver(nullptr); // from here on no thread calls wakeAt()
    cancelPendingUpdate();
    stopTimer();
}

void ToolkitRunLoopDriver::wakeAt(double seconds) {
    {
        const std::lock_guard lock(mutex_);
        if (seconds >= nextWake_) return;
        nextWake_ = seconds;
    }
    wakeIn(seconds - RunLoop::main().now());
}

void ToolkitRunLoopDriver::wakeIn(double secondsFromNow) {
    if (secondsFromNow <= 0) {
        triggerAsyncUpdate();
    } else {
        startTimer(static_cast<int>(std::ceil(std::min(secondsFromNow, longestSleep) * 1000)));
    }
}

void ToolkitRunLoopDriver::run() {
    stopTimer();
    {
        const std::lock_guard lock(mutex_);
        nextWake_ = never;
    }
    if (const auto due = RunLoop::main().runDue()) wakeAt(*due);
}

} // namespace QVM_NAMESPACE
