// A message to the main thread of which no more than one is under way, however often it is asked for.
#pragma once

#include <atomic>
#include <functional>
#include <utility>

namespace juce {

// Outlives what it has posted. Any thread, but for what is said to be the main thread's.
class SingleMessage {
public:
    using Post = std::function<bool(std::function<void()>)>; // false: refused, and will not come
    SingleMessage(Post post, std::function<void()> deliver) : post_(std::move(post)), deliver_(std::move(deliver)) {}

    // `deliver` runs on the main thread soon after: once for all calls since it last began to.
    void send() {
        if (isUnderWay_.exchange(true)) return;
        const bool isPosted = post_([this] {
            isUnderWay_ = false; // what it leads to may ask for the next one
            deliver_();
        });
        if (!isPosted) isUnderWay_ = false;
    }
    // Main thread: what was posted went down with whoever should have brought it.
    void forget() { isUnderWay_ = false; }

private:
    const Post post_;
    const std::function<void()> deliver_;
    std::atomic<bool> isUnderWay_ = false;
};

} // namespace juce
