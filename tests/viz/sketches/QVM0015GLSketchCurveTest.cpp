// The curves that the drawing object computes from the settings, and how it shows them.
#include "viz/sketches/QVM0015GLSketch.h"

#include "RecordingSurface.h"
#include "ResponseSketchFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Each;
using testing::FloatNear;
using QVM0015GLSketchCurveTest = ResponseSketchFixture;

TEST_F(QVM0015GLSketchCurveTest, NoTiltIsFlatWithTheReferenceAtZero) {
    settings[pidTiltGain] = 0;
    settings[pidTiltLoudnessMode] = QVMTiltEQ_LoudnessHalfGain;
    EXPECT_THAT(responseOf(settings), Each(FloatNear(0, 1e-5f)));
    EXPECT_EQ(display().referenceLevel, 0);
}

TEST_F(QVM0015GLSketchCurveTest, TheAxisStaysAtSevenAndAHalfUpToSixDecibelsOfTilt) {
    for (const double gain : {-6.0, -2.5, 0.0, 6.0}) {
        settings[pidTiltGain] = gain;
        responseOf(settings);
        EXPECT_EQ(display().dbRange, (QVMFloat32Range{-7.5f, 7.5f})) << gain;
    }
}

TEST_F(QVM0015GLSketchCurveTest, TheAxisGrowsWithTheTilt) {
    for (const double gain : {-18.0, 18.0}) {
        settings[pidTiltGain] = gain;
        responseOf(settings);
        EXPECT_EQ(display().dbRange, (QVMFloat32Range{-19.5f, 19.5f})) << gain;
    }
}

TEST_F(QVM0015GLSketchCurveTest, TheUpperTiltCornerIsTakenAsTwiceTheLowerOneAtLeast) {
    settings[pidTiltGain] = 9;
    settings[pidTiltRangeLow] = 1000;
    settings[pidTiltRangeHigh] = 2000;
    const std::vector<float> atTwice = responseOf(settings);
    settings[pidTiltRangeHigh] = 1500;
    EXPECT_EQ(responseOf(settings), atTwice);
}

TEST_F(QVM0015GLSketchCurveTest, TheLowFilterAndItsResonanceAreAbsentAtExactlyFourHertz) {
    expectOnlyOffAt(4, 4.1, pidFilterRangeLow, pidFilterSlopeLow, pidFilterResonanceLow);
}

TEST_F(QVM0015GLSketchCurveTest, TheHighFilterAndItsResonanceAreAbsentAtExactlyTwentyFourKilohertz) {
    expectOnlyOffAt(24000, 23999, pidFilterRangeHigh, pidFilterSlopeHigh, pidFilterResonanceHigh);
}

TEST_F(QVM0015GLSketchCurveTest, AFilterIsSwitchedByItsValueButDrawnAtItsGlidingCorner) {
    settings[pidFilterRangeLow] = 1000;
    const std::vector<float> at1000 = responseOf(settings);
    setSettings(*sketch, settings);
    sketch->parameterStates()[pidFilterRangeLow].value = 5;
    calculate(*sketch);
    EXPECT_TRUE(std::equal(at1000.begin(), at1000.end(), sketch->response().begin()));
    sketch->parameterStates()[pidFilterRangeLow].value = 4;
    calculate(*sketch);
    EXPECT_NEAR(sketch->response()[0], 0, 1e-4);
}

// A window may be so narrow for a moment.
TEST_F(QVM0015GLSketchCurveTest, ACurveOfNoPointsOrOfOneHasAPictureToo) {
    for (const float width : {0.0f, 0.3f, 1.0f, 2.0f}) {
        for (const double mode : {0.0, 1.0, 2.0, 3.0}) {
            for (const double listens : {0.0, 1.0}) {
                sketch->init(curveCanvas(width, 62, 1), 44100, 512);
                settings[pidTiltGain] = 9;
                settings[pidTiltLoudnessMode] = mode;
                settings[pidFilterRangeLow] = 200;
                settings[pidFilterResonanceLow] = 6;
                settings[pidFilterListenLow] = listens;
                setSettings(*sketch, settings);
                EXPECT_EQ(sketch->prepareForDrawing(curveCanvas(width, 62, 1), 1.0f / 60), Redraw::yes);
                EXPECT_EQ(sketch->numPoints(), static_cast<int>(width));
                EXPECT_TRUE(std::isfinite(display().referenceLevel)) << width << ", " << mode;
                RecordingSurface surface;
                surface.begin({width, 62}, 1);
                sketch->glDraw(curveCanvas(width, 62, 1), surface);
                EXPECT_GE(surface.shapes.size(), width > 0 ? 3u : 0u) << "the grid is there";
            }
        }
    }
}

