// What both back ends promise, with each pixel computed here, and that they draw the same picture.
#include "platform/surface/DrawingSurface.h"

#include "platform/surface/CpuDrawingSurface.h"
#include "platform/surface/GlDrawingSurface.h"
#include "platform/surface/Pictures.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace QVM_NAMESPACE {
namespace {

enum class Backend { cpu, gl };

// Race reports from inside a software renderer's own threads say nothing about this code.
#ifdef __SANITIZE_THREAD__
constexpr Backend backends[] = {Backend::cpu};
#else
constexpr Backend backends[] = {Backend::cpu, Backend::gl};
#endif

std::unique_ptr<DrawingSurface> make(Backend backend) {
    if (backend == Backend::cpu) return std::make_unique<CpuDrawingSurface>();
    std::string problem;
    std::unique_ptr<DrawingSurface> surface = GlDrawingSurface::make(GlRenderer::any, problem);
    EXPECT_NE(surface, nullptr) << problem;
    return surface;
}

bool isClearOutside(const Image& image, const Rect& painted) {
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            if (image.pixels[static_cast<std::size_t>(y * image.width + x)] != 0 &&
                !painted.contains(Point{double(x), double(y)}))
                return false;
    return true;
}

Image picture(DrawingSurface& surface, Size size, double scale, const std::function<void(DrawingSurface&)>& draw) {
    surface.begin(size, scale);
    draw(surface);
    Image image;
    EXPECT_TRUE(surface.finish(image));
    EXPECT_TRUE(isClearOutside(image, surface.painted()));
    return image;
}

struct DrawingSurfaceTest : testing::TestWithParam<Backend> {
    std::unique_ptr<DrawingSurface> surface = make(GetParam());
    Image image;

