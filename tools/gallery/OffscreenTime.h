// Time for pictures that nobody waits for: the run loop and display links go by it, and it passes when told to. What is
// shown after so many seconds is then the same each time, however busy the machine is.
#pragma once

#include "platform/runloop/DisplayLink.h"
#include "platform/runloop/VirtualTime.h"

namespace QVM_NAMESPACE {

// No display link may be running when it is made or when it goes. Main thread; at most one at a time.
class OffscreenTime final : private DisplayTickSource {
public:
    OffscreenTime() = default;
    OffscreenTime(const OffscreenTime&) = delete;
    OffscreenTime& operator=(const OffscreenTime&) = delete;

    // Lets time pass, with sixty display frames a second.
    void advance(double seconds);

private:
    void start(Tick tick) override { tick_ = std::move(tick); }
    void stop() override { tick_ = nullptr; }

    VirtualTime time_;
    Tick tick_; // none while no link runs
    ScopedDisplayTickSource scope_{*this};
};

} // namespace QVM_NAMESPACE
