#include "toolkit/OpenerWatch.h"

#include "platform/runloop/VirtualTime.h"

#include <csignal>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace QVM_NAMESPACE {
namespace {

class OpenerWatchTest : public ::testing::Test {
protected:
    // Watches one end of a pipe and gives the other.
    int begin() {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
        watch.watch(ends[0], [this] { ++failures; });
        return ends[1];
    }
    static void say(int end) { EXPECT_EQ(write(end, "\n", 1), 1); }

    VirtualTime time{100};
    int failures = 0;
    OpenerWatch watch;
};

TEST_F(OpenerWatchTest, AByteSaysThatItFailed) {
    const int end = begin();
    time.advance(1);
    EXPECT_EQ(failures, 0);
    say(end);
    time.advance(1);
    EXPECT_EQ(failures, 1);
    EXPECT_FALSE(watch.isWatching());
    close(end);
}

TEST_F(OpenerWatchTest, AnEndSaysThatItDidNot) {
    close(begin());
    time.advance(1);
    EXPECT_EQ(failures, 0);
    EXPECT_FALSE(watch.isWatching());
}

TEST_F(OpenerWatchTest, WhoSaysNothingForLongIsAtWork) {
    const int end = begin();
    time.advance(OpenerWatch::longestSeconds + 1);
    EXPECT_FALSE(watch.isWatching());
    EXPECT_EQ(failures, 0);
    close(end);
}

TEST_F(OpenerWatchTest, ANewOneMakesTheLastForgotten) {
    const int first = begin(), second = begin();
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(write(first, "\n", 1), -1) << "nobody reads it";
    std::signal(SIGPIPE, before);
    say(second);
    time.advance(1);
    EXPECT_EQ(failures, 1);
    close(first);
    close(second);
}

} // namespace
} // namespace QVM_NAMESPACE
