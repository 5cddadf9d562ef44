#include "viz/QVMFreqResp.h"

#include "SketchFixture.h"
#include "platform/CpuDrawingSurface.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::FloatNear;

QVMFreqResp makeDisplay(float width, float scale, int curves = 2) {
    QVMFreqResp display;
    display.init(curveCanvas(width, 62, scale), 0.5f, {4, 24000}, {-7.5f, 7.5f}, curves);
    return display;
}

std::vector<float> kernelAt(float scale) {
    const QVMFreqResp display = makeDisplay(54, scale);
    return {display.kernel().begin(), display.kernel().end()};
}

TEST(QVMFreqResp, HasOnePointForEachDevicePixelAcross) {
    EXPECT_EQ(makeDisplay(54, 1).numPoints(), 54);
    EXPECT_EQ(makeDisplay(54, 2).numPoints(), 108);
    EXPECT_EQ(makeDisplay(54, 1.25f).numPoints(), 67);
}

TEST(QVMFreqResp, FrequenciesAndPositionsRunEvenlyFromEndToEnd) {
    const QVMFreqResp display = makeDisplay(54, 2);
    EXPECT_FLOAT_EQ(display.freqs().front(), 4);
    EXPECT_FLOAT_EQ(display.freqs().back(), 24000);
    EXPECT_FLOAT_EQ(display.xs().front(), -1);
    EXPECT_FLOAT_EQ(display.xs().back(), 1);
    for (std::size_t i = 2; i < display.freqs().size(); ++i) {
        EXPECT_NEAR(display.xs()[i] - display.xs()[i - 1], 2.0 / 107, 1e-6);
        EXPECT_NEAR(display.freqs()[i] / display.freqs()[i - 1], display.freqs()[1] / display.freqs()[0], 1e-5);
    }
}

TEST(QVMFreqResp, SmoothsWithOneTwoOneAtScaleOne) {
    EXPECT_THAT(kernelAt(1), ElementsAre(0.25f, 0.5f, 0.25f));
}

TEST(QVMFreqResp, SmoothsWithATriangleOfFiveAtScaleTwo) {
    EXPECT_THAT(kernelAt(2), ElementsAre(1 / 9.f, 2 / 9.f, 3 / 9.f, 2 / 9.f, 1 / 9.f));
}

TEST(QVMFreqResp, DoesNotSmoothBelowHalfAPixelAPoint) {
    EXPECT_THAT(kernelAt(0.4f), ElementsAre(1.0f));
}

TEST(QVMFreqResp, StartsWithEveryCurveVisibleInTheSketchColour) {
    const QVMFreqResp display = makeDisplay(54, 2);
    ASSERT_EQ(display.numCurves(), 2);
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(display.curve(i).hidden);
        EXPECT_EQ(display.curve(i).colour, (Color{1, 1, 1, 1}));
    }
    EXPECT_EQ(display.referenceLevel, 0);
}

TEST(QVMFreqResp, LevelsBecomeHeightsOnTheAxis) {
    QVMFreqResp display = makeDisplay(54, 0.4f);
    const std::vector<float> levels = {-7.5f, 0, 7.5f, 3.75f, 0,     -3.75f, 30, -30, 0, 0, 0,
                                       0,     0, 0,    0,     -7.5f, 0,      0,  0,   0, 0};
    ASSERT_EQ(display.numPoints(), static_cast<int>(levels.size()));
    display.prepareForDrawing(levels.data(), 0, 0);
    const std::vector<float>& ys = display.curve(0).ys;
    EXPECT_FLOAT_EQ(ys[0], -1);
    EXPECT_FLOAT_EQ(ys[1], 0);
    EXPECT_FLOAT_EQ(ys[2], 1);
    EXPECT_FLOAT_EQ(ys[3], 0.5f);
    EXPECT_FLOAT_EQ(ys[5], -0.5f);
    EXPECT_FLOAT_EQ(ys[6], 4);
    // What is drawn leaves the canvas by no more than half its height.
    const std::vector<float>& drawn = display.curve(0).clippedYs;
    EXPECT_EQ(*std::max_element(drawn.begin(), drawn.end()), 2);
    EXPECT_EQ(*std::min_element(drawn.begin(), drawn.end()), -2);
}

TEST(QVMFreqResp, SmoothingTrailsAndStartsFromTheFirstValue) {
    QVMFreqResp display = makeDisplay(54, 1);
    std::vector<float> levels(54, 0.0f);
    levels[0] = levels[1] = 7.5f;
    display.prepareForDrawing(levels.data(), 0, 0);
    const std::vector<float>& ys = display.curve(0).ys;
    EXPECT_THAT(std::vector(ys.begin(), ys.begin() + 5), ElementsAre(1, 1, 0.75f, 0.25f, 0));
}

