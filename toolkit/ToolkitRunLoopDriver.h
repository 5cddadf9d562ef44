// Runs the main run loop on the toolkit's message thread.
#pragma once

#include "platform/runloop/RunLoop.h"

#include <juce_events/juce_events.h>

#include <mutex>

namespace QVM_NAMESPACE {

// While it lives it drives RunLoop::main(). With nothing pending it holds no timer and costs nothing.
class ToolkitRunLoopDriver final : public RunLoopDriver, private juce::AsyncUpdater, private juce::Timer {
public:
    // Main thread, with the toolkit initialised.
    ToolkitRunLoopDriver();
    ~ToolkitRunLoopDriver() override;
    ToolkitRunLoopDriver(const ToolkitRunLoopDriver&) = delete;
    ToolkitRunLoopDriver& operator=(const ToolkitRunLoopDriver&) = delete;

    void wakeAt(double seconds) override;

private:
    void handleAsyncUpdate() override { run(); }
    void timerCallback() override { run(); }
    void run();
    void wakeIn(double secondsFromNow);

    std::mutex mutex_;
    double nextWake_; // guarded by mutex_; infinite when none is asked for
};

} // namespace QVM_NAMESPACE
