#include "platform/layer/LayerKeyPaths.h"

#include <gtest/gtest.h>

#include <string>

namespace QVM_NAMESPACE {
namespace {

TEST(LayerKeyPaths, NamesThatNoLayerHasGiveNothing) {
    EXPECT_EQ(layerKeyPath(""), nullptr);
    EXPECT_EQ(layerKeyPath("position.z"), nullptr);
}

TEST(LayerKeyPaths, WhatIsWrittenIsRead) {
    const struct {
        const char* name;
        AnimatableValue value;
    } paths[] = {{"opacity", 0.5},
                 {"position", Point{1, 2}},
                 {"position.x", 3.0},
                 {"position.y", 4.0},
                 {"bounds", Rect{1, 2, 3, 4}},
                 {"transform", AffineTransform{1, 2, 3, 4, 5, 6}},
                 {"transform.translation.x", 7.0},
                 {"transform.translation.y", 8.0},
                 {"backgroundColor", Color{0.1f, 0.2f, 0.3f, 0.4f}},
                 {"cornerRadius", 9.0},
                 {"lineDashPhase", 10.0}};
    for (const auto& [name, value] : paths) {
        const LayerKeyPath* const path = layerKeyPath(name);
        ASSERT_NE(path, nullptr) << name;
        PresentedLayer layer;
        EXPECT_FALSE(path->read(layer) == value) << name;
        path->write(layer, value);
        EXPECT_TRUE(path->read(layer) == value) << name;
    }
}

TEST(LayerKeyPaths, PartLeavesTheOtherPartAlone) {
    PresentedLayer layer;
    layer.position = {1, 2};
    layerKeyPath("position.x")->write(layer, 5.0);
    EXPECT_EQ(layer.position, (Point{5, 2}));
}

TEST(LayerKeyPaths, ScaleComesBeforeTheLayersOwnTransform) {
    PresentedLayer layer;
    layer.transform = AffineTransform::translation(10, 0);
    layerKeyPath("transform.scale")->write(layer, 2.0);
    EXPECT_EQ(layer.transform.apply(Point{1, 1}), (Point{12, 2}));
}

TEST(LayerKeyPaths, ValueOfTheWrongKindChangesNothing) {
    PresentedLayer layer;
    layerKeyPath("opacity")->write(layer, Point{0.1, 0.2});
    EXPECT_EQ(layer.opacity, 1);
    layerKeyPath("position")->write(layer, 5.0);
    EXPECT_EQ(layer.position, Point{});
}

} // namespace
} // namespace QVM_NAMESPACE
