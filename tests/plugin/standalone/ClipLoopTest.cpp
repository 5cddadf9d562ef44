#include "plugin/standalone/ClipLoop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {
namespace {

AudioClip tone(double hz, double rateHz, std::size_t frames) {
    AudioClip clip{rateHz, {std::vector<float>(frames)}};
    for (std::size_t i = 0; i < frames; ++i)
        clip.channels[0][i] = static_cast<float>(std::sin(2 * std::numbers::pi * hz * static_cast<double>(i) / rateHz));
    return clip;
}

using Stereo = std::pair<std::vector<float>, std::vector<float>>;

// In blocks of an odd size.
Stereo played(ClipLoop& loop, std::size_t frames) {
    Stereo out{std::vector<float>(frames), std::vector<float>(frames)};
    for (std::size_t i = 0; i < frames; i += 77)
        loop.read(out.first.data() + i, out.second.data() + i, static_cast<int>(std::min<std::size_t>(77, frames - i)));
    return out;
}

TEST(ClipLoop, KeepsAToneRoundAfterRound) {
    ClipLoop loop(tone(1000, 44100, 4410)); // whole periods, so the loop has no seam
    loop.start(48000);
    const AudioClip wanted = tone(1000, 48000, 12000);
    const auto [left, right] = played(loop, wanted.frames());
    for (std::size_t i = 0; i < wanted.frames(); ++i) {
        ASSERT_NEAR(left[i], wanted.channels[0][i], 1e-3) << i;
        ASSERT_EQ(right[i], left[i]) << i;
    }
}

TEST(ClipLoop, RemovesWhatTheLowerRateCannotCarry) {
    ClipLoop loop(tone(20000, 48000, 4800));
    loop.start(22050);
    for (const float sample : played(loop, 5000).first)
        ASSERT_NEAR(sample, 0, 0.02);
}

TEST(ClipLoop, TheSameRateChangesNothing) {
    AudioClip clip = tone(500, 48000, 480);
    clip.channels.push_back(tone(1500, 48000, 480).channels[0]);
    ClipLoop loop(clip);
    loop.start(48000);
    for (int round = 0; round < 2; ++round) {
        const auto [left, right] = played(loop, 480);
        EXPECT_EQ(left, clip.channels[0]);
        EXPECT_EQ(right, clip.channels[1]);
    }
}

TEST(ClipLoop, AClipOfOneFrameIsAConstant) {
    ClipLoop loop({44100, {{0.5f}}});
    loop.start(48000);
    for (const float sample : played(loop, 100).first)
        ASSERT_NEAR(sample, 0.5, 2e-3);
}

TEST(ClipLoop, StartsAnewAtAnotherRate) {
    ClipLoop loop(tone(1000, 48000, 4800));
    loop.start(48000);
    played(loop, 1000);
    loop.start(96000);
    const AudioClip wanted = tone(1000, 96000, 500);
    const auto left = played(loop, 500).first;
    for (std::size_t i = 0; i < left.size(); ++i)
        ASSERT_NEAR(left[i], wanted.channels[0][i], 1e-3) << i;
}

} // namespace
} // namespace QVM_NAMESPACE
