// Does several things at once.
#pragma once

#include "BuildNamespace.h"

#include <chrono>
#include <cstddef>
#include <functional>

namespace QVM_NAMESPACE {
namespace render {

// Calls `job` with each number below `count`, in this order, on so many threads or as many of them as the system has,
// and `tick` on the calling thread in between at this interval, after each job, and once at the end. Returns when all
// jobs have been done; they throw nothing.
void runJobs(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& job,
             std::chrono::milliseconds interval, const std::function<void()>& tick);

} // namespace render
} // namespace QVM_NAMESPACE
