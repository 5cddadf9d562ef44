#include "toolkit/ShadowBlur.h"

#include "toolkit/Conversions.h"
#include "toolkit/Pictures.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

// A white square of 20 in the middle of 60.
juce::Image look() {
    juce::Image image = makeCanvas(60, 60);
    juce::Graphics g(image);
    g.setColour(juce::Colours::white);
    g.fillRect(20, 20, 20, 20);
    return image;
}

TEST(ShadowBlur, WithoutARadiusItIsTheMovedLookInOneColour) {
    const Image shadow = fromToolkit(shadowOf(look(), 0, {3, 5}, {1, 0, 0, 0.5f}));
    EXPECT_TRUE(agrees(shadow, [](int x, int y) {
        return x >= 23 && x < 43 && y >= 25 && y < 45 ? Color{1, 0, 0, 0.5f} : Color::clear();
    }));
}

TEST(ShadowBlur, KeepsItsAmountAndEndsTwoRadiiOut) {
    for (const double radius : {1.5, 3.0, 6.0, 9.0}) {
        const Image shadow = fromToolkit(shadowOf(look(), radius, {}, Color::white(0)));
        EXPECT_NEAR(coverage(shadow), 400, 4) << radius;
        for (int x = 0; x < 60; ++x) {
            const bool mayBeTouched = x >= 20 - 2 * radius - 1 && x < 40 + 2 * radius + 1;
            if (mayBeTouched) continue;
            EXPECT_EQ(pixelAt(shadow, x, 30), 0u) << radius << ' ' << x;
        }
        EXPECT_GT(channel(pixelAt(shadow, 19, 30), 24), 60) << radius;
        EXPECT_GT(channel(pixelAt(shadow, 20 - static_cast<int>(radius), 30), 24), 10) << radius;
    }
}

TEST(ShadowBlur, IsTheSameOnAllSides) {
    const Image shadow = fromToolkit(shadowOf(look(), 4, {}, Color::white(0)));
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(pixelAt(shadow, i, 30), pixelAt(shadow, 59 - i, 30));
        EXPECT_EQ(pixelAt(shadow, i, 30), pixelAt(shadow, 30, i));
    }
}

} // namespace
} // namespace QVM_NAMESPACE
