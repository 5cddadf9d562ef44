#include "tools/gallery/StereoFeed.h"

#include "platform/runloop/VirtualTime.h"
#include "tools/gallery/SignalView.h"
#include "tools/gallery/TestSignal.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

constexpr double kRate = 12000;

struct Sides {
    double left = 0, right = 0, product = 0;
    double alike() const { return product / std::sqrt(left * right); }
};

Sides powersOf(const AudioClip& clip) {
    Sides sides;
    for (std::size_t i = 0; i < clip.frames(); ++i) {
        const double l = static_cast<double>(clip.channels[0][i]), r = static_cast<double>(clip.channels[1][i]);
        sides.left += l * l;
        sides.right += r * r;
        sides.product += l * r;
    }
    return sides;
}

TEST(TestSignal, EachIsAsAlikeOnItsSidesAsItsNameSays) {
    EXPECT_NEAR(powersOf(*testSignal("sine", kRate)).alike(), 1, 1e-9);
    EXPECT_NEAR(powersOf(*testSignal("mono", kRate)).alike(), 1, 1e-9);
    EXPECT_NEAR(powersOf(*testSignal("antiphase", kRate)).alike(), -1, 1e-9);
    EXPECT_NEAR(powersOf(*testSignal("noise", kRate)).alike(), 0, 0.2);
    const double wide = powersOf(*testSignal("wide", kRate)).alike();
    EXPECT_LT(wide, -0.5);
    EXPECT_GT(wide, -0.99);
}

TEST(TestSignal, AllAreFiniteAndNotTooLoud) {
    for (const std::string_view name : testSignalNames()) {
        const auto clip = testSignal(name, kRate);
        ASSERT_TRUE(clip) << name;
        EXPECT_EQ(clip->channels.size(), 2u);
        for (const auto& channel : clip->channels)
            for (const float sample : channel)
                ASSERT_LE(std::abs(sample), 1.0f) << name;
    }
    EXPECT_FALSE(testSignal("nope", kRate));
}

class StereoFeedTest : public testing::Test {
protected:
    VirtualTime time;
    std::vector<float> left, right;
    StereoFeed::Listener keep = [this](auto l, auto r) {
        left.insert(left.end(), l.begin(), l.end());
        right.insert(right.end(), r.begin(), r.end());
    };
};

TEST_F(StereoFeedTest, PlaysInRealTimeWithoutAGap) {
    std::vector<float> count(1000), back(1000);
    for (std::size_t i = 0; i < 1000; ++i) {
        count[i] = static_cast<float>(i) / 1000;
        back[i] = -count[i];
    }
    StereoFeed feed({1000, {count, back}}, "ramp");
    const auto token = feed.listen(keep);
    time.advance(1.5);
    EXPECT_NEAR(static_cast<double>(left.size()), 1500, 20);
    ASSERT_EQ(left.size(), right.size());
    for (std::size_t i = 0; i < left.size(); ++i) {
        ASSERT_EQ(left[i], count[i % 1000]) << i;
        ASSERT_EQ(right[i], back[i % 1000]) << i;
    }
}

TEST_F(StereoFeedTest, StandsStillWhileNobodyListens) {
    StereoFeed feed({1000, {{0.1f, 0.2f, 0.3f}}}, "mono");
    {
        const auto token = feed.listen(keep);
        time.advance(0.1);
    }
    const std::size_t heard = left.size();
    EXPECT_GT(heard, 50u);
    EXPECT_EQ(left, right) << "one channel is heard on both sides";
    time.advance(1);
    EXPECT_EQ(left.size(), heard);
    const auto again = feed.listen(keep);
    time.advance(0.1);
    EXPECT_LT(left.size(), heard + 120);
    EXPECT_GT(left.size(), heard + 50);
}

TEST_F(StereoFeedTest, TheSignalViewMeasuresWhatItHears) {
    StereoFeed sine(*testSignal("sine", kRate), "sine"), anti(*testSignal("antiphase", kRate), "antiphase");
    const SignalView same({0, 0, 280, 96}, sine), opposite({0, 0, 280, 96}, anti);
    EXPECT_EQ(same.levelDb(0), -60);
    EXPECT_EQ(same.correlation(), 0);
    time.advance(1);
    EXPECT_NEAR(same.levelDb(0), -9.03, 0.1);
    EXPECT_NEAR(same.levelDb(1), -9.03, 0.1);
    EXPECT_NEAR(same.correlation(), 1, 1e-6);
    EXPECT_NEAR(opposite.correlation(), -1, 1e-6);
}

} // namespace
} // namespace QVM_NAMESPACE
