#include "program/Console.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

Console calledAs(const char* name) {
    std::string argument = name;
    char* const arguments[] = {argument.data(), nullptr};
    return {1, arguments, "otherwise"};
}

TEST(Console, KnowsTheNameItIsCalledByWithoutItsFolder) {
    EXPECT_EQ(calledAs("/usr/bin/tilt").program(), "tilt");
    EXPECT_EQ(calledAs("tilt").program(), "tilt");
    EXPECT_EQ(calledAs("").program(), "otherwise");
    char* const none[] = {nullptr};
    EXPECT_EQ(Console(0, none, "otherwise").program(), "otherwise");
}

TEST(Console, MistakesAndFailuresHaveTheirStatusAndALineOfTheErrorStream) {
    const Console console = calledAs("tilt");
    testing::internal::CaptureStderr();
    EXPECT_EQ(console.refuse("no"), 2);
    EXPECT_EQ(console.fail("alas"), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "tilt: no\ntilt: alas\n");
}

TEST(Console, WhatIsAskedForGoesToTheOutput) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(calledAs("tilt").print("text\n"), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "text\n");
}

// In a process of its own: a stream that is closed at the start is closed for everybody.
TEST(Console, NothingThatIsOpenedLaterGetsTheNumberOfAClosedStream) {
    EXPECT_EXIT(
        {
            close(STDIN_FILENO);
            close(STDOUT_FILENO);
            const Console console = calledAs("tilt");
            const int opened = dup(STDERR_FILENO);
            _exit(opened > STDERR_FILENO && console.print("text\n") == 1 ? 0 : 3);
        },
        testing::ExitedWithCode(0), "tilt: cannot write the output");
}

} // namespace
} // namespace QVM_NAMESPACE
