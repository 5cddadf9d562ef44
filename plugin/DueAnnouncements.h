// Which values the host is still to be told of, by the render thread: one bit a parameter, in one word.
//
// A host that loads a session sets a program and then the state that overrules it, before any audio. What it is told of
// a program's values must not reach it after that state: it would write them back. So they wait for the next block, and
// a restore drops them.
#pragma once

#include "BuildNamespace.h"

#include <atomic>
#include <cstdint>

namespace QVM_NAMESPACE {

// Any thread, no lock: whoever changes values adds them, and the render thread takes all to tell of them. Whoever
// restores a state takes all too, and tells of none.
class DueAnnouncements {
public:
    void add(std::uint32_t bits) { due_.fetch_or(bits, std::memory_order_release); }
    // What was due, and is no more.
    std::uint32_t take() {
        if (due_.load(std::memory_order_relaxed) == 0) return 0; // nearly always
        return due_.exchange(0, std::memory_order_acquire);
    }

private:
    std::atomic<std::uint32_t> due_ = 0;
};

} // namespace QVM_NAMESPACE
