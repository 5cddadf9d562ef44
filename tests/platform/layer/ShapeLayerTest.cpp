#include "platform/layer/ShapeLayer.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(ShapeLayerTest, StartsFilledBlackWithAClearLineOfOnePoint) {
    const ShapeLayer layer;
    EXPECT_EQ(layer.fillColor(), Color::white(0));
    EXPECT_EQ(layer.strokeColor(), Color::clear());
    EXPECT_EQ(layer.lineWidth(), 1);
}

TEST(ShapeLayerTest, HasALookWhenItsPathShows) {
    ShapeLayer layer;
    const auto looks = [&] { return layer.hasLook(layer.presentation(0)); };
    EXPECT_FALSE(looks()); // no path
    layer.setPath(Path::rect({0, 0, 5, 5}));
    EXPECT_TRUE(looks());
    layer.setFillColor(Color::clear());
    EXPECT_FALSE(looks());
    layer.setStrokeColor(Color::white(1));
    EXPECT_TRUE(looks());
    layer.setLineWidth(0);
    EXPECT_FALSE(looks());
}

TEST(ShapeLayerTest, IsAPlainRectangleOnlyWithoutItsPath) {
    ShapeLayer layer;
    layer.look().setBackgroundColor(Color::white(1));
    EXPECT_TRUE(layer.isPlainRectangle(layer.presentation(0)));
    layer.setPath(Path::rect({0, 0, 5, 5}));
    EXPECT_FALSE(layer.isPlainRectangle(layer.presentation(0)));
}

TEST(ShapeLayerTest, TheLookIsThePathGrownByItsLine) {
    ShapeLayer layer;
    layer.setFrame({0, 0, 100, 100});
    layer.setPath(Path::rect({-10, 20, 30, 30}));
    const auto look = [&] { return layer.lookBounds(layer.presentation(0)); };
    EXPECT_EQ(look(), (Rect{-10, 20, 30, 30})); // the bounds show nothing
    layer.setStrokeColor(Color::white(1));
    layer.setLineWidth(4);
    layer.setLineStyle(LineCap::butt, LineJoin::round);
    EXPECT_EQ(look(), (Rect{-12, 18, 34, 34}));
    layer.setLineStyle(LineCap::square, LineJoin::round);
    EXPECT_EQ(look(), (Rect{-13, 17, 36, 36}));
    layer.setLineStyle(LineCap::butt, LineJoin::miter);
    EXPECT_EQ(look(), (Rect{-16, 14, 42, 42}));
    layer.look().setBackgroundColor(Color::white(1));
    EXPECT_EQ(look(), (Rect{-16, 0, 116, 100}));
}

TEST(ShapeLayerTest, EveryChangeOfTheLookCountsOnce) {
    ShapeLayer layer;
    const auto setAll = [&] {
        std::vector<std::uint64_t> versions{layer.look().version()};
        const auto note = [&] { versions.push_back(layer.look().version()); };
        layer.setPath(Path::rect({0, 0, 5, 5})), note();
        layer.setFillColor(Color::white(1)), note();
        layer.setStrokeColor(Color::white(1)), note();
        layer.setLineWidth(2), note();
        layer.setLineDashPattern({3, 2}), note();
        layer.setLineDashPhase(1), note();
        layer.setLineStyle(LineCap::round, LineJoin::round), note();
        return versions;
    };
    const auto first = setAll(), second = setAll();
    for (std::size_t i = 1; i < first.size(); ++i)
        EXPECT_GT(first[i], first[i - 1]) << i;
    EXPECT_EQ(second.front(), second.back());
}

} // namespace
} // namespace QVM_NAMESPACE
