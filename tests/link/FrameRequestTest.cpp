#include "link/FrameRequest.h"

#include <gtest/gtest.h>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

TEST(FrameRequest, IsTakenOnceHoweverOftenItWasAskedFor) {
    FrameRequest request;
    EXPECT_FALSE(request.isAsked());
    EXPECT_FALSE(request.take());
    request.ask();
    request.ask();
    EXPECT_TRUE(request.isAsked());
    EXPECT_TRUE(request.isAsked()) << "looking takes nothing";
    EXPECT_TRUE(request.take());
    EXPECT_FALSE(request.isAsked());
    EXPECT_FALSE(request.take());
}

// A frame that was asked for after something was written sees it: the last thing written is always seen.
TEST(FrameRequest, WhatWasWrittenBeforeItIsSeenByTheFrame) {
    constexpr int writes = 50000;
    FrameRequest request;
    SharedWord<int> picture = 0;
    std::thread writer([&] {
        for (int i = 1; i <= writes; ++i) {
            picture = i;
            request.ask();
        }
    });
    int shown = 0;
    while (shown < writes)
        if (request.take()) shown = picture;
    writer.join();
    EXPECT_EQ(shown, writes);
}

} // namespace
} // namespace QVM_NAMESPACE
