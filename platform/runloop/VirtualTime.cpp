#include "platform/runloop/VirtualTime.h"

#include <algorithm>

namespace QVM_NAMESPACE {

VirtualTime::VirtualTime(double start) : now_(start) {
    RunLoop::main().becomeMainThread();
    RunLoop::main().setClock(this);
}

VirtualTime::~VirtualTime() {
    RunLoop::main().setClock(nullptr);
}

void VirtualTime::advance(double seconds) {
    // Steps that add up to a due time in decimals reach it, whatever their sum is in binary.
    constexpr double tolerance = 1e-9;
    const double end = now_ + seconds;
    for (auto due = RunLoop::main().nextDue(); due && *due <= end + tolerance; due = RunLoop::main().nextDue()) {
        now_ = std::max(now_.load(), *due);
        RunLoop::main().runDue();
    }
    now_ = std::max(now_.load(), end);
}

void VirtualTime::settle() {
    advance(0);
}

} // namespace QVM_NAMESPACE
