#include "platform/renderer/PlacementDiff.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Step = Placement::Step;

struct PlacementDiffTest : testing::Test {
    Layer a, b, c, group;

    static Placement fill(const Layer& layer, const Rect& rect, Color color = Color::white(1)) {
        Placement p;
        p.step = Step::fill;
        p.layer = &layer;
        p.rect = p.bounds = rect;
        p.color = color;
        return p;
    }
    static Placement step(Step kind, const Layer& layer, const Rect& bounds, double opacity = 1) {
        Placement p;
        p.step = kind;
        p.layer = &layer;
        p.bounds = bounds;
        p.opacity = opacity;
        return p;
    }
    static std::vector<Rect> differences(const std::vector<Placement>& before, const std::vector<Placement>& after) {
        DamageRegion damage;
        addDifferences(before, after, damage);
        return damage.rects();
    }

    const Rect left{0, 0, 10, 10}, middle{20, 0, 10, 10}, right{40, 0, 10, 10}, all{0, 0, 50, 10};
};

TEST_F(PlacementDiffTest, EqualListsDoNotDiffer) {
    EXPECT_THAT(differences({fill(a, left), fill(b, right)}, {fill(a, left), fill(b, right)}), IsEmpty());
}

TEST_F(PlacementDiffTest, AMoveDamagesBothPlaces) {
    EXPECT_THAT(differences({fill(a, left), fill(b, right)}, {fill(a, middle), fill(b, right)}),
                UnorderedElementsAre(left, middle));
}

TEST_F(PlacementDiffTest, WhatAppearsOrVanishesDamagesItsPlace) {
    EXPECT_THAT(differences({fill(a, left)}, {fill(a, left), fill(b, right)}), UnorderedElementsAre(right));
    EXPECT_THAT(differences({fill(a, left), fill(c, middle), fill(b, right)}, {fill(a, left), fill(b, right)}),
                UnorderedElementsAre(middle));
    EXPECT_THAT(differences({fill(a, left)}, {fill(b, right)}), UnorderedElementsAre(left, right));
}

TEST_F(PlacementDiffTest, OnlyWhatLeftTheOrderIsDamaged) {
    // c comes from the front to the back; a and b keep their order.
    EXPECT_THAT(
        differences({fill(a, left), fill(b, middle), fill(c, right)}, {fill(c, right), fill(a, left), fill(b, middle)}),
        UnorderedElementsAre(right));
}

TEST_F(PlacementDiffTest, AGroupsOpacityDamagesAllThatIsInIt) {
    const auto list = [&](double opacity) {
        return std::vector<Placement>{step(Step::pushGroup, group, all, opacity), fill(a, left), fill(b, right),
                                      step(Step::popGroup, group, all)};
    };
    EXPECT_THAT(differences(list(0.5), list(0.5)), IsEmpty());
    EXPECT_THAT(differences(list(0.5), list(0.6)), UnorderedElementsAre(all));
}

TEST_F(PlacementDiffTest, LeavingAGroupInPlaceIsADifference) {
    const Placement push = step(Step::pushGroup, group, all, 0.5), pop = step(Step::popGroup, group, all);
    const auto damage =
        differences({push, fill(a, left), fill(b, right), pop}, {push, fill(a, left), pop, fill(b, right)});
    EXPECT_TRUE(std::any_of(damage.begin(), damage.end(), [&](const Rect& r) { return r.contains(right); }));
}

TEST_F(PlacementDiffTest, AClipsCornerRadiusDamagesWhatItClips) {
    Placement push = step(Step::pushClip, group, all);
    const Placement pop = step(Step::popClip, group, all), inside = fill(a, left);
    const std::vector<Placement> before{push, inside, pop};
    push.cornerRadius = 3;
    EXPECT_THAT(differences(before, {push, inside, pop}), UnorderedElementsAre(all));
}

} // namespace
} // namespace QVM_NAMESPACE
