#include "link/ParameterGlide.h"

#include "support/RealtimeTrap.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

class ParameterGlideTest : public testing::Test {
protected:
    void SetUp() override { glide.sizeStates(24); }
    void post(float value) {
        for (std::size_t i = 0; i < 24; ++i) {
            glide.interpTargets[i] = value + static_cast<float>(i);
            glide.parameterStates[i].interpolating = true;
        }
        glide.restart();
    }
    bool anyInterpolating() const {
        return std::any_of(glide.parameterStates.begin(), glide.parameterStates.end(),
                           [](const QVMParameterState& state) { return state.interpolating.load(); });
    }

    ParameterGlide glide;
};

TEST(ParameterGlide, StartsWithNothing) {
    const ParameterGlide glide;
    EXPECT_EQ(glide.paramCount, 0u);
    EXPECT_EQ(glide.interpAmount, 0);
    EXPECT_FALSE(glide.isInterpolating);
    EXPECT_FALSE(glide.interpPending);
}

TEST(ParameterGlide, WhatStandsAtAValueShowsItAndHasNothingToGlide) {
    ParameterGlide glide;
    glide.sizeStates(2);
    glide.standAt(0, 4);
    glide.standAt(1, -7);
    glide.standAt(2, 1); // no such parameter
    EXPECT_EQ(glide.parameterStates[1].value, -7);
    EXPECT_EQ(glide.parameterStates[1].displayValue, -7);
    EXPECT_FALSE(glide.isInterpolating);
    EXPECT_FALSE(glide.post(1, -7)) << "it is there already";
    // A glide of the other one starts where this one stands, and leaves it there.
    glide.post(0, 10);
    glide.restart();
    glide.performInterp();
    EXPECT_GT(glide.parameterStates[0].displayValue, 4);
    EXPECT_LT(glide.parameterStates[0].displayValue, 10);
    EXPECT_NEAR(glide.parameterStates[1].displayValue, -7, 1e-5);
}

TEST_F(ParameterGlideTest, EveryParameterIsPostedOnceAndOnlyWhenItIsAnother) {
    EXPECT_TRUE(glide.post(5, 3));
    EXPECT_EQ(glide.parameterStates[5].value, 3);
    EXPECT_EQ(glide.interpTargets[5], 3);
    EXPECT_TRUE(glide.parameterStates[5].interpolating);
    EXPECT_FALSE(glide.isInterpolating) << "the glide is started for all of them at once";
    EXPECT_FALSE(glide.parameterStates[4].interpolating);
    EXPECT_EQ(glide.parameterStates[5].displayValue, 0) << "the glide's business";
    EXPECT_FALSE(glide.post(5, 3));
    EXPECT_TRUE(glide.post(5, 4));
}

TEST_F(ParameterGlideTest, AValueWhoseTargetIsAnotherIsPostedAgain) {
    glide.post(5, 3);
    glide.interpTargets[5] = 2;
    EXPECT_TRUE(glide.post(5, 3));
    EXPECT_EQ(glide.interpTargets[5], 3);
}

TEST_F(ParameterGlideTest, APidWithoutAStateIsLeftAlone) {
    EXPECT_FALSE(glide.post(24, 3));
    glide.sizeStates(2);
    EXPECT_FALSE(glide.post(7, -3));
    EXPECT_TRUE(glide.post(1, 4));
}

TEST_F(ParameterGlideTest, SizingItGivesEveryParameterAZero) {
    post(3);
    glide.sizeStates(3);
    EXPECT_EQ(glide.paramCount, 3u);
    ASSERT_EQ(glide.parameterStates.size(), 3u);
    ASSERT_EQ(glide.interpTargets.size(), 3u);
    ASSERT_EQ(glide.interpValues.size(), 3u);
    ASSERT_EQ(glide.interpScratch.size(), 3u);
    EXPECT_EQ(glide.parameterStates[0].value, 0);
    EXPECT_EQ(glide.interpTargets[0], 0);
}

