#include "tools/gallery/StereoFeed.h"

#include "platform/runloop/RunLoop.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {
constexpr double kPeriod = 1.0 / 60; // seconds
constexpr double kMostAtOnce = 0.25; // seconds; what a stalled program has missed stays missed
} // namespace

StereoFeed::StereoFeed(AudioClip clip, std::string title) : clip_(std::move(clip)), title_(std::move(title)) {}

ObservationToken StereoFeed::listen(Listener listener) {
    auto added = std::make_shared<Listener>(std::move(listener));
    if (listeners_.empty()) {
        playedUntil_ = RunLoop::main().now();
        next_.schedule(kPeriod, [this] { play(); });
    }
    listeners_.push_back(added);
    return ObservationToken([this, added] {
        std::erase(listeners_, added);
        if (listeners_.empty()) next_.cancel();
    });
}

void StereoFeed::play() {
    const double now = RunLoop::main().now();
    playedUntil_ = std::max(playedUntil_, now - kMostAtOnce);
    const auto frames = static_cast<std::size_t>(std::max(0.0, now - playedUntil_) * clip_.sampleRateHz);
    playedUntil_ += static_cast<double>(frames) / clip_.sampleRateHz;
    left_.clear();
    right_.clear();
    for (std::size_t i = 0; i < frames; ++i) {
        left_.push_back(clip_.channels.front()[at_]);
        right_.push_back(clip_.channels.back()[at_]);
        at_ = at_ + 1 == clip_.frames() ? 0 : at_ + 1;
    }
    next_.schedule(kPeriod, [this] { play(); });
    const std::vector<std::shared_ptr<Listener>> all = listeners_; // one of them may go meanwhile
    for (const std::shared_ptr<Listener>& listener : all)
        (*listener)(left_, right_);
}

} // namespace QVM_NAMESPACE
