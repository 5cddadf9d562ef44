#include "viz/sketches/QVM0015GLSketch.h"

#include "RecordingSurface.h"
#include "SketchFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using reference::Settings;
using testing::Each;
using testing::FloatNear;

class QVM0015GLSketchTest : public testing::Test {
protected:
    std::vector<float> responseOf(const Settings& values) {
        setSettings(*sketch, values);
        calculate(*sketch);
        return {sketch->response().begin(), sketch->response().end()};
    }
    const QVMFreqResp& display() const { return sketch->responseDisplay(); }
    // The initial settings have both filters off.
    void expectOnlyOffAt(double off, double beside, ParameterID range, ParameterID slope, ParameterID resonance) {
        settings[pidTiltGain] = 3;
        const std::vector<float> without = responseOf(settings);
        settings[range] = off;
        settings[resonance] = 18;
        settings[slope] = 48;
        EXPECT_EQ(responseOf(settings), without);
        settings[range] = beside;
        EXPECT_NE(responseOf(settings), without);
    }

    std::unique_ptr<QVM0015GLSketch> sketch = makeCurve(108);
    Settings settings = initialSettings();
};

TEST_F(QVM0015GLSketchTest, NoTiltIsFlatWithTheReferenceAtZero) {
    settings[1] = 0;
    settings[6] = QVMTiltEQ_LoudnessHalfGain;
    EXPECT_THAT(responseOf(settings), Each(FloatNear(0, 1e-5f)));
    EXPECT_EQ(display().referenceLevel, 0);
}

TEST_F(QVM0015GLSketchTest, TheAxisStaysAtSevenAndAHalfUpToSixDecibelsOfTilt) {
    for (const double gain : {-6.0, -2.5, 0.0, 6.0}) {
        settings[1] = gain;
        responseOf(settings);
        EXPECT_EQ(display().dbRange, (QVMFloat32Range{-7.5f, 7.5f})) << gain;
    }
}

TEST_F(QVM0015GLSketchTest, TheAxisGrowsWithTheTilt) {
    for (const double gain : {-18.0, 18.0}) {
        settings[1] = gain;
        responseOf(settings);
        EXPECT_EQ(display().dbRange, (QVMFloat32Range{-19.5f, 19.5f})) << gain;
    }
}

TEST_F(QVM0015GLSketchTest, TheUpperTiltCornerIsTakenAsTwiceTheLowerOneAtLeast) {
    settings[1] = 9;
    settings[2] = 1000;
    settings[3] = 2000;
    const std::vector<float> atTwice = responseOf(settings);
    settings[3] = 1500;
    EXPECT_EQ(responseOf(settings), atTwice);
}

TEST_F(QVM0015GLSketchTest, TheLowFilterAndItsResonanceAreAbsentAtExactlyFourHertz) {
    expectOnlyOffAt(4, 4.1, pidFilterRangeLow, pidFilterSlopeLow, pidFilterResonanceLow);
}

TEST_F(QVM0015GLSketchTest, TheHighFilterAndItsResonanceAreAbsentAtExactlyTwentyFourKilohertz) {
    expectOnlyOffAt(24000, 23999, pidFilterRangeHigh, pidFilterSlopeHigh, pidFilterResonanceHigh);
}

TEST_F(QVM0015GLSketchTest, AFilterIsSwitchedByItsValueButDrawnAtItsGlidingCorner) {
    settings[9] = 1000;
    const std::vector<float> at1000 = responseOf(settings);
    setSettings(*sketch, settings);
    sketch->parameterStates[9].value = 5;
    calculate(*sketch);
    EXPECT_TRUE(std::equal(at1000.begin(), at1000.end(), sketch->response().begin()));
    sketch->parameterStates[9].value = 4;
    calculate(*sketch);
    EXPECT_NEAR(sketch->response()[0], 0, 1e-4);
}

// Everything that the settings decide about the picture.
struct Look {
    std::vector<float> response, audition;
    float reference = 0;
    QVMFloat32Range axis;
    bool auditions = false;
    bool operator==(const Look&) const = default;
};

