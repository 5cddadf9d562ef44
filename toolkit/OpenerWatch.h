// Waits for what a program has to say that was started and goes on by itself, as one that opens an address.
//
// It holds the other end of a pipe: a byte in it says that it failed, its end that it did not. Who says nothing for
// long is at work.
#pragma once

#include "platform/runloop/DelayedCall.h"

#include <functional>

namespace QVM_NAMESPACE {

// Main thread.
class OpenerWatch {
public:
    static constexpr double longestSeconds = 20; // a slow desktop asks several programs in turn

    OpenerWatch() = default;
    ~OpenerWatch() { stop(); }
    OpenerWatch(const OpenerWatch&) = delete;
    OpenerWatch& operator=(const OpenerWatch&) = delete;

    // Owns the pipe's end, which does not block. The last one that was watched is forgotten.
    void watch(int pipe, std::function<void()> didFail);
    void stop();
    bool isWatching() const { return pipe_ >= 0; }

private:
    void look();

    int pipe_ = -1; // none
    int looksLeft_ = 0;
    std::function<void()> didFail_;
    DelayedCall look_;
};

} // namespace QVM_NAMESPACE
