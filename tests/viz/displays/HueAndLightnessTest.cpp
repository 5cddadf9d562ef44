#include "viz/displays/HueAndLightness.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(HueAndLightness, EveryColourComesBack) {
    for (float r = 0; r <= 1; r += 0.25f) {
        for (float g = 0; g <= 1; g += 0.25f) {
            for (float b = 0; b <= 1; b += 0.25f) {
                const Color back = HueAndLightness::of(r, g, b).color(0.5f);
                EXPECT_NEAR(back.r, r, 1e-5) << r << g << b;
                EXPECT_NEAR(back.g, g, 1e-5) << r << g << b;
                EXPECT_NEAR(back.b, b, 1e-5) << r << g << b;
                EXPECT_EQ(back.a, 0.5f);
            }
        }
    }
}

TEST(HueAndLightness, HalfATurnIsTheOppositeHueAndAWholeOneTheSame) {
    HueAndLightness red = HueAndLightness::of(1, 0, 0);
    red.hue += 0.5f;
    EXPECT_NEAR(red.color(1).r, 0, 1e-5);
    EXPECT_NEAR(red.color(1).g, 1, 1e-5);
    red.hue += 2.5f;
    EXPECT_NEAR(red.color(1).r, 1, 1e-5);
}

} // namespace
} // namespace QVM_NAMESPACE
