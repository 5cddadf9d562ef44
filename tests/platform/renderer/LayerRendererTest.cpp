#include "platform/renderer/LayerRenderer.h"

#include "platform/renderer/LayerRendererFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using LayerRendererTest = LayerRendererFixture;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST_F(LayerRendererTest, TheFirstUpdateDrawsEverything) {
    const RenderStatistics& s = update();
    EXPECT_THAT(s.rasterised, ElementsAre("button", "label")); // plain boxes need no raster
    EXPECT_THAT(s.damage, ElementsAre(Rect{0, 0, 200, 100}));
    EXPECT_THAT(composeCalls(), ElementsAre("fill", "fill", "draw", "draw"));
}

TEST_F(LayerRendererTest, AnIdleUpdateDoesNothing) {
    update();
    const RenderStatistics& s = update();
    EXPECT_THAT(s.rasterised, IsEmpty());
    EXPECT_THAT(s.damage, IsEmpty());
    EXPECT_FALSE(renderer.isAnimating());
}

TEST_F(LayerRendererTest, AHoverRasterisesNothingAndDamagesOnlyItsLayer) {
    update();
    for (const double opacity : {0.5, 0.0, 1.0}) {
        button->setOpacity(opacity);
        const RenderStatistics& s = update();
        EXPECT_THAT(s.rasterised, IsEmpty());
        EXPECT_THAT(s.damage, ElementsAre(Rect{15, 15, 20, 10}));
    }
}

TEST_F(LayerRendererTest, AValueTextRasterisesOneLayer) {
    update();
    label->setString({"1.1", Font{"HelveticaNeue", 8}, Color::white(1)});
    const RenderStatistics& s = update();
    EXPECT_THAT(s.rasterised, ElementsAre("label"));
    EXPECT_THAT(s.damage, ElementsAre(Rect{98, 8, 64, 24})); // with room for overhang
}

TEST_F(LayerRendererTest, AMoveDamagesBothPlacesAndKeepsTheRasters) {
    update();
    box->setPosition(box->position() + Point{30, 40});
    const RenderStatistics& s = update();
    EXPECT_THAT(s.rasterised, IsEmpty());
    EXPECT_THAT(s.damage, ElementsAre(Rect{10, 10, 110, 90})); // the places overlap: one box, and inside the window
    button->setPosition({70, 30});
    EXPECT_THAT(update().damage, UnorderedElementsAre(Rect{45, 55, 20, 10}, Rect{100, 75, 20, 10}));
}

TEST_F(LayerRendererTest, AppearingAndVanishingDamageTheirPlace) {
    update();
    const auto extra = added(*root, "extra", {150, 60, 10, 10});
    EXPECT_THAT(update().damage, ElementsAre(Rect{150, 60, 10, 10}));
    extra->setHidden(true);
    EXPECT_THAT(update().damage, ElementsAre(Rect{150, 60, 10, 10}));
    extra->tree().removeFromSuperlayer();
    EXPECT_THAT(update().damage, IsEmpty());
    button->tree().removeFromSuperlayer();
    EXPECT_THAT(update().damage, ElementsAre(Rect{15, 15, 20, 10}));
}

TEST_F(LayerRendererTest, AReorderDamagesWhatChangedItsPlace) {
    const auto over = added(*root, "over", {80, 60, 20, 20});
    update();
    root->tree().insert(over, 0);
    EXPECT_THAT(update().damage, ElementsAre(Rect{80, 60, 20, 20}));
}

TEST_F(LayerRendererTest, AHiddenOrTransparentSubtreeCostsNothing) {
    box->setOpacity(0);
    EXPECT_THAT(update().rasterised, ElementsAre("label"));
    EXPECT_THAT(composeCalls(), ElementsAre("fill", "draw"));
    button->look().setBackgroundColor(Color::white(1)); // of no account while nothing of it shows
    const RenderStatistics& s = update();
    EXPECT_THAT(s.rasterised, IsEmpty());
    EXPECT_THAT(s.damage, IsEmpty());
    box->setOpacity(1);
    EXPECT_THAT(update().rasterised, ElementsAre("button"));
}

TEST_F(LayerRendererTest, ATranslucentLayerWithSublayersIsAGroup) {
    box->setOpacity(0.5);
    update();
    EXPECT_THAT(composeCalls(), ElementsAre("fill", "pushGroup", "fill", "draw", "popGroup", "draw"));
    EXPECT_THAT(composeCalls({150, 80, 10, 10}), ElementsAre("fill")); // the group is elsewhere
    box->setOpacity(0.4);
    const RenderStatistics& s = update();
    EXPECT_THAT(s.rasterised, IsEmpty());
    EXPECT_THAT(s.damage, ElementsAre(Rect{10, 10, 80, 60}));
}

TEST_F(LayerRendererTest, AGroupOfOneTakesTheOpacityItself) {
    struct OpacityTarget : QuietTarget {
        std::vector<double> opacities;
        void draw(const Raster&, const AffineTransform&, double opacity) override { opacities.push_back(opacity); }
        void fill(const Rect&, Color color) override { opacities.push_back(static_cast<double>(color.a)); }
        void pushGroup(const Rect&, double) override { ADD_FAILURE() << "a group for one layer"; }
    } target;
    box->look().setBackgroundColor(Color::clear());
    box->setOpacity(0.5);
    button->setOpacity(0.5);
    label->tree().removeFromSuperlayer();
    update();
    renderer.compose(target, {0, 0, 200, 100});
    EXPECT_THAT(target.opacities, ElementsAre(1, 0.25));
}

