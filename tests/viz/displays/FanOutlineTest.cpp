#include "viz/displays/FanOutline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace QVM_NAMESPACE {
namespace {

float turn(Vertex a, Vertex b, Vertex c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}
bool isInside(Vertex a, Vertex b, Vertex c, Vertex p) {
    const float s = turn(a, b, p), t = turn(b, c, p), u = turn(c, a, p);
    return (s > 0 && t > 0 && u > 0) || (s < 0 && t < 0 && u < 0);
}
int coverCount(const std::vector<Vertex>& triangles, Vertex p) {
    int count = 0;
    for (std::size_t i = 0; i < triangles.size(); i += 3)
        count += isInside(triangles[i], triangles[i + 1], triangles[i + 2], p);
    return count;
}
float areaOf(const std::vector<Vertex>& triangles) {
    float area = 0;
    for (std::size_t i = 0; i < triangles.size(); i += 3)
        area += std::abs(turn(triangles[i], triangles[i + 1], triangles[i + 2])) / 2;
    return area;
}

TEST(FanOutline, OneTriangleStaysWhatItIs) {
    FanOutline fan;
    fan.begin({1, 1});
    fan.add({3, 1}, {1, 4});
    EXPECT_NEAR(areaOf(fan.triangles()), 3, 0.03);
    EXPECT_EQ(coverCount(fan.triangles(), {1.5f, 1.6f}), 1);
    EXPECT_EQ(coverCount(fan.triangles(), {2.5f, 3}), 0);
    EXPECT_EQ(coverCount(fan.triangles(), {0.5f, 0.5f}), 0);
}

TEST(FanOutline, TheOrderOfTheCornersDoesNotMatter) {
    FanOutline fan;
    fan.begin({});
    fan.add({-1, -2}, {-1, 2}); // across the half turn
    const float area = areaOf(fan.triangles());
    fan.begin({});
    fan.add({-1, 2}, {-1, -2});
    EXPECT_EQ(areaOf(fan.triangles()), area);
    EXPECT_NEAR(area, 2, 0.02);
}

TEST(FanOutline, CoversWhatTheTrianglesCoverAndEachPlaceOnce) {
    std::mt19937 random(3);
    std::uniform_real_distribution<float> place(-1, 1);
    for (int round = 0; round < 5; ++round) {
        std::vector<Vertex> points(12);
        for (Vertex& point : points)
            point = {place(random), place(random)};
        FanOutline fan;
        fan.begin(points[0]);
        for (std::size_t i = 2; i < points.size(); ++i)
            fan.add(points[i - 1], points[i]);
        const std::vector<Vertex>& triangles = fan.triangles();
        int wrong = 0;
        for (int i = 0; i < 2000; ++i) {
            const Vertex p = {place(random), place(random)};
            bool isCovered = false;
            for (std::size_t k = 2; k < points.size(); ++k)
                isCovered = isCovered || isInside(points[0], points[k - 1], points[k], p);
            const int count = coverCount(triangles, p);
            ASSERT_LE(count, 1) << "triangles overlap";
            wrong += (count == 1) != isCovered;
        }
        EXPECT_LT(wrong, 40) << "of 2000 places"; // those within a ray's width of an edge
    }
}

TEST(FanOutline, PointsOnALineThroughTheHubHaveNoArea) {
    FanOutline fan;
    fan.begin({0.1f, 0.3f});
    for (float y = -1; y < 1; y += 0.01f)
        fan.add({0.1f, y}, {0.1f, -y});
    EXPECT_TRUE(fan.triangles().empty());
    fan.begin({});
    EXPECT_TRUE(fan.triangles().empty());
}

} // namespace
} // namespace QVM_NAMESPACE
