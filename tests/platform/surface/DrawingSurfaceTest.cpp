// What both back ends promise of any picture.
#include "platform/surface/DrawingSurfaceFixture.h"

#include <limits>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using DrawingSurfaceTest = DrawingSurfaceFixture;
INSTANTIATE_TEST_SUITE_P(Backends, DrawingSurfaceTest, testing::ValuesIn(backends), nameOfBackend);

TEST_P(DrawingSurfaceTest, StartsTransparentAndInWholePixels) {
    draw({10, 4.2}, 1.5, [](DrawingSurface&) {});
    EXPECT_EQ(image.width, 15);
    EXPECT_EQ(image.height, 7);
    EXPECT_EQ(sumOfAlpha(), 0);
    draw({0, 0}, 2, [](DrawingSurface& s) { s.drawLineStrip(rectangle(0, 0, 1, 1), {1}, white); });
    EXPECT_EQ(image.pixels.size(), 1u);
}

TEST_P(DrawingSurfaceTest, NextPictureStartsAnewAtItsOwnSize) {
    draw({8, 8}, 1, [](DrawingSurface& s) { s.fillTriangles(rectangle(0, 0, 8, 8), TriangleMode::strip, white); });
    EXPECT_EQ(sumOfAlpha(), 64 * 255);
    draw({4, 6}, 2, [](DrawingSurface&) {});
    EXPECT_EQ(image.width, 8);
    EXPECT_EQ(image.height, 12);
    EXPECT_EQ(sumOfAlpha(), 0);
}

TEST_P(DrawingSurfaceTest, ProjectionIsInPointsWithYUpAtFirst) {
    draw({4, 4}, 2, [](DrawingSurface& s) { s.fillTriangles(rectangle(1, 0, 2, 1), TriangleMode::strip, white); });
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            EXPECT_EQ(alpha(x, y), (x == 2 || x == 3) && y >= 6 ? 255 : 0) << x << ' ' << y;
}

TEST_P(DrawingSurfaceTest, ProjectionMayBeAnything) {
    draw({4, 4}, 1, [](DrawingSurface& s) {
        s.setProjection(-1, 1, 1, -1); // y down
        s.fillTriangles(rectangle(-1, -1, 0, 0), TriangleMode::strip, white);
    });
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(alpha(x, y), x < 2 && y < 2 ? 255 : 0) << x << ' ' << y;
}

TEST_P(DrawingSurfaceTest, PixelsArePremultiplied) {
    draw({2, 2}, 1, [](DrawingSurface& s) {
        s.fillTriangles(rectangle(0, 0, 2, 2), TriangleMode::strip, Color{1, 0.5f, 0, 0.5f});
    });
    for (const std::uint32_t p : image.pixels)
        EXPECT_EQ(p, 0x80804000u);
}

TEST_P(DrawingSurfaceTest, ShapesAreDrawnOverWhatIsThere) {
    draw({1, 1}, 1, [](DrawingSurface& s) {
        s.fillTriangles(rectangle(0, 0, 1, 1), TriangleMode::strip, Color{1, 0, 0, 1});
        s.fillTriangles(rectangle(0, 0, 1, 1), TriangleMode::strip, Color{0, 0, 1, 0.5f});
    });
    EXPECT_EQ(at(0, 0), 0xFF7F0080u);
}

TEST_P(DrawingSurfaceTest, ClearTakesEverythingBack) {
    draw({3, 3}, 1, [](DrawingSurface& s) {
        s.fillTriangles(rectangle(0, 0, 3, 3), TriangleMode::strip, white);
        s.clear();
        s.fillTriangles(rectangle(0, 0, 1, 1), TriangleMode::strip, white);
    });
    EXPECT_EQ(sumOfAlpha(), 255);
}

TEST_P(DrawingSurfaceTest, PaintedIsTheBoxAroundWhatIsDrawn) {
    const std::vector<Vertex> triangle{{2, 1}, {4.5f, 1}, {2, 3}}, line{{5, 5}, {7, 5}},
        beyond{{20, 1}, {22, 1}, {20, 3}};
    draw({10, 10}, 2, [&](DrawingSurface& s) {
        EXPECT_TRUE(s.painted().isEmpty());
        s.fillTriangles(beyond, TriangleMode::list, white);
        EXPECT_TRUE(s.painted().isEmpty());
        s.clear();
        s.fillTriangles(triangle, TriangleMode::list, white);
        EXPECT_EQ(s.painted(), (Rect{4, 14, 5, 4}));
        s.drawLineStrip(line, {1}, white);
        EXPECT_EQ(s.painted(), (Rect{4, 8, 12, 10})) << "two pixels around the line: half its width and its soft edge";
        s.clear();
        EXPECT_TRUE(s.painted().isEmpty());
    });
}

TEST_P(DrawingSurfaceTest, WhatIsNotFiniteIsLeftOut) {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
    draw({10, 1}, 1, [&](DrawingSurface& s) {
        s.drawLineStrip(std::vector<Vertex>{{nan, 0}, {0, 0.5f}, {3, 0.5f}, {4, inf}, {6, 0.5f}, {8, 0.5f}, {9, nan}},
                        {1}, white);
        s.fillTriangles(std::vector<Vertex>{{0, 0}, {10, nan}, {0, 1}}, TriangleMode::list, white);
    });
    for (int x = 0; x < 10; ++x)
        EXPECT_EQ(alpha(x, 0), x < 3 || (x >= 6 && x < 8) ? 255 : 0) << x;
}

TEST_P(DrawingSurfaceTest, TooFewPointsDrawNothing) {
    draw({10, 10}, 1, [](DrawingSurface& s) {
        s.drawLineStrip(std::vector<Vertex>{}, {3}, white);
        s.drawLineStrip(std::vector<Vertex>{{5, 5}}, {3}, white);
        s.drawLineStrip(std::vector<Vertex>{{5, 5}, {5, 5}}, {3}, white);
        s.fillTriangles(std::vector<Vertex>{{0, 0}, {10, 10}}, TriangleMode::strip, white);
        s.fillTriangles(std::vector<Vertex>{{0, 0}, {5, 5}, {10, 10}}, TriangleMode::list, white);
    });
    EXPECT_EQ(sumOfAlpha(), 0);
}

} // namespace
} // namespace QVM_NAMESPACE
