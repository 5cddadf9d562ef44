#include "platform/LayerRenderer.h"

#include "platform/FakePixels.h"
#include "platform/Transaction.h"
#include "platform/VirtualTime.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

struct LayerRendererTest : testing::Test {
    VirtualTime time;
    FakeBackend backend;
    LayerRenderer renderer{backend};
    std::shared_ptr<Layer> root = std::make_shared<Layer>(), box, button;
    std::shared_ptr<TextLayer> label = std::make_shared<TextLayer>();

    LayerRendererTest() {
        root->setFrame({0, 0, 200, 100});
        root->setBackgroundColor(Color::white(0.2f));
        box = added(*root, "box", {10, 10, 80, 60});
        button = added(*box, "button", {5, 5, 20, 10});
        button->setCornerRadius(3);
        label->setName("label");
        label->setFrame({100, 10, 60, 20});
        label->setString({"1.0", Font{"HelveticaNeue", 8}, Color::white(1)});
        root->addSublayer(label);
        renderer.setRootLayer(root);
    }
    static std::shared_ptr<Layer> added(Layer& parent, const char* name, const Rect& frame) {
        auto layer = std::make_shared<Layer>();
        layer->setName(name);
        layer->setFrame(frame);
        layer->setBackgroundColor(Color::white(0.5f));
        parent.addSublayer(layer);
        return layer;
    }
    const RenderStatistics& update() { return renderer.update(time.now()); }
    std::vector<std::string> composeCalls(const Rect& clip = {0, 0, 400, 400}) {
        FakePicture picture(400, 400);
        FakeTarget target(picture, clip);
        renderer.compose(target, clip);
        EXPECT_TRUE(target.isBalanced());
        return target.calls;
    }
};

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
    extra->removeFromSuperlayer();
    EXPECT_THAT(update().damage, IsEmpty());
    button->removeFromSuperlayer();
    EXPECT_THAT(update().damage, ElementsAre(Rect{15, 15, 20, 10}));
}

TEST_F(LayerRendererTest, AReorderDamagesWhatChangedItsPlace) {
    const auto over = added(*root, "over", {80, 60, 20, 20});
    update();
    root->insertSublayer(over, 0);
    EXPECT_THAT(update().damage, ElementsAre(Rect{80, 60, 20, 20}));
}

TEST_F(LayerRendererTest, AHiddenOrTransparentSubtreeCostsNothing) {
    box->setOpacity(0);
    EXPECT_THAT(update().rasterised, ElementsAre("label"));
    EXPECT_THAT(composeCalls(), ElementsAre("fill", "draw"));
    button->setBackgroundColor(Color::white(1)); // of no account while nothing of it shows
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
    box->setBackgroundColor(Color::clear());
    box->setOpacity(0.5);
    button->setOpacity(0.5);
    label->removeFromSuperlayer();
    update();
    renderer.compose(target, {0, 0, 200, 100});
    EXPECT_THAT(target.opacities, ElementsAre(1, 0.25));
}

TEST_F(LayerRendererTest, AMaskClipsItsSublayersAndTheirDamage) {
    box->setMasksToBounds(true);
    const auto wide = added(*box, "wide", {70, 50, 100, 100});
    update();
    EXPECT_THAT(composeCalls(), ElementsAre("fill", "pushClip", "fill", "draw", "fill", "popClip", "draw"));
    wide->setBackgroundColor(Color::white(1));
    EXPECT_THAT(update().damage, ElementsAre(Rect{80, 60, 10, 10}));
    wide->setPosition({300, 300}); // beyond the mask: gone
    EXPECT_THAT(update().damage, ElementsAre(Rect{80, 60, 10, 10}));
    EXPECT_THAT(composeCalls(), ElementsAre("fill", "pushClip", "fill", "draw", "popClip", "draw"));
}

