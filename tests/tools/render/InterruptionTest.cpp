#include "tools/render/Interruption.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

TEST(Interruption, ASignalIsNotedAndASecondOneIsNot) {
    const Interruption interruption;
    EXPECT_FALSE(Interruption::isWanted());
    raise(SIGTERM);
    EXPECT_TRUE(Interruption::isWanted());
    EXPECT_EXIT(raise(SIGTERM), testing::KilledBySignal(SIGTERM), "");
}

TEST(Interruption, ASecondOneOfAnotherKindEndsTheProgramToo) {
    const Interruption interruption;
    raise(SIGINT);
    EXPECT_TRUE(Interruption::isWanted());
    for (const int second : {SIGTERM, SIGHUP})
        EXPECT_EXIT(raise(second), testing::KilledBySignal(second), "");
}

TEST(Interruption, AfterwardsEverythingIsAsBefore) {
    struct sigaction before {
    }, after{};
    sigaction(SIGINT, nullptr, &before);
    { const Interruption interruption; }
    sigaction(SIGINT, nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
}

TEST(Interruption, EndsTheProgramByTheSignalThatWasNoted) {
    EXPECT_EXIT(
        {
            const Interruption interruption;
            raise(SIGINT);
            Interruption::endByIt();
        },
        testing::KilledBySignal(SIGINT), "");
    const Interruption nothingNoted;
    Interruption::endByIt();
}

TEST(Interruption, WhatIsIgnoredStaysIgnored) {
    struct sigaction before {};
    sigaction(SIGHUP, nullptr, &before);
    signal(SIGHUP, SIG_IGN);
    {
        const Interruption interruption;
        raise(SIGHUP);
        EXPECT_FALSE(Interruption::isWanted());
    }
    sigaction(SIGHUP, &before, nullptr);
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
