#include "link/SharedState.h"

#include "description/Description.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

TEST(SharedState, StartsWithNothingToShow) {
    SharedState state;
    EXPECT_EQ(state.glide.paramCount, 0u);
    EXPECT_FALSE(state.frameRequest.isAsked());
    ASSERT_EQ(state.levels.channels(), 2u);
    EXPECT_EQ(state.levels.latest(0), -96);
    EXPECT_EQ(state.numericMeter.value, 0);
    EXPECT_STREQ(state.numericMeter.format, "");
    EXPECT_STREQ(state.numericMeter.suffix, "");
}

TEST(SharedState, TheMetersRangeIsThatOfTheGainItStandsIn) {
    const QVMParameter& gain = *GetParameter(pidOutputGain);
    EXPECT_EQ(SharedState::meterRange.min, gain.minValue);
    EXPECT_EQ(SharedState::meterRange.max, gain.maxValue);
}

TEST(SharedState, AGlideAsksForTheFramesThatShowIt) {
    SharedState state;
    state.glide.sizeStates(24);
    state.glide.post(1, 3);
    EXPECT_FALSE(state.frameRequest.isAsked());
    state.restartGlide();
    EXPECT_TRUE(state.glide.isInterpolating);
    EXPECT_TRUE(state.frameRequest.take());
}

// The unit's side posts parameters and levels and asks for frames; the main thread draws none but those. Whatever they
// are in the middle of, the last frame that was asked for is followed by none in which anything would look different.
TEST(SharedState, FramesThatAreAskedForMissNothing) {
    constexpr int rounds = 4000;
    SharedState state;
    state.glide.sizeStates(24);
    std::atomic<bool> done = false;
    std::thread unit([&] {
        for (int i = 1; i <= rounds; ++i) {
            const auto pid = static_cast<std::uint32_t>(i % 24);
            if (state.glide.post(pid, static_cast<float>(i))) state.restartGlide();
            state.levels.post(0, i == rounds / 2 ? 6.0f : -40.0f);
            state.frameRequest.ask();
            if (i % 16 == 0) std::this_thread::yield();
        }
        done = true;
    });
    float highest = LevelWords::noLevel;
    for (bool isLast = false; !isLast;) {
        isLast = done;
        if (!state.frameRequest.take() && !state.glide.isInterpolating) {
            std::this_thread::yield();
            continue;
        }
        state.glide.performInterp();
        highest = std::max(highest, state.levels.takeHighest(0));
    }
    unit.join();
    while (state.glide.isInterpolating)
        state.glide.performInterp();
    EXPECT_EQ(highest, 6);
    EXPECT_FALSE(state.frameRequest.isAsked());
    EXPECT_EQ(state.levels.takeHighest(0), LevelWords::noLevel);
    for (std::uint32_t pid = 0; pid < 24; ++pid) {
        EXPECT_EQ(state.glide.parameterStates[pid].displayValue, state.glide.parameterStates[pid].value) << pid;
        EXPECT_GT(state.glide.parameterStates[pid].value, rounds - 24) << pid;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