    void draw(Size size, double scale, const std::function<void(DrawingSurface&)>& draw) {
        ASSERT_NE(surface, nullptr);
        image = picture(*surface, size, scale, draw);
    }
    std::uint32_t at(int x, int y) const { return image.pixels.at(static_cast<std::size_t>(y * image.width + x)); }
    int alpha(int x, int y) const { return static_cast<int>(at(x, y) >> 24); }
    long long sumOfAlpha() const {
        long long sum = 0;
        for (const std::uint32_t p : image.pixels)
            sum += p >> 24;
        return sum;
    }
};
INSTANTIATE_TEST_SUITE_P(Backends, DrawingSurfaceTest, testing::ValuesIn(backends),
                         [](const auto& test) { return test.param == Backend::cpu ? "cpu" : "gl"; });

const Color white{1, 1, 1, 1};
std::vector<Vertex> rectangle(float left, float bottom, float right, float top) {
    return {{left, bottom}, {right, bottom}, {left, top}, {right, top}};
}

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

TEST_P(DrawingSurfaceTest, PartsOfPixelsCountByArea) {
    draw({4, 3}, 1,
         [](DrawingSurface& s) { s.fillTriangles(rectangle(0.5f, 1.25f, 2.75f, 2), TriangleMode::strip, white); });
    const double columns[] = {0.5, 1, 0.75, 0};
    for (int x = 0; x < 4; ++x) {
        EXPECT_EQ(alpha(x, 0), 0);
        EXPECT_NEAR(alpha(x, 1), 255 * 0.75 * columns[x], 1.5);
        EXPECT_EQ(alpha(x, 2), 0);
    }
}

TEST_P(DrawingSurfaceTest, SharedEdgesLeaveNoSeam) {
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

TEST_P(DrawingSurfaceTest, LineWidthIsInPoints) {
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

TEST_P(DrawingSurfaceTest, ThinLineIsFaintNotLost) {
    draw({9, 9}, 1, [](DrawingSurface& s) {
        s.drawLineStrip(std::vector<Vertex>{{0, 4.5f}, {9, 4.5f}}, {0.25f}, white);
    });
    EXPECT_NEAR(alpha(4, 4), 64, 1);
    EXPECT_EQ(alpha(4, 3), 0);
}

TEST_P(DrawingSurfaceTest, LineLooksTheSameInEveryDirection) {
    for (int degrees = 0; degrees < 180; degrees += 15) {
        const float turn = static_cast<float>(degrees) * std::numbers::pi_v<float> / 180;
        const float dx = 15 * std::cos(turn), dy = 15 * std::sin(turn);
        draw({40, 40}, 1, [&](DrawingSurface& s) {
            s.drawLineStrip(std::vector<Vertex>{{20 - dx, 20 - dy}, {20 + dx, 20 + dy}}, {3}, white);
        });
        EXPECT_NEAR(static_cast<double>(sumOfAlpha()) / 255, 90, 2) << degrees;
    }
}

TEST_P(DrawingSurfaceTest, TranslucentLineIsNotDarkerWhereItTurnsOrCrossesItself) {
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

TEST_P(DrawingSurfaceTest, LineEndsAreCutOff) {
    draw({10, 5}, 1, [](DrawingSurface& s) { s.drawLineStrip(std::vector<Vertex>{{2, 2.5f}, {7, 2.5f}}, {3}, white); });
    for (int x = 0; x < 10; ++x)
        for (int y = 0; y < 5; ++y)
            EXPECT_EQ(alpha(x, y), x >= 2 && x < 7 && y >= 1 && y < 4 ? 255 : 0) << x << ' ' << y;
}

TEST_P(DrawingSurfaceTest, DashesAreInPointsFromTheStart) {
    for (const int scale : {1, 2}) {
        draw({20, 3}, scale, [](DrawingSurface& s) {
            s.drawLineStrip(std::vector<Vertex>{{0, 1.5f}, {20, 1.5f}}, {1, 4, 2}, white);
        });
        for (int x = 0; x < 20 * scale; ++x)
            EXPECT_EQ(alpha(x, 3 * scale / 2), x / scale % 6 < 4 ? 255 : 0) << x << " at " << scale;
    }
}

TEST_P(DrawingSurfaceTest, ColoursOfALineBlendBetweenItsPoints) {
    draw({11, 1}, 1, [](DrawingSurface& s) {
        s.drawLineStrip(std::vector<Vertex>{{0, 0.5f}, {11, 0.5f}}, {1},
                        std::vector<Color>{{0, 0, 0, 1}, {1, 0, 0, 1}});
    });
    for (int x = 0; x < 11; ++x)
        EXPECT_NEAR(static_cast<int>(at(x, 0) >> 16 & 0xFF), 255 * (x + 0.5) / 11, 1.5) << x;
}

TEST_P(DrawingSurfaceTest, ColoursOfATriangleBlendBetweenItsCorners) {
    draw({16, 16}, 1, [](DrawingSurface& s) {
        s.fillTriangles(rectangle(0, 0, 16, 16), TriangleMode::strip,
                        std::vector<Color>{{0, 0, 0, 1}, {1, 0, 0, 1}, {0, 0, 0, 1}, {1, 0, 0, 1}});
    });
    for (int x = 0; x < 16; ++x)
        for (int y = 0; y < 16; ++y)
            EXPECT_NEAR(static_cast<int>(at(x, y) >> 16 & 0xFF), 255 * (x + 0.5) / 16, 4) << x << ' ' << y;
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

#ifndef __SANITIZE_THREAD__
// Parts of 255: each side rounds what it collects and what it blends.
constexpr int kSamePictureBound = 2;

TEST(DrawingSurfacesTest, BothDrawTheSamePictureWithinTheBound) {
    const auto cpu = make(Backend::cpu), gl = make(Backend::gl);
    ASSERT_NE(gl, nullptr);
    for (const Drawing& drawing : drawings()) {
        for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            const Image a = picture(*cpu, {48, 36}, scale, drawing.draw),
                        b = picture(*gl, {48, 36}, scale, drawing.draw);
            EXPECT_LE(greatestDifference(a, b), kSamePictureBound) << drawing.name << " at " << scale;
        }
    }
}

TEST(DrawingSurfacesTest, ComparisonFailsForABlankAndForAShiftedPicture) {
    const auto gl = make(Backend::gl);
    ASSERT_NE(gl, nullptr);
    for (const Drawing& drawing : drawings()) {
        const Image image = picture(*gl, {48, 36}, 1, drawing.draw), blank = picture(*gl, {48, 36}, 1, [](auto&) {});
        EXPECT_GT(greatestDifference(image, blank), 10 * kSamePictureBound) << drawing.name;
        EXPECT_GT(greatestDifference(image, shiftedRight(image)), 10 * kSamePictureBound) << drawing.name;
    }
}
#endif

} // namespace
} // namespace QVM_NAMESPACE