TEST_F(LayerRendererTest, WithoutAMaskSublayersReachOutside) {
    added(*box, "wide", {70, 50, 100, 10});
    update();
    box->sublayers().back()->setBackgroundColor(Color::white(1));
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
    root->addSublayer(up);
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
    box->removeFromSuperlayer();
    update();
    EXPECT_EQ(backend.alive(), 1);
    root->addSublayer(box);
    EXPECT_THAT(update().rasterised, ElementsAre("button"));
}

TEST_F(LayerRendererTest, ALayerThatOnlyMovesInTheTreeKeepsItsRaster) {
    update();
    root->addSublayer(button);
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

TEST_F(LayerRendererTest, AScalePulseReusesTheRaster) {
    update();
    BasicAnimation pulse;
    pulse.keyPath = "transform.scale";
    pulse.fromValue = 1.0;
    pulse.toValue = 1.2;
    pulse.duration = 0.09;
    pulse.autoreverses = true;
    button->addAnimation(pulse, "pulse");
    int frames = 0;
    update();
    while (renderer.isAnimating()) {
        time.advance(1.0 / 60);
        const RenderStatistics& s = update();
        EXPECT_THAT(s.rasterised, IsEmpty());
        EXPECT_EQ(s.damage.size(), 1u);
        for (const Rect& r : s.damage)
            EXPECT_TRUE((Rect{12, 13, 26, 14}).contains(r)) << r.x << ' ' << r.width;
        ++frames;
    }
    EXPECT_EQ(frames, 11); // 0.18 s
    EXPECT_THAT(update().damage, IsEmpty());
}

TEST_F(LayerRendererTest, ADashPhaseIsPartOfTheLook) {
    const auto ants = std::make_shared<ShapeLayer>();
    ants->setName("ants");
    ants->setFrame({100, 50, 20, 20});
    ants->setPath(Path::rect({0, 0, 20, 20}));
    root->addSublayer(ants);
    BasicAnimation march;
    march.keyPath = "lineDashPhase";
    march.toValue = 10.0;
    march.repeatCount = BasicAnimation::forever;
    ants->addAnimation(march, "PhaseShift");
    update();
    time.advance(0.05);
    EXPECT_THAT(update().rasterised, ElementsAre("ants"));
    EXPECT_TRUE(renderer.isAnimating());
    ants->setOpacity(0); // marches on unseen: no frames for that
    update();
    EXPECT_FALSE(renderer.isAnimating());
}

TEST_F(LayerRendererTest, DashesMarchByQuartersOfAPixelAndFramesInBetweenDrawNothing) {
    const auto ants = std::make_shared<ShapeLayer>();
    ants->setName("ants");
    ants->setFrame({100, 50, 20, 20});
    ants->setPath(Path::rect({0, 0, 20, 20}));
    root->addSublayer(ants);
    BasicAnimation march;
    march.keyPath = "lineDashPhase";
    march.toValue = 10.0;
    march.duration = 2;
    march.timing = TimingFunction::linear;
    march.repeatCount = BasicAnimation::forever;
    ants->addAnimation(march, "PhaseShift");
    for (const double scale : {1.0, 2.0}) {
        renderer.setScale(scale);
        update();
        int rasters = 0, drawings = 0;
        for (int i = 0; i < 120; ++i) { // 5 points a second at 60 Hz, for 10 points
            time.advance(1.0 / 60);
            const RenderStatistics& s = update();
            rasters += static_cast<int>(s.rasterised.size());
            drawings += s.damage.empty() ? 0 : 1;
        }
        EXPECT_NEAR(rasters, 40 * scale, 1);
        EXPECT_EQ(drawings, rasters);
        EXPECT_TRUE(renderer.isAnimating());
    }
}

TEST_F(LayerRendererTest, AFadeInFromNothingIsAnimated) {
    button->setOpacity(0);
    update();
    {
        const auto glide = Transaction::animated(0.1);
        button->setOpacity(1);
    }
    update();
    EXPECT_TRUE(renderer.isAnimating());
    time.advance(0.05);
    EXPECT_THAT(update().damage, ElementsAre(Rect{15, 15, 20, 10}));
    time.advance(0.05);
    update();
    EXPECT_FALSE(renderer.isAnimating());
}

TEST_F(LayerRendererTest, CompletionsRunEvenForWhatIsHiddenAndMayChangeTheTree) {
    box->setHidden(true);
    BasicAnimation fade;
    fade.keyPath = "opacity";
    fade.toValue = 0.0;
    fade.duration = 0.1;
    int asked = 0;
    fade.completion = [this](bool) { box->removeFromSuperlayer(); };
    button->addAnimation(fade, "fadeOut");
    update();
    EXPECT_TRUE(renderer.isAnimating());
    renderer.setChangeHandler([&] { ++asked; });
    time.advance(0.1);
    update();
    EXPECT_EQ(box->superlayer(), nullptr);
    EXPECT_FALSE(renderer.isAnimating());
    EXPECT_EQ(asked, 0); // it was part of this update
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

TEST_F(LayerRendererTest, WhatMovesByFractionsLandsOnWholePixelsAllTogether) {
    struct PlaceTarget : QuietTarget {
        std::vector<Point> places;
        void draw(const Raster&, const AffineTransform& t, double) override {
            EXPECT_TRUE(t.isTranslation());
            places.push_back({t.tx, t.ty});
        }
        void fill(const Rect& r, Color) override { places.push_back(r.origin()); }
    };
    button->setPosition(button->position() + Point{0.3, 0});
    for (double x = 0; x < 3; x += 0.13) {
        box->setPosition({50 + x, 40 - x});
        update();
        PlaceTarget target;
        renderer.compose(target, {0, 0, 200, 100});
        ASSERT_EQ(target.places.size(), 4u);
        for (const Point& p : target.places)
            EXPECT_EQ(p, (Point{std::round(p.x), std::round(p.y)}));
        EXPECT_EQ(target.places[2] - target.places[1], (Point{5, 5})); // no jitter between box and button
    }
}

TEST_F(LayerRendererTest, NeighboursMeetAtEveryScale) {
    for (const double scale : {1.25, 1.5, 1.75}) {
        const auto strip = std::make_shared<Layer>();
        strip->setFrame({0, 0, 200, 100});
        for (int i = 0; i < 10; ++i)
            added(*strip, "cell", {i * 7.0, 0, 7, 10});
        renderer.setRootLayer(strip);
        renderer.setScale(scale);
        update();
        struct EdgeTarget : QuietTarget {
            std::vector<Rect> fills;
            void fill(const Rect& r, Color) override { fills.push_back(r); }
        } target;
        renderer.compose(target, {0, 0, 400, 400});
        ASSERT_EQ(target.fills.size(), 10u);
        for (std::size_t i = 1; i < 10; ++i)
            EXPECT_EQ(target.fills[i - 1].maxX(), target.fills[i].x);
    }
}

TEST_F(LayerRendererTest, EqualLinesAreEquallyThickWhereverTheyAre) {
    for (const double scale : {1.25, 1.5, 1.75}) {
        const auto sheet = std::make_shared<Layer>();
        sheet->setFrame({0, 0, 200, 100});
        for (int i = 0; i < 10; ++i)
            added(*sheet, "line", {i * 13.0, i * 7.0, 1, 20});
        renderer.setRootLayer(sheet);
        renderer.setScale(scale);
        update();
        struct ThicknessTarget : QuietTarget {
            std::vector<double> thicknesses;
            void fill(const Rect& r, Color) override { thicknesses.push_back(r.width); }
        } target;
        renderer.compose(target, {0, 0, 400, 400});
        EXPECT_EQ(target.thicknesses, std::vector(10, std::floor(scale + 0.5))) << scale;
    }
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
        button->removeFromSuperlayer();
        button.reset();
        button = added(*box, "button", {5, 5, 20, 10});
        button->setCornerRadius(3);
        const RenderStatistics& s = update();
        EXPECT_THAT(s.rasterised, ElementsAre("button"));
        EXPECT_THAT(s.damage, ElementsAre(Rect{15, 15, 20, 10}));
    }
}

} // namespace
} // namespace QVM_NAMESPACE
