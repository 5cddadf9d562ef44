#include "editor/surface/EdgeFades.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr Rect area = {0, 0, 100, 200};

TEST(EdgeFades, GoFromTheGroundAtTheEdgeToNothing) {
    Layer parent;
    EdgeFades fades(parent, area);
    fades.setGround(Color{1, 0.5f, 0, 1});
    EXPECT_EQ(fades.top()->frame().minY(), 0);
    EXPECT_EQ(fades.bottom()->frame().maxY(), 200);
    const auto edgeAndInside = [](const Layer& fade, bool edgeIsFirst) {
        const auto& pixels = fade.contents()->pixels;
        return edgeIsFirst ? std::pair(pixels.front(), pixels.back()) : std::pair(pixels.back(), pixels.front());
    };
    for (const auto& [edge, inside] : {edgeAndInside(*fades.top(), true), edgeAndInside(*fades.bottom(), false)}) {
        EXPECT_EQ(edge >> 24, 0xFFu);
        EXPECT_EQ(edge >> 16 & 0xFFu, 0xFFu);
        EXPECT_NEAR(static_cast<double>(edge >> 8 & 0xFFu), 127.5, 1);
        EXPECT_LE(inside >> 24, 1u);
    }
}

TEST(EdgeFades, ComeWithTheFirstPointsThatAreHidden) {
    Layer parent;
    EdgeFades fades(parent, area);
    EXPECT_EQ(fades.top()->opacity(), 0);
    fades.update(9, 0);
    EXPECT_EQ(fades.top()->opacity(), 0.5);
    EXPECT_EQ(fades.bottom()->opacity(), 0);
    fades.update(900, 900);
    EXPECT_EQ(fades.top()->opacity(), 1);
    EXPECT_EQ(fades.bottom()->opacity(), 1);
}

TEST(EdgeFades, ScrollingDrawsThemNotAnew) {
    Layer parent;
    EdgeFades fades(parent, area);
    fades.setGround(Color::white(1));
    const auto before = fades.top()->look().version();
    fades.update(100, 100);
    EXPECT_EQ(fades.top()->look().version(), before);
}

} // namespace
} // namespace QVM_NAMESPACE
