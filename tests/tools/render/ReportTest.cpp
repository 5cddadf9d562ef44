#include "tools/render/Report.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

RenderResult written() {
    RenderResult result;
    result.files = {"a", "b"};
    result.clipped = 2;
    return result;
}

// What was written to the other end so far.
std::string read(int descriptor) {
    fcntl(descriptor, F_SETFL, O_NONBLOCK);
    std::array<char, 4096> buffer;
    const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
    return {buffer.data(), static_cast<std::size_t>(count > 0 ? count : 0)};
}

struct Pipe {
    Pipe() { EXPECT_EQ(pipe(ends.data()), 0); }
    ~Pipe() {
        for (const int end : ends)
            close(end);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    std::array<int, 2> ends{};
};

// A terminal of a width, and its other side.
struct Terminal {
    explicit Terminal(unsigned short columns) {
        winsize size{};
        size.ws_col = columns;
        EXPECT_EQ(openpty(&other, &inner, nullptr, nullptr, &size), 0);
    }
    ~Terminal() {
        close(inner);
        close(other);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    int other = -1, inner = -1;
};

TEST(Report, ResultsGoToTheOutputAndComplaintsToTheErrors) {
    const Pipe errors;
    Report report("prog", errors.ends[1], Report::Lines::shown);
    testing::internal::CaptureStdout();
    report.fileIsDone(written());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "a -> b  -Inf to -Inf LUFS  -Inf to -Inf dBTP\n");
    EXPECT_EQ(read(errors.ends[0]), "prog: \"b\": 2 samples are cut off at full scale\n");
    EXPECT_TRUE(report.isHeard());
}

TEST(Report, LinesOfResultsCanBeLeftOut) {
    const Pipe errors;
    Report report("prog", errors.ends[1], Report::Lines::leftOut);
    testing::internal::CaptureStdout();
    report.fileIsDone(written());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_NE(read(errors.ends[0]), "");
}

TEST(Report, NothingMovesWhereThereIsNoTerminal) {
    const Pipe errors;
    Report report("prog", errors.ends[1], Report::Lines::shown);
    report.progress({0.5, 10, 1, 2});
    report.clear();
    EXPECT_EQ(read(errors.ends[0]), "");
}

TEST(Report, TheMovingLineFitsTheTerminalAndIsTakenAway) {
    const Terminal terminal(40);
    Report report("prog", terminal.inner, Report::Lines::leftOut);
    report.progress({0.5, 0.2, 0, 1});
    EXPECT_EQ(read(terminal.other), "") << "too short to be worth it";
    report.progress({0.5, 10, 0, 1});
    EXPECT_EQ(read(terminal.other), "\r" + progressText({0.5, 10, 0, 1}, 39) + "\x1b[K");
    report.clear();
    EXPECT_EQ(read(terminal.other), "\r\x1b[K");
    report.clear();
    EXPECT_EQ(read(terminal.other), "");
}

TEST(Report, ALineOfAFileTakesThePlaceOfTheMovingLine) {
    const Terminal terminal(80);
    Report report("prog", terminal.inner, Report::Lines::leftOut);
    report.progress({0.5, 10, 1, 2});
    read(terminal.other);
    report.fileIsDone(written());
    EXPECT_EQ(read(terminal.other), "\r\x1b[Kprog: \"b\": 2 samples are cut off at full scale\r\n");
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