class WhatTheCurveReads : public QVM0015GLSketchTest {
protected:
    WhatTheCurveReads() {
        settings[pidTiltGain] = 9;
        settings[pidTiltRangeLow] = 100;
        settings[pidTiltRangeHigh] = 3000;
        settings[pidFilterRangeLow] = 200;
        settings[pidFilterRangeHigh] = 5000;
        settings[pidFilterSlopeLow] = settings[pidFilterSlopeHigh] = 24;
        settings[pidFilterResonanceLow] = settings[pidFilterResonanceHigh] = 6;
        settings[pidFilterListenLow] = settings[pidFilterListenHigh] = 0;
    }
    Look look() {
        calculate(*sketch);
        const bool auditions = !display().curve(1).hidden;
        Look result{{sketch->response().begin(), sketch->response().end()},
                    {},
                    display().referenceLevel,
                    display().dbRange,
                    auditions};
        if (auditions) result.audition.assign(sketch->listenCurve().begin(), sketch->listenCurve().end());
        return result;
    }
    // Whether the picture is another one after one word of a parameter's state was changed.
    bool dependsOnValue(ParameterID pid, float value) {
        setSettings(*sketch, settings);
        const Look before = look();
        sketch->parameterStates[pid].value = value;
        return look() != before;
    }
    bool dependsOnDisplay(ParameterID pid, float value) {
        setSettings(*sketch, settings);
        const Look before = look();
        sketch->parameterStates[pid].displayValue = value;
        return look() != before;
    }
};

TEST_F(WhatTheCurveReads, TiltSlopesAndResonancesGlide) {
    const struct {
        ParameterID pid;
        float other;
    } rows[] = {{pidTiltGain, -4},           {pidTiltGain, 18},           {pidTiltRangeLow, 50},
                {pidTiltRangeHigh, 9000},    {pidTiltLoudnessMode, 1},    {pidTiltLoudnessMode, 3},
                {pidFilterSlopeLow, 48},     {pidFilterSlopeHigh, 48},    {pidFilterResonanceLow, 0},
                {pidFilterResonanceHigh, 0}, {pidFilterResonanceLow, 12}, {pidFilterResonanceHigh, 12}};
    for (const bool auditions : {false, true}) {
        settings[pidFilterListenLow] = settings[pidFilterListenHigh] = auditions ? 1 : 0;
        for (const auto& row : rows) {
            EXPECT_TRUE(dependsOnDisplay(row.pid, row.other)) << row.pid << ", " << row.other;
            EXPECT_FALSE(dependsOnValue(row.pid, row.other)) << row.pid << ", " << row.other;
        }
    }
}

TEST_F(WhatTheCurveReads, CornersGlideAndFiltersGoOnAndOffAtOnce) {
    const struct {
        ParameterID pid;
        float off, other;
    } rows[] = {{pidFilterRangeLow, 4, 300}, {pidFilterRangeHigh, 24000, 3000}};
    for (const auto& row : rows) {
        EXPECT_TRUE(dependsOnDisplay(row.pid, row.other)) << row.pid;
        EXPECT_FALSE(dependsOnValue(row.pid, row.other)) << row.pid;
        EXPECT_TRUE(dependsOnValue(row.pid, row.off)) << row.pid;
        // Where its corner has got to the end already it is still on, with all that belongs to it.
        setSettings(*sketch, settings);
        sketch->parameterStates[row.pid].displayValue = row.off;
        const Look atTheEnd = look();
        sketch->parameterStates[row.pid].value = row.off;
        EXPECT_NE(look(), atTheEnd) << row.pid;
    }
}

TEST_F(WhatTheCurveReads, AuditioningGoesOnAndOffAtOnce) {
    for (const ParameterID pid : {pidFilterListenLow, pidFilterListenHigh}) {
        EXPECT_TRUE(dependsOnValue(pid, 1)) << pid;
        EXPECT_FALSE(dependsOnDisplay(pid, 1)) << pid;
    }
}

TEST_F(WhatTheCurveReads, NoOtherParameter) {
    const std::vector<ParameterID> read = {pidTiltGain,         pidTiltRangeLow,    pidTiltRangeHigh,
                                           pidTiltLoudnessMode, pidFilterRangeLow,  pidFilterRangeHigh,
                                           pidFilterListenLow,  pidFilterSlopeLow,  pidFilterResonanceLow,
                                           pidFilterListenHigh, pidFilterSlopeHigh, pidFilterResonanceHigh};
    for (std::uint32_t i = 0; i < QVMParameterCount; ++i) {
        const auto pid = static_cast<ParameterID>(i);
        if (std::find(read.begin(), read.end(), pid) != read.end()) continue;
        for (const float other : {GetParameter(pid)->minValue, GetParameter(pid)->maxValue}) {
            EXPECT_FALSE(dependsOnValue(pid, other)) << pid;
            EXPECT_FALSE(dependsOnDisplay(pid, other)) << pid;
        }
    }
}