TEST_F(LayerRendererTest, AMaskClipsItsSublayersAndTheirDamage) {
    box->setMasksToBounds(true);
    const auto wide = added(*box, "wide", {70, 50, 100, 100});
    update();
    EXPECT_THAT(composeCalls(), ElementsAre("fill", "pushClip", "fill", "draw", "fill", "popClip", "draw"));
    wide->look().setBackgroundColor(Color::white(1));
    EXPECT_THAT(update().damage, ElementsAre(Rect{80, 60, 10, 10}));
    wide->setPosition({300, 300}); // beyond the mask: gone
    EXPECT_THAT(update().damage, ElementsAre(Rect{80, 60, 10, 10}));
    EXPECT_THAT(composeCalls(), ElementsAre("fill", "pushClip", "fill", "draw", "popClip", "draw"));
}

TEST_F(LayerRendererTest, WithoutAMaskSublayersReachOutside) {
    added(*box, "wide", {70, 50, 100, 10});
    update();
    box->tree().sublayers().back()->look().setBackgroundColor(Color::white(1));
    EXPECT_THAT(update().damage, ElementsAre(Rect{80, 60, 100, 10}));
}

TEST_F(LayerRendererTest, ScrollingMovesTheSublayers) {
    box->setMasksToBounds(true);
    update();
    box->setBounds({0, 4, 80, 60});
    const RenderStatistics& s = update();
    EXPECT_THAT(s.rasterised, IsEmpty());
    EXPECT_THAT(s.damage, ElementsAre(Rect{15, 11, 20, 14}));
}

TEST_F(LayerRendererTest, InAYUpLayerSublayersStandOnTheBottom) {
    const auto up = std::make_shared<Layer>(YAxis::up);
    up->setFrame({120, 40, 40, 50});
    root->tree().add(up);
    update();
    added(*up, "bottom", {0, 0, 10, 5});
    EXPECT_THAT(update().damage, ElementsAre(Rect{120, 85, 10, 5}));
    added(*up, "above", {20, 5, 10, 5});
    EXPECT_THAT(update().damage, ElementsAre(Rect{140, 80, 10, 5}));
}

TEST_F(LayerRendererTest, AScaleChangeDrawsEverythingAnewAtThatScale) {
    update();
    renderer.setScale(2);
    const RenderStatistics& s = update();
    EXPECT_THAT(s.rasterised, ElementsAre("button", "label"));
    EXPECT_THAT(s.damage, ElementsAre(Rect{0, 0, 400, 200}));
    renderer.setScale(2);
    EXPECT_THAT(update().damage, IsEmpty());
    button->setOpacity(0.5);
    EXPECT_THAT(update().damage, ElementsAre(Rect{30, 30, 40, 20}));
}

TEST_F(LayerRendererTest, RastersOfLayersThatLeftAreDropped) {
    update();
    EXPECT_EQ(backend.alive(), 2);
    box->tree().removeFromSuperlayer();
    update();
    EXPECT_EQ(backend.alive(), 1);
    root->tree().add(box);
    EXPECT_THAT(update().rasterised, ElementsAre("button"));
}

TEST_F(LayerRendererTest, ALayerThatOnlyMovesInTheTreeKeepsItsRaster) {
    update();
    root->tree().add(button);
    EXPECT_THAT(update().rasterised, IsEmpty());
    button->setHidden(true);
    update();
    button->setHidden(false);
    EXPECT_THAT(update().rasterised, IsEmpty());
}

TEST_F(LayerRendererTest, AnotherRootDrawsEverythingAndForgetsTheFirst) {
    update();
    const auto other = std::make_shared<Layer>();
    other->setFrame({0, 0, 300, 50});
    renderer.setRootLayer(other);
    EXPECT_THAT(update().damage, ElementsAre(Rect{0, 0, 300, 100})); // what was there, and what is
    EXPECT_EQ(backend.alive(), 0);
    button->setOpacity(0.3);
    EXPECT_THAT(update().damage, IsEmpty());
    renderer.setRootLayer(nullptr);
    EXPECT_THAT(update().damage, ElementsAre(Rect{0, 0, 300, 50}));
    EXPECT_THAT(composeCalls(), IsEmpty());
}

TEST_F(LayerRendererTest, TheChangeHandlerIsCalledAtTheFirstChangeAfterAnUpdate) {
    int asked = 0;
    update();
    renderer.setChangeHandler([&] { ++asked; });
    button->setOpacity(0.5);
    button->setOpacity(0.6);
    label->setHidden(true);
    EXPECT_EQ(asked, 1);
    update();
    button->setOpacity(0.6);
    EXPECT_EQ(asked, 1);
    button->setOpacity(0.7);
    EXPECT_EQ(asked, 2);
}

TEST_F(LayerRendererTest, NonsenseGeometryIsNotDrawn) {
    update();
    button->setPosition({NAN, 5});
    label->setTransform(AffineTransform::scale(0, 1));
    update();
    EXPECT_THAT(composeCalls(), ElementsAre("fill", "fill"));
}

TEST_F(LayerRendererTest, ALayerBornWhereAnotherDiedIsDrawnAnew) {
    // The allocator may hand out the same address: neither raster nor place may be taken for the old one's.
    update();
    for (int i = 0; i < 20; ++i) {
        button->tree().removeFromSuperlayer();
        button.reset();
        button = added(*box, "button", {5, 5, 20, 10});
        button->look().setCornerRadius(3);
        const RenderStatistics& s = update();
        EXPECT_THAT(s.rasterised, ElementsAre("button"));
        EXPECT_THAT(s.damage, ElementsAre(Rect{15, 15, 20, 10}));
    }
}

} // namespace
} // namespace QVM_NAMESPACE
