#include "viz/displays/QVMHistogram.h"

#include "platform/surface/CpuDrawingSurface.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace QVM_NAMESPACE {
namespace {

class QVMHistogramTest : public testing::Test {
protected:
    void SetUp() override {
        histogram.init(48000, 512);
        values.fill(-30);
    }
    Redraw show() { return histogram.prepareForDrawing(1.0f / 60, values.data()); }

    QVMHistogram histogram;
    std::array<float, QVMHistogram::kBins> values{};
};

TEST_F(QVMHistogramTest, BarsStandSideBySideFromEndToEnd) {
    ASSERT_EQ(histogram.xs().size(), 30u);
    EXPECT_FLOAT_EQ(histogram.xs()[0], 2.0f / 30 - 1);
    EXPECT_FLOAT_EQ(histogram.xs()[14], 0);
    EXPECT_FLOAT_EQ(histogram.xs()[29], 1);
    for (const float height : histogram.heights())
        EXPECT_EQ(height, -1);
}

TEST_F(QVMHistogramTest, ValuesBelowMinus60SitAtTheBottomAndAboveZeroAtTheTop) {
    values[0] = -60, values[1] = -61, values[2] = -INFINITY, values[3] = NAN;
    values[4] = 0, values[5] = 1, values[6] = INFINITY;
    show();
    for (const std::size_t i : {0, 1, 2, 3})
        EXPECT_FLOAT_EQ(histogram.heights()[i], -1) << i;
    for (const std::size_t i : {4, 5, 6})
        EXPECT_FLOAT_EQ(histogram.heights()[i], 1) << i;
    EXPECT_NEAR(histogram.heights()[7], 0, 1e-6);
}

TEST_F(QVMHistogramTest, AsksToBeDrawnOnlyWhenAValueHasChanged) {
    EXPECT_EQ(show(), Redraw::yes);
    EXPECT_EQ(show(), Redraw::no);
    values[29] = -29;
    EXPECT_EQ(show(), Redraw::yes);
    values[29] = -70;
    show();
    values[29] = -80;
    EXPECT_EQ(show(), Redraw::no) << "both are below the scale";
}

// Whether column `x` of a picture 300 by 60 is filled from row `top` to the bottom, and empty above.
bool isFilledFrom(const Image& picture, int x, int top) {
    for (int y = 0; y < 60; ++y) {
        const bool isLit = picture.pixels[static_cast<std::size_t>(y * 300 + x)] >> 24 > 50;
        if (isLit != (y >= top)) return false;
    }
    return true;
}

TEST_F(QVMHistogramTest, ABarReachesItsLevelAndLeavesAGap) {
    values.fill(-100);
    values[3] = -15; // three quarters
    show();
    CpuDrawingSurface surface;
    surface.begin({300, 60}, 1);
    histogram.glDraw(surface);
    Image picture;
    ASSERT_TRUE(surface.finish(picture));
    for (int x = 0; x < 300; ++x)
        EXPECT_TRUE(isFilledFrom(picture, x, x >= 30 && x < 38 ? 15 : 60)) << x;
    EXPECT_FALSE(isFilledFrom(picture, 30, 14));
    EXPECT_FALSE(isFilledFrom(picture, 30, 60));
}

TEST_F(QVMHistogramTest, TheScaleShortensTheBars) {
    values.fill(0);
    show();
    histogram.scale = 0.5f;
    CpuDrawingSurface surface;
    surface.begin({300, 60}, 1);
    histogram.glDraw(surface);
    Image picture;
    ASSERT_TRUE(surface.finish(picture));
    EXPECT_TRUE(isFilledFrom(picture, 4, 30));
}

} // namespace
} // namespace QVM_NAMESPACE
