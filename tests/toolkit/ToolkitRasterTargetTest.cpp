#include "toolkit/ToolkitRasterTarget.h"

#include "toolkit/Conversions.h"
#include "toolkit/Pictures.h"
#include "toolkit/ToolkitRasterBackend.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

const Color red{1, 0, 0, 1}, blue{0, 0, 1, 1};

class ToolkitRasterTargetTest : public ::testing::Test {
protected:
    static ToolkitRaster square(int size, Color color) {
        juce::Image image = makeCanvas(size, size);
        juce::Graphics(image).fillAll(toToolkit(color));
        return ToolkitRaster(image);
    }
    Image picture() { return fromToolkit(canvas); }
    static bool in(int x, int y, int left, int top, int right, int bottom) {
        return x >= left && x < right && y >= top && y < bottom;
    }
    juce::Image canvas = makeCanvas(20, 20);
    juce::Graphics g{canvas};
    ToolkitRasterTarget target{g};
};

TEST_F(ToolkitRasterTargetTest, MovedRasterIsBlendedPixelByPixel) {
    target.draw(square(6, red), AffineTransform::translation(3, 4), 1);
    EXPECT_TRUE(agrees(
        picture(), [](int x, int y) { return in(x, y, 3, 4, 9, 10) ? red : Color::clear(); }, 0));
}

TEST_F(ToolkitRasterTargetTest, OpacityIsTheDrawingsOwn) {
    target.fill({0, 0, 20, 20}, blue.withAlpha(0.25f)); // leaves a colour with alpha behind
    g.fillAll(juce::Colours::black);
    target.draw(square(6, red), AffineTransform::translation(0, 0), 1);
    target.draw(square(6, red), AffineTransform::translation(10, 0), 0.5);
    EXPECT_TRUE(isNear(pixelAt(picture(), 2, 2), red, 0));
    EXPECT_TRUE(isNear(pixelAt(picture(), 12, 2), {0.5f, 0, 0, 1}, 2));
}

TEST_F(ToolkitRasterTargetTest, FillIsExactOnWholePixels) {
    target.fill({2, 3, 5, 6}, red);
    EXPECT_TRUE(agrees(
        picture(), [](int x, int y) { return in(x, y, 2, 3, 7, 9) ? red : Color::clear(); }, 0));
}

TEST_F(ToolkitRasterTargetTest, ClipsNestAndEnd) {
    target.pushClip({2, 2, 10, 10}, 0, {});
    target.pushClip({6, 0, 20, 20}, 0, {});
    target.fill({0, 0, 20, 20}, red);
    target.popClip();
    target.popClip();
    target.fill({0, 18, 20, 2}, blue);
    EXPECT_TRUE(agrees(
        picture(),
        [](int x, int y) {
            if (y >= 18) return blue;
            return in(x, y, 6, 2, 12, 12) ? red : Color::clear();
        },
        0));
}

TEST_F(ToolkitRasterTargetTest, RoundClipLeavesTheCornersOut) {
    target.pushClip({0, 0, 20, 20}, 10, {});
    target.fill({0, 0, 20, 20}, red);
    target.popClip();
    EXPECT_EQ(pixelAt(picture(), 0, 0), 0u);
    EXPECT_NEAR(coverage(picture()), 3.14159 * 100, 3);
}

TEST_F(ToolkitRasterTargetTest, GroupIsBlendedAsOne) {
    g.fillAll(juce::Colours::black);
    target.pushGroup({0, 0, 20, 20}, 0.5);
    target.draw(square(10, red), AffineTransform::translation(0, 0), 1);
    target.draw(square(10, red), AffineTransform::translation(5, 0), 1);
    target.popGroup();
    EXPECT_TRUE(agrees(
        picture(),
        [](int x, int y) {
            return in(x, y, 0, 0, 15, 10) ? Color{0.5f, 0, 0, 1} : Color::white(0);
        },
        2)); // no darker where the two overlap
}

TEST_F(ToolkitRasterTargetTest, ScaledRasterCoversItsArea) {
    target.draw(square(5, red), AffineTransform::scale(2, 2).then(AffineTransform::translation(4, 4)), 1);
    EXPECT_TRUE(isNear(pixelAt(picture(), 9, 9), red, 1));
    EXPECT_EQ(pixelAt(picture(), 1, 1), 0u);
    EXPECT_NEAR(coverage(picture()), 100, 25);
}

} // namespace
} // namespace QVM_NAMESPACE