TEST_F(WhatTheCurveReads, WhatItDrawsInAGlideIsTheResponseOfTheDisplayedValues) {
    settings[pidFilterListenLow] = 1;
    setSettings(*sketch, settings);
    for (const ParameterID pid : {pidTiltGain, pidTiltRangeLow, pidTiltRangeHigh, pidTiltLoudnessMode,
                                  pidFilterSlopeLow, pidFilterSlopeHigh, pidFilterResonanceLow, pidFilterResonanceHigh})
        sketch->parameterStates[pid].value = GetParameter(pid)->maxValue;
    sketch->parameterStates[pidFilterRangeLow].value = 5;
    sketch->parameterStates[pidFilterRangeHigh].value = 23000;
    sketch->parameterStates[pidFilterListenLow].displayValue = 0.3f;
    sketch->parameterStates[pidFilterListenHigh].displayValue = 1;
    const Look drawn = look();
    const reference::Response expected = reference::evaluate(settings, 108);
    EXPECT_NEAR(drawn.reference, expected.reference, 1e-3);
    EXPECT_FLOAT_EQ(drawn.axis.max, static_cast<float>(expected.axis));
    for (std::size_t i = 0; i < 108; ++i) {
        EXPECT_NEAR(drawn.response[i], expected.total[i], 1e-3) << i;
        if (expected.audition[i] < -200) continue; // where one minus the filter is nothing in double precision
        EXPECT_NEAR(drawn.audition[i], expected.audition[i], 1e-3) << i;
    }
}

// A window may be so narrow for a moment.
TEST_F(QVM0015GLSketchTest, ACurveOfNoPointsOrOfOneHasAPictureToo) {
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

TEST_F(QVM0015GLSketchTest, AResonanceIsDrawnNoHigherThan23760Hertz) {
    std::vector<float> atLimit(108), above(108), below(108);
    sketch->calcReso(atLimit.data(), 23760, 12, 2);
    sketch->calcReso(above.data(), 23999, 12, 2);
    sketch->calcReso(below.data(), 23000, 12, 2);
    EXPECT_EQ(above, atLimit);
    EXPECT_NE(below, atLimit);
}

TEST_F(QVM0015GLSketchTest, AResonancePeaksAtItsCorner) {
    sketch = makeCurve(1080);
    std::vector<float> bump(1080);
    sketch->calcReso(bump.data(), 1000, 12, 2);
    const auto peak = std::max_element(bump.begin(), bump.end());
    EXPECT_NEAR(*peak, 12, 0.05);
    EXPECT_NEAR(display().freqs()[static_cast<std::size_t>(peak - bump.begin())], 1000, 10);
    EXPECT_NEAR(bump.front(), 0, 1e-3);
}

TEST_F(QVM0015GLSketchTest, LoudnessModesBeyondTheListCountAsTheFirst) {
    settings[1] = 9;
    settings[6] = 0;
    responseOf(settings);
    const float weighted = display().referenceLevel;
    for (const double mode : {5.0, -1.0, 4.0, 1e9}) {
        settings[6] = mode;
        responseOf(settings);
        EXPECT_EQ(display().referenceLevel, weighted) << mode;
    }
    settings[6] = 1.9; // glides
    responseOf(settings);
    EXPECT_FLOAT_EQ(display().referenceLevel, 0);
}

TEST_F(QVM0015GLSketchTest, ListeningToBothFiltersShowsWhatTheyRemoveTogetherAndTheTilt) {
    settings[1] = 6;
    settings[9] = 200;
    settings[10] = 5000;
    settings[13] = settings[20] = 1;
    settings[15] = settings[22] = 9; // not part of it
    responseOf(settings);
    const reference::Response expected = reference::evaluate(settings, 108);
    ASSERT_EQ(expected.audition.size(), 108u);
    for (std::size_t i = 0; i < 108; ++i)
        EXPECT_NEAR(sketch->listenCurve()[i], expected.audition[i], 1e-3) << i;
    EXPECT_FALSE(display().curve(1).hidden);
}

TEST_F(QVM0015GLSketchTest, WhatAFilterThatIsOffRemovesIsNothing) {
    settings[13] = 1;
    responseOf(settings);
    EXPECT_THAT(std::vector<float>(sketch->listenCurve().begin(), sketch->listenCurve().end()), Each(-INFINITY));
}

TEST_F(QVM0015GLSketchTest, TheResponseStepsBackWhileSomethingIsAuditioned) {
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
    settings[13] = settings[20] = 0.5; // half on is off
    responseOf(settings);
    EXPECT_TRUE(display().curve(1).hidden);
}

TEST_F(QVM0015GLSketchTest, TheResponseGoesWhereItIsToldTo) {
    settings[1] = 4;
    const std::vector<float> expected = responseOf(settings);
    std::vector<float> elsewhere(108);
    sketch->calcRespWithFreqs(display().freqs().data(), false, false, elsewhere.data());
    EXPECT_EQ(elsewhere, expected);
}

TEST_F(QVM0015GLSketchTest, ItsFixedTablesAreThoseOfTheGrid) {
    double sum = 0;
    for (std::size_t i = 0; i < 108; ++i) {
        const double weight = reference::weight(display().freqs()[i]);
        EXPECT_NEAR(sketch->loudnessWeights()[i], weight, 1e-6);
        sum += weight * weight;
    }
    EXPECT_NEAR(sketch->loudnessWeightsRms(), std::sqrt(sum / 108), 1e-6);
}

TEST_F(QVM0015GLSketchTest, UnknownSketchesAreLeftAlone) {
    QVM0015GLSketch other;
    PBGLCanvas canvas = curveCanvas();
    canvas.sid = 2;
    other.init(canvas, 44100, 512);
    EXPECT_EQ(other.numPoints(), 0);
    EXPECT_EQ(other.levelMeter(), nullptr);
    EXPECT_EQ(other.prepareForDrawing(canvas, 1), Redraw::no);
}

TEST_F(QVM0015GLSketchTest, NothingIsPreparedBeforeThereAreParameters) {
    QVM0015GLSketch other;
    other.init(curveCanvas(), 44100, 512);
    EXPECT_EQ(other.prepareForDrawing(curveCanvas(), 1), Redraw::no);
}

TEST_F(QVM0015GLSketchTest, SetsUpAMeterOfTwoBarsSideBySide) {
    ASSERT_EQ(sketch->levelMeter(), nullptr);
    sketch->init(meterCanvas(), 44100, 512);
    QVMLevelMeter* meter = sketch->levelMeter();
    ASSERT_NE(meter, nullptr);
    ASSERT_EQ(meter->numChannels(), 2);
    EXPECT_EQ(meter->channel(0).offset.x, -3);
    EXPECT_EQ(meter->channel(1).offset.x, 3);
    EXPECT_EQ(meter->channel(0).colourFull, (Color{0, 0, 0, 0.25f}));
    EXPECT_EQ(meter->channel(1).colourEmpty, (Color{0, 0, 0, 0.5f}));
    EXPECT_EQ(meter->channel(0).colourClip, (Color{1, 0, 0, 0.25f}));
    EXPECT_EQ(meter->channel(1).colourClip, (Color{1, 0, 0, 0.5f}));
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(meter->channel(i).level, -96);
        EXPECT_EQ(meter->channel(i).display, -96);
    }
    EXPECT_EQ(meter->barRect(meterCanvas(), 0).x + 6, meter->barRect(meterCanvas(), 1).x);
}

