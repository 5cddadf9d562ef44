#include "platform/system/Log.h"

#include <gtest/gtest.h>

#include <vector>

namespace QVM_NAMESPACE {
namespace {

class LogTest : public ::testing::Test {
protected:
    std::vector<std::string> lines;
    ScopedLogSink sink{[this](const std::string& line) { lines.push_back(line); }};
};

TEST_F(LogTest, LineEndsWithExactlyOneNewline) {
    logLine("one");
    logLine("two\n");
    logLine("");
    EXPECT_EQ(lines, (std::vector<std::string>{"one\n", "two\n", "\n"}));
}

TEST_F(LogTest, StatusIsWrittenAsDecimalHexadecimalAndCharacters) {
    logStatus("View.cpp", 42, "get", 0x666D743F); // "fmt?"
    logStatus("View.cpp", 7, "set", -50);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "View.cpp:42: get result 1718449215 666D743F fmt?\n");
    EXPECT_EQ(lines[1], "View.cpp:7: set result -50 FFFFFFCE \xFF\xFF\xFF\xCE\n");
}

TEST_F(LogTest, CharactersEndAtAZeroByteAndKeepTheirWidth) {
    logStatus("a", 1, "t", 5);
    logStatus("a", 1, "t", 0x41420043);
    EXPECT_EQ(lines, (std::vector<std::string>{"a:1: t result 5 00000005     \n",
                                               "a:1: t result 1094844483 41420043   AB\n"}));
}

TEST_F(LogTest, SuccessIsNotLogged) {
    logStatus("a", 1, "t", 0);
    EXPECT_TRUE(lines.empty());
}

TEST_F(LogTest, LatestSinkWinsAndTheOuterOneComesBack) {
    std::vector<std::string> inner;
    {
        ScopedLogSink latest([&](const std::string& line) { inner.push_back(line); });
        logLine("in");
    }
    logLine("out");
    EXPECT_EQ(inner, std::vector<std::string>{"in\n"});
    EXPECT_EQ(lines, std::vector<std::string>{"out\n"});
}

TEST_F(LogTest, SinkMayLogItself) {
    int depth = 0;
    ScopedLogSink echo([&](const std::string& line) {
        if (++depth < 3) logLine(line);
    });
    logLine("again");
    EXPECT_EQ(depth, 3);
}

TEST(Log, WithoutASinkLinesGoToTheErrorStream) {
    ::testing::internal::CaptureStderr();
    logLine("plain");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "plain\n");
}

} // namespace
} // namespace QVM_NAMESPACE
