#include "viz/sketches/QVMFreqResp.h"

#include "RecordingSurface.h"
#include "SketchFixture.h"
#include "platform/surface/CpuDrawingSurface.h"

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

// Without smoothing; the first point is moved so far that the third turns the line by a little more, or less.
TEST(QVMFreqResp, OnlyWhatTurnsTheLineByAHundredthIsAPointOfIt) {
    QVMFreqResp display = makeDisplay(54, 0.4f);
    const double step = 2.0 / 20, turn = 0.01 / 21 / step;
    for (const double share : {0.99, 1.01}) {
        std::vector<float> levels(21, 0.0f);
        levels[0] = static_cast<float>(share * turn * 7.5);
        display.prepareForDrawing(levels.data(), 0, 0);
        EXPECT_NEAR(display.curve(0).clippedXs[2], -1 + (share < 1 ? 3 : 2) * step, 1e-5) << share;
    }
}

TEST(QVMFreqResp, WithoutPointsThereIsNothingButTheGrid) {
    for (const float width : {0.0f, 0.4f}) {
        QVMFreqResp display = makeDisplay(width, 1);
        ASSERT_EQ(display.numPoints(), 0);
        display.prepareForDrawing(nullptr, 0, 0);
        RecordingSurface surface;
        surface.begin({width, 62}, 1);
        display.glDraw(surface);
        EXPECT_EQ(display.curve(0).pointCount, 0u);
    }
}

TEST(QVMFreqResp, ASinglePointStandsAtTheLeft) {
    QVMFreqResp display = makeDisplay(1, 1);
    ASSERT_EQ(display.numPoints(), 1);
    EXPECT_FLOAT_EQ(display.freqs()[0], 4);
    EXPECT_EQ(display.xs()[0], -1);
}

// What is drawn of a response at 3.75 dB and an audition curve at -3.75 dB, in a colour of three different parts.
class QVMFreqRespShapes : public testing::Test {
protected:
    using Shape = RecordingSurface::Shape;
    void SetUp() override {
        PBGLCanvas canvas = curveCanvas(60, 62, scale);
        canvas.sketch.color = {0.8f, 0.4f, 0.2f};
        display.init(canvas, 0.5f, {4, 24000}, {-7.5f, 7.5f}, 2);
        display.showGrid = true;
        for (int i = 0; i < 2; ++i) {
            const std::vector<float> levels(static_cast<std::size_t>(display.numPoints()), i == 0 ? 3.75f : -3.75f);
            display.prepareForDrawing(levels.data(), 0, i);
        }
        surface.begin({60, 62}, scale);
    }
    double heightOf(const Shape& shape) const { return 1 - static_cast<double>(shape.line[0].from.y) / (31 * scale); }

    static constexpr float scale = 2;
    QVMFreqResp display;
    RecordingSurface surface;
};

TEST_F(QVMFreqRespShapes, TheReferenceComesFirstThenTheGridThenTheCurvesInTheirOrder) {
    display.glDraw(surface);
    const std::vector<Shape>& shapes = surface.shapes;
    ASSERT_EQ(shapes.size(), 10u + 3 + 2); // a dash every six of sixty points
    for (std::size_t i = 0; i < 10; ++i)
        EXPECT_NEAR(heightOf(shapes[i]), 0, 1e-6);
    EXPECT_NEAR(heightOf(shapes[10]), -12 / 7.5, 1e-5);
    EXPECT_NEAR(heightOf(shapes[11]), -6 / 7.5, 1e-5);
    EXPECT_NEAR(heightOf(shapes[12]), 6 / 7.5, 1e-5);
    EXPECT_NEAR(heightOf(shapes[13]), 0.5, 1e-5) << "the response";
    EXPECT_NEAR(heightOf(shapes[14]), -0.5, 1e-5) << "what is auditioned lies over it";
}

TEST_F(QVMFreqRespShapes, TheReferenceIsAPointWideAndDashedFourOnTwoOff) {
    display.glDraw(surface);
    for (std::size_t i = 0; i < 10; ++i) {
        EXPECT_NEAR(surface.shapes[i].widthPixels(), 1 * scale, 1e-6);
        EXPECT_NEAR(surface.shapes[i].lengthPixels(), 4 * scale, 1e-3);
        EXPECT_NEAR(surface.shapes[i].line[0].from.x, static_cast<float>(i) * 6 * scale, 1e-3);
    }
}

TEST_F(QVMFreqRespShapes, TheGridIsHalfAPointWideAndRunsAcross) {
    display.glDraw(surface);
    for (std::size_t i = 10; i < 13; ++i) {
        EXPECT_NEAR(surface.shapes[i].widthPixels(), 0.5 * scale, 1e-6);
        EXPECT_NEAR(surface.shapes[i].lengthPixels(), 60 * scale, 1e-3);
    }
}

TEST_F(QVMFreqRespShapes, CurvesAreTwoPointsWide) {
    display.glDraw(surface);
    for (std::size_t i = 13; i < 15; ++i)
        EXPECT_NEAR(surface.shapes[i].widthPixels(), 2 * scale, 1e-6);
}

// Fainter, not darker: half of the light of the sketch's colour, over whatever is behind it.
TEST_F(QVMFreqRespShapes, ReferenceAndGridHaveHalfTheLightOfTheCurves) {
    display.glDraw(surface);
    for (std::size_t i = 0; i < 15; ++i) {
        const Color colour = surface.shapes[i].color();
        EXPECT_FLOAT_EQ(colour.r, 0.8f) << i;
        EXPECT_FLOAT_EQ(colour.g, 0.4f) << i;
        EXPECT_FLOAT_EQ(colour.b, 0.2f) << i;
        EXPECT_FLOAT_EQ(colour.a, i < 13 ? 0.5f : 1.0f) << i;
    }
}

TEST_F(QVMFreqRespShapes, ACurveIsDrawnInItsOwnColour) {
    display.curve(0).colour = {0.28f, 0.14f, 0.07f, 0.35f};
    display.glDraw(surface);
    EXPECT_FLOAT_EQ(surface.shapes[13].color().r, 0.8f);
    EXPECT_FLOAT_EQ(surface.shapes[13].color().b, 0.2f);
    EXPECT_FLOAT_EQ(surface.shapes[13].color().a, 0.35f);
    EXPECT_EQ(surface.shapes[14].color(), (Color{0.8f, 0.4f, 0.2f, 1}));
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