TEST_F(QVM0015GLSketchTest, ItsMeterShowsTheSharedLevels) {
    sketch->init(meterCanvas(), 44100, 512);
    sketch->sharedState.levels.post(0, -6);
    sketch->sharedState.levels.post(0, -20);
    sketch->levelMeter()->channel(0).slewEnabled = false;
    sketch->prepareForDrawing(meterCanvas(), 0.1f);
    EXPECT_EQ(sketch->levelMeter()->channel(0).display, -6);
    EXPECT_EQ(sketch->levelMeter()->channel(0).level, -20);
}

TEST_F(QVM0015GLSketchTest, AnotherLayerKeepsTheMeterAndItsLevels) {
    sketch->init(meterCanvas(1), 44100, 512);
    QVMLevelMeter* meter = sketch->levelMeter();
    meter->channel(0).level = -12;
    sketch->init(meterCanvas(2), 44100, 512);
    EXPECT_EQ(sketch->levelMeter(), meter);
    EXPECT_EQ(meter->channel(0).level, -12);
}

TEST_F(QVM0015GLSketchTest, TheMeterFollowsTheSlidersScale) {
    sketch->init(meterCanvas(), 44100, 512);
    QVMLevelMeter::Channel& channel = sketch->levelMeter()->channel(0);
    for (const float level : {-96.0f, -24.0f, -6.0f, 0.0f, 12.0f}) {
        channel.level = level;
        for (int frame = 0; frame < 600; ++frame)
            sketch->prepareForDrawing(meterCanvas(), 1.0f / 60);
        EXPECT_NEAR(channel.fill, GetParameter(7)->percentageFromFloatValue(level), 1e-4) << level;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
