#include "platform/renderer/DamageRegion.h"

#include <gmock/gmock.h>

#include <random>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

TEST(DamageRegionTest, KeepsSeparateRectsApart) {
    DamageRegion region;
    region.add({0, 0, 10, 10});
    region.add({20, 20, 10, 10});
    EXPECT_THAT(region.rects(), UnorderedElementsAre(Rect{0, 0, 10, 10}, Rect{20, 20, 10, 10}));
}

TEST(DamageRegionTest, MergesWhatOverlapsAndWhatTheUnionReaches) {
    DamageRegion region;
    region.add({0, 0, 10, 10});
    region.add({12, 0, 10, 4});
    region.add({8, 8, 8, 8}); // reaches the first; their union reaches the second
    EXPECT_THAT(region.rects(), ElementsAre(Rect{0, 0, 22, 16}));
}

TEST(DamageRegionTest, JoinsNeighboursThatMakeOneRect) {
    DamageRegion region;
    region.add({0, 0, 10, 10});
    region.add({10, 0, 5, 10});
    region.add({0, 10, 5, 5}); // touches, but would waste pixels
    EXPECT_THAT(region.rects(), UnorderedElementsAre(Rect{0, 0, 15, 10}, Rect{0, 10, 5, 5}));
}

TEST(DamageRegionTest, WhatIsInsideOrEmptyAddsNothing) {
    DamageRegion region;
    region.add({});
    EXPECT_TRUE(region.rects().empty());
    region.add({0, 0, 10, 10});
    region.add({2, 2, 3, 3});
    region.add({50, 50, 0, 3});
    EXPECT_THAT(region.rects(), ElementsAre(Rect{0, 0, 10, 10}));
    region.clear();
    EXPECT_TRUE(region.rects().empty());
}

TEST(DamageRegionTest, PastTheLimitTheNearestBecomeOne) {
    DamageRegion region;
    for (int i = 0; i < 8; ++i)
        region.add({i * 100.0, 0, 10, 10});
    region.add({715, 0, 10, 10});
    EXPECT_EQ(region.rects().size(), DamageRegion::maxRects);
    EXPECT_THAT(region.rects(), testing::Contains(Rect{700, 0, 25, 10}));
}

TEST(DamageRegionTest, CoversAllThatWasAddedWithoutOverlapping) {
    std::mt19937 random(7);
    const auto pick = [&](int n) { return static_cast<double>(random() % static_cast<unsigned>(n)); };
    for (int round = 0; round < 200; ++round) {
        DamageRegion region;
        std::vector<Rect> added;
        for (int i = 0; i < 30; ++i) {
            added.push_back({pick(400), pick(300), 1 + pick(20), 1 + pick(20)});
            region.add(added.back());
        }
        const auto& rects = region.rects();
        ASSERT_LE(rects.size(), DamageRegion::maxRects);
        for (const Rect& one : added) {
            ASSERT_TRUE(std::any_of(rects.begin(), rects.end(), [&](const Rect& r) { return r.contains(one); }));
        }
        for (std::size_t i = 0; i < rects.size(); ++i)
            for (std::size_t j = i + 1; j < rects.size(); ++j)
                ASSERT_FALSE(rects[i].intersects(rects[j]));
    }
}

} // namespace
} // namespace QVM_NAMESPACE
