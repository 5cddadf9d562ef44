#include "tools/render/JobQueue.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {
namespace render {

void runJobs(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& job,
             std::chrono::milliseconds interval, const std::function<void()>& tick) {
    std::mutex mutex;
    std::condition_variable changed;
    std::size_t next = 0, done = 0; // guarded by mutex
    const auto work = [&] {
        std::unique_lock lock(mutex);
        while (next < count) {
            const std::size_t number = next++;
            lock.unlock();
            job(number);
            lock.lock();
            ++done;
            changed.notify_one();
        }
    };
    std::vector<std::jthread> workers;
    const std::size_t wanted = std::min<std::size_t>(std::max(threads, 1U), count);
    while (workers.size() < wanted) {
        try {
            workers.emplace_back(work);
        } catch (const std::system_error&) {
            if (workers.empty()) throw;
            break; // those that the system has do the work of all
        }
    }
    for (std::size_t seen = 0; seen < count;) {
        {
            std::unique_lock lock(mutex);
            changed.wait_for(lock, interval, [&] { return done != seen; });
            seen = done;
        }
        tick();
    }
    if (count == 0) tick();
}

} // namespace render
} // namespace QVM_NAMESPACE
