#include "program/HeldErrorStream.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>

#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

TEST(HeldErrorStream, KeepsBackWhatIsWrittenMeanwhileAndNothingElse) {
    testing::internal::CaptureStderr();
    std::fputs("before ", stderr);
    std::optional<HeldErrorStream> held(std::in_place);
    EXPECT_FALSE(held->heldAnything());
    std::fputs("meanwhile ", stderr);
    EXPECT_TRUE(held->heldAnything());
    held.reset();
    std::fputs("after", stderr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "before after");
}

TEST(HeldErrorStream, SeesWhatGoesPastTheStream) {
    testing::internal::CaptureStderr();
    {
        const HeldErrorStream held;
        EXPECT_EQ(write(STDERR_FILENO, "x", 1), 1);
        EXPECT_TRUE(held.heldAnything());
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(HeldErrorStream, WhoHoldsItCanStillSpeak) {
    testing::internal::CaptureStderr();
    {
        const HeldErrorStream held;
        EXPECT_EQ(write(held.realStream(), "x", 1), 1);
        EXPECT_FALSE(held.heldAnything());
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "x");
}

} // namespace
} // namespace QVM_NAMESPACE
