// Lines: their width, ends, dashes, turns and colours.
#include "platform/surface/DrawingSurfaceFixture.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using DrawnLines = DrawingSurfaceFixture;
INSTANTIATE_TEST_SUITE_P(Backends, DrawnLines, testing::ValuesIn(backends), nameOfBackend);

TEST_P(DrawnLines, LineWidthIsInPoints) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        draw({20, 20}, scale, [](DrawingSurface& s) {
            s.drawLineStrip(std::vector<Vertex>{{0, 10.3f}, {20, 10.3f}}, {2}, white);
        });
        long long column = 0;
        for (int y = 0; y < image.height; ++y)
            column += alpha(image.width / 2, y);
        EXPECT_NEAR(static_cast<double>(column) / 255, 2 * scale, 0.02) << scale;
    }
}

TEST_P(DrawnLines, ThinLineIsFaintNotLost) {
    draw({9, 9}, 1, [](DrawingSurface& s) {
        s.drawLineStrip(std::vector<Vertex>{{0, 4.5f}, {9, 4.5f}}, {0.25f}, white);
    });
    EXPECT_NEAR(alpha(4, 4), 64, 1);
    EXPECT_EQ(alpha(4, 3), 0);
}

TEST_P(DrawnLines, LineLooksTheSameInEveryDirection) {
    for (int degrees = 0; degrees < 180; degrees += 15) {
        const float turn = static_cast<float>(degrees) * std::numbers::pi_v<float> / 180;
        const float dx = 15 * std::cos(turn), dy = 15 * std::sin(turn);
        draw({40, 40}, 1, [&](DrawingSurface& s) {
            s.drawLineStrip(std::vector<Vertex>{{20 - dx, 20 - dy}, {20 + dx, 20 + dy}}, {3}, white);
        });
        EXPECT_NEAR(static_cast<double>(sumOfAlpha()) / 255, 90, 2) << degrees;
    }
}

TEST_P(DrawnLines, TranslucentLineIsNotDarkerWhereItTurnsOrCrossesItself) {
    draw({40, 40}, 1, [](DrawingSurface& s) {
        s.drawLineStrip(std::vector<Vertex>{{5, 5}, {20, 35}, {21, 35}, {35, 5}, {5, 20}, {35, 22}}, {6},
                        Color{1, 1, 1, 0.5f});
    });
    int most = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x)
            most = std::max(most, alpha(x, y));
    EXPECT_EQ(most, 128);
}

TEST_P(DrawnLines, LineEndsAreCutOff) {
    draw({10, 5}, 1, [](DrawingSurface& s) { s.drawLineStrip(std::vector<Vertex>{{2, 2.5f}, {7, 2.5f}}, {3}, white); });
    for (int x = 0; x < 10; ++x)
        for (int y = 0; y < 5; ++y)
            EXPECT_EQ(alpha(x, y), x >= 2 && x < 7 && y >= 1 && y < 4 ? 255 : 0) << x << ' ' << y;
}

TEST_P(DrawnLines, DashesAreInPointsFromTheStart) {
    for (const int scale : {1, 2}) {
        draw({20, 3}, scale, [](DrawingSurface& s) {
            s.drawLineStrip(std::vector<Vertex>{{0, 1.5f}, {20, 1.5f}}, {1, 4, 2}, white);
        });
        for (int x = 0; x < 20 * scale; ++x)
            EXPECT_EQ(alpha(x, 3 * scale / 2), x / scale % 6 < 4 ? 255 : 0) << x << " at " << scale;
    }
}

TEST_P(DrawnLines, ColoursOfALineBlendBetweenItsPoints) {
    draw({11, 1}, 1, [](DrawingSurface& s) {
        s.drawLineStrip(std::vector<Vertex>{{0, 0.5f}, {11, 0.5f}}, {1},
                        std::vector<Color>{{0, 0, 0, 1}, {1, 0, 0, 1}});
    });
    for (int x = 0; x < 11; ++x)
        EXPECT_NEAR(static_cast<int>(at(x, 0) >> 16 & 0xFF), 255 * (x + 0.5) / 11, 1.5) << x;
}

} // namespace
} // namespace QVM_NAMESPACE
