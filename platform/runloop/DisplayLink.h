// Tells a view when to make its next frame.
//
// All links share one tick source a process, which runs only while a link does. A link's callback is called on the
// source's thread and does no more than to read the time stamp and hand a frame to the main queue with postFrame().
#pragma once

#include "platform/runloop/DisplayTickSource.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>

namespace QVM_NAMESPACE {

class DisplayLink : public std::enable_shared_from_this<DisplayLink> {
public:
    // `context` is what was given with it. Returns 0 for success.
    using OutputCallback = int (*)(const std::shared_ptr<DisplayLink>& link, const DisplayTimeStamp& output,
                                   void* context);

    // A link to the display's refresh, stopped. Main thread, like all but postFrame() and isRunning().
    static std::shared_ptr<DisplayLink> create();
    DisplayLink(const DisplayLink&) = delete;
    DisplayLink& operator=(const DisplayLink&) = delete;

    // While the link is stopped. The context is borrowed until the link has been stopped for the last time.
    void setOutputCallback(OutputCallback callback, void* context);
    // Starting twice is starting once. A running link is kept alive: who starts it must stop it.
    void start();
    // When this returns no callback is running and no posted frame will: those on their way are dropped. Not to be
    // called by the callback.
    void stop();
    bool isRunning() const { return isRunning_; }

    // Runs `frame` on the main thread, unless the link has been stopped by then. Dropped at once while an earlier frame
    // is still waiting or running, so that a busy main thread is not buried. Any thread.
    void postFrame(std::function<void()> frame);

private:
    friend class DisplayLinkHub;
    DisplayLink() = default;

    OutputCallback callback_ = nullptr; // written while stopped, read by the tick thread while running
    void* context_ = nullptr;
    std::atomic<bool> isRunning_{false};
    std::atomic<bool> isFramePosted_{false};
    std::atomic<std::uint32_t> run_{0}; // counts starts, so that a frame of an earlier run is known
};

// How many frames a second one window has use for: those of its display. All links tick at the highest rate that any
// window asks for, at 60 when none does. Main thread.
class DisplayRate {
public:
    DisplayRate() = default;
    ~DisplayRate() { setHertz(0); }
    DisplayRate(const DisplayRate&) = delete;
    DisplayRate& operator=(const DisplayRate&) = delete;

    // What is no display's rate takes the request back.
    void setHertz(double hertz);

private:
    double hertz_ = 0;
};

// While it lives links tick by the borrowed source. No link may be running at either end. For tests; main thread.
class ScopedDisplayTickSource {
public:
    explicit ScopedDisplayTickSource(DisplayTickSource& source);
    ~ScopedDisplayTickSource();
    ScopedDisplayTickSource(const ScopedDisplayTickSource&) = delete;
    ScopedDisplayTickSource& operator=(const ScopedDisplayTickSource&) = delete;

private:
    DisplayTickSource* outer_;
};

} // namespace QVM_NAMESPACE
