// Work that must be done on the main thread, from wherever one is.
#pragma once

#include "BuildNamespace.h"

#include <functional>

namespace QVM_NAMESPACE {

// Runs `block` on the main thread and returns when it has run: at once on the main thread itself, else as soon as the
// main run loop gets to it. Any thread but the render thread; not while the main thread waits for the caller.
void runOnMainQueueWithoutDeadlocking(const std::function<void()>& block);

} // namespace QVM_NAMESPACE
