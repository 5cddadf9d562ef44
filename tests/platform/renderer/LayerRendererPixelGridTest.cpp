// Where layers come to stand on the device's pixels.
#include "platform/renderer/LayerRendererFixture.h"

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

using LayerRendererPixelGridTest = LayerRendererFixture;

TEST_F(LayerRendererPixelGridTest, WhatMovesByFractionsLandsOnWholePixelsAllTogether) {
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

TEST_F(LayerRendererPixelGridTest, NeighboursMeetAtEveryScale) {
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

TEST_F(LayerRendererPixelGridTest, EqualLinesAreEquallyThickWhereverTheyAre) {
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

} // namespace
} // namespace QVM_NAMESPACE
