#include "platform/renderer/LayerPlacer.h"

#include "platform/renderer/AddedLayer.h"
#include "platform/renderer/FakePixels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Step = Placement::Step;

// A root of 100 by 50 points with a box in it, at two device pixels a point.
struct LayerPlacerTest : testing::Test {
    FakeBackend backend;
    RasterCache cache{backend};
    std::vector<Placement> placements;
    std::vector<std::string> rasterised;
    std::shared_ptr<Layer> root = std::make_shared<Layer>(), box;

    LayerPlacerTest() {
        cache.setScale(2);
        root->setFrame({0, 0, 100, 50});
        box = added(*root, "box", {10, 10, 40, 30});
    }
    Rect place() {
        placements.clear();
        rasterised.clear();
        return LayerPlacer(cache, placements, rasterised).place(*root, 0);
    }
    std::vector<Step> steps() const {
        std::vector<Step> result;
        for (const Placement& placement : placements)
            result.push_back(placement.step);
        return result;
    }
};

TEST_F(LayerPlacerTest, GivesTheRootsPixelsAndTheStepsFromBackToFront) {
    auto front = added(*root, "front", {20, 20, 5, 5});
    EXPECT_EQ(place(), (Rect{0, 0, 200, 100}));
    ASSERT_THAT(steps(), ElementsAre(Step::fill, Step::fill));
    EXPECT_EQ(placements[0].layer, box.get());
    EXPECT_EQ(placements[0].bounds, (Rect{20, 20, 80, 60}));
    EXPECT_EQ(placements[1].layer, front.get());
    EXPECT_EQ(placements[1].bounds, (Rect{40, 40, 10, 10}));
}

TEST_F(LayerPlacerTest, NothingIsPlacedBeyondTheRoot) {
    box->setFrame({90, 40, 40, 30});
    added(*root, "outside", {200, 0, 10, 10});
    place();
    ASSERT_THAT(steps(), ElementsAre(Step::fill));
    EXPECT_EQ(placements[0].bounds, (Rect{180, 80, 20, 20}));
}

TEST_F(LayerPlacerTest, WhatIsHiddenOrTransparentOrFlatHasNoStepNorHasWhatIsInIt) {
    added(*box, "inside", {0, 0, 5, 5});
    box->setHidden(true);
    place();
    EXPECT_THAT(steps(), IsEmpty());
    box->setHidden(false);
    box->setOpacity(0);
    place();
    EXPECT_THAT(steps(), IsEmpty());
    box->setOpacity(1);
    box->setTransform(AffineTransform::scale(1, 0));
    place();
    EXPECT_THAT(steps(), IsEmpty());
    box->setTransform({});
    place();
    EXPECT_THAT(steps(), ElementsAre(Step::fill, Step::fill));
}

TEST_F(LayerPlacerTest, ALookThatIsNoRectangleIsRasterisedOnceAndNotBeforeItIsSeen) {
    box->look().setCornerRadius(4);
    box->setPosition({500, 500});
    place();
    EXPECT_THAT(steps(), IsEmpty());
    EXPECT_THAT(rasterised, IsEmpty());
    box->setPosition({30, 25});
    place();
    EXPECT_THAT(steps(), ElementsAre(Step::draw));
    EXPECT_THAT(rasterised, ElementsAre("box"));
    place();
    EXPECT_THAT(steps(), ElementsAre(Step::draw));
    EXPECT_THAT(rasterised, IsEmpty());
}

TEST_F(LayerPlacerTest, EveryPushKnowsItsPopAndWhatIsTouchedBetweenThem) {
    box->setMasksToBounds(true);
    auto inner = added(*box, "inner", {20, 0, 100, 10});
    inner->setOpacity(0.5);
    added(*inner, "left", {0, 0, 5, 5});
    added(*inner, "right", {50, 0, 5, 5});
    place();
    ASSERT_THAT(steps(), ElementsAre(Step::pushClip, Step::fill, Step::pushGroup, Step::fill, Step::fill,
                                     Step::popGroup, Step::popClip))
        << "the one on the right is clipped away";
    EXPECT_EQ(placements[0].pop, 6u);
    EXPECT_EQ(placements[2].pop, 5u);
    EXPECT_EQ(placements[2].bounds, (Rect{60, 20, 40, 20}));
    EXPECT_EQ(placements[2].opacity, 0.5);
    EXPECT_EQ(placements[6].bounds, (Rect{20, 20, 80, 60}));
}

TEST_F(LayerPlacerTest, AGroupOfOneThingGivesItsOpacityToThatThing) {
    box->look().setBackgroundColor({});
    box->setOpacity(0.5);
    auto only = added(*box, "only", {0, 0, 5, 5});
    place();
    ASSERT_THAT(steps(), ElementsAre(Step::fill));
    EXPECT_EQ(placements[0].layer, only.get());
    EXPECT_EQ(placements[0].color.a, 0.5f);
}

TEST_F(LayerPlacerTest, WhatStaysLegibleIsPlacedAboveTheFaintGroupsThatItIsIn) {
    auto inner = added(*box, "inner", {0, 0, 30, 20});
    auto value = std::make_shared<TextLayer>();
    value->setFrame({5, 5, 5, 5});
    value->look().setBackgroundColor(Color::white(1));
    inner->tree().add(value);
    auto after = added(*box, "after", {0, 25, 5, 5});
    value->setLeastOpacity(0.5);
    place();
    EXPECT_THAT(steps(), ElementsAre(Step::fill, Step::fill, Step::fill, Step::fill))
        << "in its order: nothing is faint";
    EXPECT_EQ(placements[2].layer, value.get());
    box->setOpacity(0.5);
    inner->setOpacity(0.2);
    place();
    ASSERT_THAT(steps(), ElementsAre(Step::pushGroup, Step::fill, Step::fill, Step::fill, Step::popGroup, Step::fill));
    EXPECT_EQ(placements[5].layer, value.get());
    EXPECT_FLOAT_EQ(placements[5].color.a, 0.5f);
    EXPECT_EQ(placements[5].bounds, (Rect{30, 30, 10, 10})) << "where it is in them";
    EXPECT_EQ(placements[3].layer, after.get());
    inner->setOpacity(1);
    box->setOpacity(0.9); // on the way there it is as faint as they are
    place();
    EXPECT_FLOAT_EQ(placements.back().color.a, 0.9f);
    inner->setHidden(true);
    place();
    for (const Placement& placement : placements)
        EXPECT_NE(placement.layer, value.get());
    inner->setHidden(false);
    box->setOpacity(0);
    place();
    EXPECT_THAT(steps(), IsEmpty());
}

TEST_F(LayerPlacerTest, AClipWithNothingInItIsTakenBack) {
    box->look().setBackgroundColor({});
    box->setMasksToBounds(true);
    added(*box, "outside", {100, 0, 5, 5});
    place();
    EXPECT_THAT(steps(), IsEmpty());
}

TEST_F(LayerPlacerTest, WhatIsOnlyMovedStartsAtAWholePixelWithAllThatIsInIt) {
    box->setFrame({10.2, 10, 40, 30});
    auto inside = added(*box, "inside", {5, 5, 10, 10});
    place();
    ASSERT_THAT(steps(), ElementsAre(Step::fill, Step::fill));
    EXPECT_EQ(placements[0].rect, (Rect{20, 20, 80, 60}));
    EXPECT_EQ(placements[1].rect, (Rect{30, 30, 20, 20}));
}

} // namespace
} // namespace QVM_NAMESPACE
