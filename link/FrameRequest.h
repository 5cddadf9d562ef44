// Asks whoever draws for the next display frame. A frame that nobody asks for is not made, so whoever writes something
// that can be seen says so afterwards.
#pragma once

#include "link/SharedWord.h"

namespace QVM_NAMESPACE {

class FrameRequest {
public:
    // After what is to be seen was written. Any thread, never waits.
    void ask() { isAsked_.storeOrdered(true); }
    // Whether a frame is wanted; says nothing about other words. Any thread.
    bool isAsked() const { return isAsked_.load(); }
    // Main thread, in a frame and before it reads anything: takes the request, whether there was one. What is written
    // meanwhile asks again.
    bool take() { return isAsked_.exchangeOrdered(false); }

private:
    SharedWord<bool> isAsked_ = false;
};

} // namespace QVM_NAMESPACE
