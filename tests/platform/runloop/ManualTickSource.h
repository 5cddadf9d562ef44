// Display ticks by hand, for tests in virtual time.
#pragma once

#include "platform/runloop/DisplayLink.h"

#include <utility>

namespace QVM_NAMESPACE {

// While it lives display links tick when told to.
class ManualTickSource final : public DisplayTickSource {
public:
    void start(Tick tick) override {
        tick_ = std::move(tick);
        ++starts;
    }
    void stop() override {
        tick_ = nullptr;
        ++stops;
    }
    bool isStarted() const { return tick_ != nullptr; }
    // One tick, `seconds` after the start of time, for a display of `hertz` frames a second. Nothing when stopped.
    void tick(double seconds, int hertz = 60) {
        constexpr std::int32_t unitsPerSecond = 720'000;
        if (tick_)
            tick_({static_cast<std::int64_t>(seconds * unitsPerSecond + 0.5), unitsPerSecond, unitsPerSecond / hertz});
    }

    int starts = 0, stops = 0;

private:
    Tick tick_;
    ScopedDisplayTickSource scope_{*this};
};

} // namespace QVM_NAMESPACE