TEST(QVMFreqResp, AStraightLineKeepsItsFirstTwoPointsAndItsLast) {
    QVMFreqResp display = makeDisplay(54, 2);
    const std::vector<float> flat(108, 3.0f);
    display.prepareForDrawing(flat.data(), 0, 0);
    const QVMFreqResp::Curve& curve = display.curve(0);
    ASSERT_EQ(curve.pointCount, 3u);
    EXPECT_FLOAT_EQ(curve.clippedXs[0], -1);
    EXPECT_FLOAT_EQ(curve.clippedXs[1], display.xs()[1]);
    EXPECT_FLOAT_EQ(curve.clippedXs[2], 1);
    EXPECT_THAT(std::vector(curve.clippedYs.begin(), curve.clippedYs.begin() + 3), Each(FloatNear(0.4f, 1e-6f)));
}

TEST(QVMFreqResp, ThinningMovesTheLineByLessThanAQuarterOfAPixel) {
    QVMFreqResp display = makeDisplay(54, 2);
    std::vector<float> levels(108);
    for (std::size_t i = 0; i < levels.size(); ++i)
        levels[i] = 6 * std::sin(static_cast<float>(i) * 0.06f);
    display.prepareForDrawing(levels.data(), 0, 0);
    const QVMFreqResp::Curve& curve = display.curve(0);
    ASSERT_GT(curve.pointCount, 3u);
    EXPECT_LT(curve.pointCount, 108u);
    std::size_t next = 1;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const float x = display.xs()[i];
        while (curve.clippedXs[next] < x)
            ++next;
        const float share = (x - curve.clippedXs[next - 1]) / (curve.clippedXs[next] - curve.clippedXs[next - 1]);
        const float drawn = curve.clippedYs[next - 1] + share * (curve.clippedYs[next] - curve.clippedYs[next - 1]);
        EXPECT_NEAR(drawn, curve.ys[i], 1.0 / 4 / 62) << i;
    }
}

TEST(QVMFreqResp, GridLinesStandEverySixDecibelsFromTheReference) {
    QVMFreqResp display = makeDisplay(54, 2);
    EXPECT_THAT(display.gridLevels(), ElementsAre(-12, -6, 6));
    display.referenceLevel = 1;
    EXPECT_THAT(display.gridLevels(), ElementsAre(-11, -5, 7));
    display.dbRange = {-19.5f, 19.5f};
    EXPECT_THAT(display.gridLevels(), ElementsAre(-23, -17, -11, -5, 7, 13, 19));
}

class QVMFreqRespPicture : public testing::Test {
protected:
    void draw() {
        surface.begin({54, 62}, 2);
        display.glDraw(surface);
        ASSERT_TRUE(surface.finish(picture));
    }
    unsigned alphaAt(int x, int y) const { return picture.pixels[static_cast<std::size_t>(y * 108 + x)] >> 24; }

    QVMFreqResp display = makeDisplay(54, 2);
    CpuDrawingSurface surface;
    Image picture;
};

TEST_F(QVMFreqRespPicture, TheReferenceIsADashedLineAcross) {
    display.curve(0).hidden = display.curve(1).hidden = true;
    draw();
    // Four points on, two off, from the left; two pixels a point, and the line a point thick around the middle.
    for (int x = 0; x < 108; ++x) {
        const bool on = x % 12 < 8;
        EXPECT_EQ(alphaAt(x, 61) > 100, on) << x;
        EXPECT_EQ(alphaAt(x, 62) > 100, on) << x;
        EXPECT_EQ(alphaAt(x, 59), 0u) << x;
    }
}

TEST_F(QVMFreqRespPicture, TheGridIsDrawnOnlyWhenAskedFor) {
    display.curve(0).hidden = display.curve(1).hidden = true;
    const int row = static_cast<int>(124 * (1 - (6 + 7.5) / 15));
    draw();
    EXPECT_EQ(alphaAt(50, row), 0u);
    display.showGrid = true;
    draw();
    EXPECT_GT(alphaAt(50, row - 1) + alphaAt(50, row) + alphaAt(50, row + 1), 100u);
}

TEST_F(QVMFreqRespPicture, HiddenCurvesAreNotDrawn) {
    const std::vector<float> levels(108, 3.75f);
    display.prepareForDrawing(levels.data(), 0, 0);
    display.curve(1).hidden = true;
    draw();
    EXPECT_EQ(alphaAt(50, 31), 255u);
    display.curve(0).hidden = true;
    draw();
    EXPECT_EQ(alphaAt(50, 31), 0u);
}

} // namespace
} // namespace QVM_NAMESPACE
