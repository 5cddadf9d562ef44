// A stereo clip played in real time to whatever wants to look at it. No sound comes of it.
#pragma once

#include "platform/runloop/DelayedCall.h"
#include "platform/runloop/NotificationCenter.h"
#include "plugin/standalone/AudioFile.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class StereoFeed {
public:
    // The samples since the last call, as many on either side; they are gone after the call.
    using Listener = std::function<void(std::span<const float> left, std::span<const float> right)>;

    // A clip of one channel is heard on both. `title` says what it is.
    StereoFeed(AudioClip clip, std::string title);

    const std::string& title() const { return title_; }
    double sampleRateHz() const { return clip_.sampleRateHz; }
    // Calls the listener at about 60 Hz, by the run loop's clock, until the token goes, which must be before the feed.
    // While nobody listens the clip stands still and costs nothing. Main thread.
    [[nodiscard]] ObservationToken listen(Listener listener);

private:
    void play();

    const AudioClip clip_;
    const std::string title_;
    std::vector<std::shared_ptr<Listener>> listeners_;
    std::vector<float> left_, right_; // of one call
    std::size_t at_ = 0;
    double playedUntil_ = 0; // seconds on the run loop's clock
    DelayedCall next_;
};

} // namespace QVM_NAMESPACE
