#include "tools/render/JobQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <latch>
#include <thread>
#include <vector>

#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

constexpr std::chrono::milliseconds never{3600000};

TEST(JobQueue, DoesEveryJobOnce) {
    for (const unsigned threads : {0U, 1U, 3U, 50U}) {
        std::vector<std::atomic<int>> done(20);
        runJobs(
            done.size(), threads, [&](std::size_t number) { ++done[number]; }, never, [] {});
        for (const auto& times : done)
            EXPECT_EQ(times, 1);
    }
}

TEST(JobQueue, OneThreadKeepsTheOrder) {
    std::vector<std::size_t> order;
    runJobs(
        4, 1, [&](std::size_t number) { order.push_back(number); }, never, [] {});
    EXPECT_EQ(order, (std::vector<std::size_t>{0, 1, 2, 3}));
}

TEST(JobQueue, WorksOnAsManyAtOnceAsThereAreThreads) {
    std::latch allAreHere(3); // each waits for the others, which have to run beside it
    runJobs(
        3, 3, [&](std::size_t) { allAreHere.arrive_and_wait(); }, never, [] {});
}

TEST(JobQueue, TicksOnTheCallingThreadAndAfterTheLastJob) {
    std::atomic<int> done = 0;
    int lastSeen = -1;
    bool isHere = true;
    const auto here = std::this_thread::get_id();
    runJobs(
        5, 2, [&](std::size_t) { ++done; }, never,
        [&] {
            lastSeen = done;
            isHere = isHere && std::this_thread::get_id() == here;
        });
    EXPECT_EQ(lastSeen, 5);
    EXPECT_TRUE(isHere);
}

TEST(JobQueue, TicksWhileAJobTakesItsTime) {
    std::latch ticked(3);
    int ticks = 0;
    runJobs(
        1, 1, [&](std::size_t) { ticked.wait(); }, std::chrono::milliseconds(1),
        [&] {
            if (++ticks <= 3) ticked.count_down();
        });
    EXPECT_GE(ticks, 3);
}

// Where there is room for some threads, but not for all. Ends the process, with 0 where all jobs were done.
[[noreturn]] void runInALittleRoom() {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t{256} << 20);
    pthread_setattr_default_np(&attributes);
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t bytes = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + (rlim_t{1} << 30);
    const rlimit limit{bytes, bytes};
    setrlimit(RLIMIT_AS, &limit);
    std::atomic<int> done = 0;
    runJobs(
        50, 50, [&](std::size_t) { ++done; }, never, [] {});
    _exit(done == 50 ? 0 : 1);
}

TEST(JobQueue, MakesDoWithTheThreadsThatTheSystemHas) {
    EXPECT_EXIT(runInALittleRoom(), testing::ExitedWithCode(0), "");
}

TEST(JobQueue, NothingToDoIsNoWork) {
    int ticks = 0;
    runJobs(
        0, 2, [](std::size_t) { ADD_FAILURE(); }, never, [&] { ++ticks; });
    EXPECT_EQ(ticks, 1);
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