TEST_F(ParameterGlideTest, ReachesItsTargetsExactlyWithTheSeventhFrame) {
    post(100);
    float last = 0;
    for (int frame = 1; frame <= 6; ++frame) {
        glide.performInterp();
        const float shown = glide.parameterStates[0].displayValue;
        EXPECT_GT(shown, last);
        EXPECT_LT(shown, 100);
        EXPECT_NEAR(shown, 100 * (1 - std::exp(-5.0 / 6 * frame)), 1e-4);
        EXPECT_TRUE(anyInterpolating());
        EXPECT_TRUE(glide.interpPending);
        last = shown;
    }
    glide.performInterp();
    for (std::size_t i = 0; i < 24; ++i) {
        EXPECT_EQ(glide.parameterStates[i].displayValue, 100 + static_cast<float>(i));
        EXPECT_EQ(glide.interpValues[i], 100 + static_cast<float>(i));
    }
    EXPECT_FALSE(anyInterpolating());
    EXPECT_FALSE(glide.interpPending);
}

// The frame that arrives is still one that is drawn.
TEST_F(ParameterGlideTest, IsOverOneFrameAfterItArrived) {
    post(1);
    for (int frame = 0; frame < 7; ++frame)
        glide.performInterp();
    EXPECT_TRUE(glide.isInterpolating);
    glide.performInterp();
    EXPECT_FALSE(glide.isInterpolating);
}

TEST_F(ParameterGlideTest, WithNothingPendingItEndsAndChangesNoValue) {
    post(50);
    glide.performInterp();
    const float shown = glide.parameterStates[3].displayValue;
    glide.interpPending = false;
    glide.performInterp();
    EXPECT_FALSE(glide.isInterpolating);
    EXPECT_EQ(glide.parameterStates[3].displayValue, shown);
    EXPECT_EQ(glide.interpValues[3], shown);
}

TEST_F(ParameterGlideTest, DoesNothingWhileNoneRuns) {
    post(50);
    glide.isInterpolating = false;
    glide.performInterp();
    EXPECT_EQ(glide.parameterStates[0].displayValue, 0);
    EXPECT_EQ(glide.interpAmount, 0);
}

TEST_F(ParameterGlideTest, NewTargetsStartItAnewFromWhereItIs) {
    post(100);
    for (int frame = 0; frame < 4; ++frame)
        glide.performInterp();
    const float before = glide.parameterStates[0].displayValue;
    post(0);
    glide.performInterp();
    EXPECT_NEAR(glide.parameterStates[0].displayValue, before * std::exp(-5.0 / 6), 1e-4);
    for (int frame = 0; frame < 5; ++frame)
        glide.performInterp();
    EXPECT_NE(glide.parameterStates[0].displayValue, 0);
    glide.performInterp();
    EXPECT_EQ(glide.parameterStates[0].displayValue, 0);
}

TEST_F(ParameterGlideTest, TheUnitsSideNeitherAllocatesNorLocks) {
    const realtime::Offences seen = realtime::offencesOf([&] {
        glide.post(1, 3);
        glide.restart();
    });
    EXPECT_FALSE(seen.any()) << seen;
    EXPECT_TRUE(glide.isInterpolating);
}

// Whatever the two threads are in the middle of, the last targets posted are arrived at.
TEST_F(ParameterGlideTest, NoTargetIsLostToAGlideThatIsEnding) {
    constexpr int kPosts = 5000;
    std::atomic<bool> done = false;
    std::thread writer([&] {
        for (int i = 1; i <= kPosts; ++i) {
            post(static_cast<float>(i));
            if (i % 16 == 0) std::this_thread::yield();
        }
        done = true;
    });
    while (!done)
        glide.performInterp();
    writer.join();
    for (int frame = 0; frame < 8; ++frame)
        glide.performInterp();
    EXPECT_FALSE(glide.isInterpolating);
    for (std::size_t i = 0; i < 24; ++i)
        EXPECT_EQ(glide.parameterStates[i].displayValue, kPosts + static_cast<float>(i));
}

} // namespace
} // namespace QVM_NAMESPACE
