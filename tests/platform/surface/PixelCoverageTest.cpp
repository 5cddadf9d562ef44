#include "platform/surface/PixelCoverage.h"

#include "platform/surface/PackedColor.h"
#include "platform/surface/PolygonCoverage.h"

#include <gtest/gtest.h>

#include <random>

namespace QVM_NAMESPACE {
namespace {

// By counting 128 x 128 samples a pixel.
double sampledCoverage(const std::array<Vertex, 3>& c, int x, int y) {
    const auto side = [](Vertex a, Vertex b, double px, double py) {
        return (double(b.x) - a.x) * (py - a.y) - (double(b.y) - a.y) * (px - a.x);
    };
    int inside = 0;
    constexpr int steps = 128;
    for (int i = 0; i < steps * steps; ++i) {
        const double px = x + (i % steps + 0.5) / steps, py = y + (i / steps + 0.5) / steps;
        const double s0 = side(c[0], c[1], px, py), s1 = side(c[1], c[2], px, py), s2 = side(c[2], c[0], px, py);
        inside += (s0 >= 0 && s1 >= 0 && s2 >= 0) || (s0 <= 0 && s1 <= 0 && s2 <= 0);
    }
    return double(inside) / (steps * steps);
}

float triangleCoverage(const std::array<Vertex, 3>& corners, float x, float y) {
    PolygonCoverage coverage(corners);
    coverage.setRow(y);
    return coverage.at(x);
}

TEST(PixelCoverageTest, TriangleCoverageIsTheAreaWithinThePixel) {
    std::mt19937 random(7);
    for (int round = 0; round < 60; ++round) {
        // Far corners too: near level edges that cross many pixels are the hard case.
        const float reach = round % 3 == 0 ? 300.0f : 6.0f;
        std::uniform_real_distribution<float> place(-reach, reach);
        const std::array<Vertex, 3> c{
            {{place(random), place(random)}, {place(random), place(random)}, {place(random), place(random)}}};
        for (int y = -2; y < 2; ++y)
            for (int x = -2; x < 2; ++x)
                EXPECT_NEAR(triangleCoverage(c, static_cast<float>(x), static_cast<float>(y)), sampledCoverage(c, x, y),
                            0.012);
    }
}

TEST(PixelCoverageTest, EdgesOnPixelBordersCountForOneSideOnly) {
    const std::array<Vertex, 3> c{{{0, 0}, {4, 0}, {0, 4}}};
    EXPECT_EQ(triangleCoverage(c, 0, 0), 1);
    EXPECT_EQ(triangleCoverage(c, -1, 0), 0);
    EXPECT_EQ(triangleCoverage(c, 0, -1), 0);
    EXPECT_EQ(triangleCoverage(c, 1, 2), 0.5f);
    EXPECT_EQ(triangleCoverage(c, 3, 3), 0);
}

TEST(PixelCoverageTest, NeighboursAreJoinedWithoutTheEdgeBetweenThem) {
    const std::array<Vertex, 3> lower{{{0.5f, 0}, {4, 0}, {0.5f, 3}}}, upper{{{4, 0}, {0.5f, 3}, {4, 3}}};
    for (const auto& [first, second] : {std::pair{lower, upper}, {upper, lower}}) {
        PolygonCoverage both(first);
        ASSERT_TRUE(both.join(second));
        for (int y = 0; y < 3; ++y) {
            both.setRow(static_cast<float>(y));
            for (int x = 0; x < 4; ++x)
                EXPECT_FLOAT_EQ(both.at(static_cast<float>(x)), x == 0 ? 0.5f : 1.0f);
            EXPECT_EQ(both.nextChange(1), 4);
        }
        EXPECT_FALSE(both.join(second)) << "two are all that it holds";
    }
}

TEST(PixelCoverageTest, TrianglesThatLieOnOneAnotherOrApartAreNotJoined) {
    const std::array<Vertex, 3> one{{{0, 0}, {4, 0}, {0, 3}}}, over{{{0, 0}, {4, 0}, {4, 3}}},
        apart{{{5, 0}, {9, 0}, {5, 3}}};
    EXPECT_FALSE(PolygonCoverage(one).join(over));
    EXPECT_FALSE(PolygonCoverage(one).join(apart));
    EXPECT_FALSE(PolygonCoverage(one).join(one));
}

TEST(PixelCoverageTest, CornerSharesAddUpToOne) {
    const std::array<Vertex, 3> c{{{0, 0}, {4, 0}, {0, 4}}};
    const auto at = cornerShares(c, 1, 1);
    EXPECT_FLOAT_EQ(at[0], 0.5f);
    EXPECT_FLOAT_EQ(at[1], 0.25f);
    const auto outside = cornerShares(c, 6, -1);
    EXPECT_FLOAT_EQ(outside[0] + outside[1] + outside[2], 1);
    EXPECT_GE(std::min({outside[0], outside[1], outside[2]}), 0);
}

TEST(PackedColorTest, SumsAndBlendsOfEveryPartAreRoundedAndNeverWrap) {
    for (std::uint32_t a = 0; a < 256; a += 5) {
        for (std::uint32_t b = 0; b < 256; b += 3) {
            const std::uint32_t over = a << 24 | a << 8, under = b << 24 | b << 16 | b;
            EXPECT_EQ(addedParts(over, under) >> 24, std::min(a + b, 255u));
            EXPECT_EQ(addedParts(over, under) & 0xFFFF, a << 8 | b);
            const auto kept = static_cast<std::uint32_t>(std::lround(b * (255.0 - a) / 255));
            EXPECT_EQ(blendedOver(over, under), (a + kept) << 24 | kept << 16 | a << 8 | kept);
            EXPECT_EQ(greaterParts(over, under), std::max(a, b) << 24 | b << 16 | a << 8 | b);
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
