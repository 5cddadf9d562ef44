// Triangles: parts of pixels, seams and colours.
#include "platform/surface/DrawingSurfaceFixture.h"

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using DrawnTriangles = DrawingSurfaceFixture;
INSTANTIATE_TEST_SUITE_P(Backends, DrawnTriangles, testing::ValuesIn(backends), nameOfBackend);

TEST_P(DrawnTriangles, PartsOfPixelsCountByArea) {
    draw({4, 3}, 1,
         [](DrawingSurface& s) { s.fillTriangles(rectangle(0.5f, 1.25f, 2.75f, 2), TriangleMode::strip, white); });
    const double columns[] = {0.5, 1, 0.75, 0};
    for (int x = 0; x < 4; ++x) {
        EXPECT_EQ(alpha(x, 0), 0);
        EXPECT_NEAR(alpha(x, 1), 255 * 0.75 * columns[x], 1.5);
        EXPECT_EQ(alpha(x, 2), 0);
    }
}

TEST_P(DrawnTriangles, SharedEdgesLeaveNoSeam) {
    draw({40, 40}, 1, [](DrawingSurface& s) {
        std::vector<Vertex> strip;
        for (int i = 0; i <= 20; ++i) {
            const auto x = static_cast<float>(2 * i);
            strip.insert(strip.end(), {{x + 0.9f * std::sin(x), 0}, {x + 0.9f * std::cos(3 * x), 40}});
        }
        strip.front().x = -10, strip[1].x = -10, strip.back().x = 50, strip[strip.size() - 2].x = 50;
        s.fillTriangles(strip, TriangleMode::strip, Color{1, 1, 1, 0.5f});
    });
    for (int y = 0; y < 40; ++y)
        for (int x = 8; x < 32; ++x)
            EXPECT_NEAR(alpha(x, y), 128, 2) << x << ' ' << y;
}

TEST_P(DrawnTriangles, ColoursOfATriangleBlendBetweenItsCorners) {
    draw({16, 16}, 1, [](DrawingSurface& s) {
        s.fillTriangles(rectangle(0, 0, 16, 16), TriangleMode::strip,
                        std::vector<Color>{{0, 0, 0, 1}, {1, 0, 0, 1}, {0, 0, 0, 1}, {1, 0, 0, 1}});
    });
    for (int x = 0; x < 16; ++x)
        for (int y = 0; y < 16; ++y)
            EXPECT_NEAR(static_cast<int>(at(x, y) >> 16 & 0xFF), 255 * (x + 0.5) / 16, 4) << x << ' ' << y;
}

} // namespace
} // namespace QVM_NAMESPACE