TEST_F(QVM0015GLSketchCurveTest, AResonanceIsDrawnNoHigherThan23760Hertz) {
    std::vector<float> atLimit(108), above(108), below(108);
    sketch->calcReso(atLimit.data(), 23760, 12, 2);
    sketch->calcReso(above.data(), 23999, 12, 2);
    sketch->calcReso(below.data(), 23000, 12, 2);
    EXPECT_EQ(above, atLimit);
    EXPECT_NE(below, atLimit);
}

TEST_F(QVM0015GLSketchCurveTest, AResonancePeaksAtItsCorner) {
    sketch = makeCurve(1080);
    std::vector<float> bump(1080);
    sketch->calcReso(bump.data(), 1000, 12, 2);
    const auto peak = std::max_element(bump.begin(), bump.end());
    EXPECT_NEAR(*peak, 12, 0.05);
    EXPECT_NEAR(display().freqs()[static_cast<std::size_t>(peak - bump.begin())], 1000, 10);
    EXPECT_NEAR(bump.front(), 0, 1e-3);
}

TEST_F(QVM0015GLSketchCurveTest, LoudnessModesBeyondTheListCountAsTheFirst) {
    settings[pidTiltGain] = 9;
    settings[pidTiltLoudnessMode] = 0;
    responseOf(settings);
    const float weighted = display().referenceLevel;
    for (const double mode : {5.0, -1.0, 4.0, 1e9}) {
        settings[pidTiltLoudnessMode] = mode;
        responseOf(settings);
        EXPECT_EQ(display().referenceLevel, weighted) << mode;
    }
    settings[pidTiltLoudnessMode] = 1.9; // glides
    responseOf(settings);
    EXPECT_FLOAT_EQ(display().referenceLevel, 0);
}

TEST_F(QVM0015GLSketchCurveTest, ListeningToBothFiltersShowsWhatTheyRemoveTogetherAndTheTilt) {
    settings[pidTiltGain] = 6;
    settings[pidFilterRangeLow] = 200;
    settings[pidFilterRangeHigh] = 5000;
    settings[pidFilterListenLow] = settings[pidFilterListenHigh] = 1;
    settings[pidFilterResonanceLow] = settings[pidFilterResonanceHigh] = 9; // not part of it
    responseOf(settings);
    const reference::Response expected = reference::evaluate(settings, 108);
    ASSERT_EQ(expected.audition.size(), 108u);
    for (std::size_t i = 0; i < 108; ++i)
        EXPECT_NEAR(sketch->listenCurve()[i], expected.audition[i], 1e-3) << i;
    EXPECT_FALSE(display().curve(1).hidden);
}

TEST_F(QVM0015GLSketchCurveTest, WhatAFilterThatIsOffRemovesIsNothing) {
    settings[pidFilterListenLow] = 1;
    responseOf(settings);
    EXPECT_THAT(std::vector<float>(sketch->listenCurve().begin(), sketch->listenCurve().end()), Each(-INFINITY));
}

TEST_F(QVM0015GLSketchCurveTest, TheResponseStepsBackWhileSomethingIsAuditioned) {
    responseOf(settings);
    EXPECT_TRUE(display().curve(1).hidden);
    EXPECT_EQ(display().curve(0).colour, (Color{1, 1, 1, 1}));
    for (const std::size_t listen : {13u, 20u}) {
        settings = initialSettings();
        settings[listen] = 1;
        responseOf(settings);
        EXPECT_FALSE(display().curve(1).hidden);
        EXPECT_EQ(display().curve(0).colour, (Color{0.35f, 0.35f, 0.35f, 0.35f}));
        EXPECT_EQ(display().curve(1).colour, (Color{1, 1, 1, 1}));
    }
    settings[pidFilterListenLow] = settings[pidFilterListenHigh] = 0.5; // half on is off
    responseOf(settings);
    EXPECT_TRUE(display().curve(1).hidden);
}

TEST_F(QVM0015GLSketchCurveTest, TheResponseGoesWhereItIsToldTo) {
    settings[pidTiltGain] = 4;
    const std::vector<float> expected = responseOf(settings);
    std::vector<float> elsewhere(108);
    sketch->calcRespWithFreqs(display().freqs().data(), false, false, elsewhere.data());
    EXPECT_EQ(elsewhere, expected);
}

TEST_F(QVM0015GLSketchCurveTest, ItsFixedTablesAreThoseOfTheGrid) {
    double sum = 0;
    for (std::size_t i = 0; i < 108; ++i) {
        const double weight = reference::weight(display().freqs()[i]);
        EXPECT_NEAR(sketch->loudnessWeights()[i], weight, 1e-6);
        sum += weight * weight;
    }
    EXPECT_NEAR(sketch->loudnessWeightsRms(), std::sqrt(sum / 108), 1e-6);
}

} // namespace
} // namespace QVM_NAMESPACE
