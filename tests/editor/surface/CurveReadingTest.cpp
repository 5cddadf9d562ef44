#include "editor/surface/CurveReading.h"

#include "viz/sketches/ReferenceResponse.h"
#include "viz/sketches/SketchFixture.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class CurveReadingTest : public testing::Test {
protected:
    // The display draws the settings, and the formulas are evaluated where it has points.
    void show() {
        setSettings(*sketch_, settings_);
        PBGLCanvas canvas = sketch_->responseDisplay().canvas();
        sketch_->prepareForDrawing(canvas, 0);
        expected_ = reference::evaluate(settings_, sketch_->numPoints());
    }
    // Every point of the grid, against the formulas.
    void expectFormulas(const std::vector<double>& levels) {
        for (std::size_t i = 0; i < levels.size(); i += 7) {
            const double db = levels[i] - expected_.reference;
            EXPECT_NEAR(readCurve(*sketch_, expected_.frequency[i]).gainDb, db, 0.01 + std::abs(db) * 1e-4)
                << expected_.frequency[i];
        }
    }

    std::unique_ptr<QVM0015GLSketch> sketch_ = makeCurve(200);
    reference::Settings settings_ = initialSettings();
    reference::Response expected_;
};

TEST_F(CurveReadingTest, TellsTheGainThatTheFormulasGive) {
    for (const double gain : {0.0, 6.0, -13.5}) {
        settings_[pidTiltGain] = gain;
        settings_[pidTiltRangeLow] = 120;
        settings_[pidTiltRangeHigh] = 5000;
        settings_[pidFilterRangeLow] = 60;
        settings_[pidFilterSlopeLow] = 24;
        settings_[pidFilterResonanceLow] = 4;
        settings_[pidTiltLoudnessMode] = 2; // the reference line is off the middle
        show();
        expectFormulas(expected_.total);
    }
}

TEST_F(CurveReadingTest, AFlatCurvePassesEverythingUnchanged) {
    show();
    EXPECT_NEAR(readCurve(*sketch_, 1000).gainDb, 0, 1e-4);
    EXPECT_NEAR(readCurve(*sketch_, 1000).height, 0.5, 1e-4);
}

TEST_F(CurveReadingTest, TellsWhatIsHeardWhileAFilterIsListenedTo) {
    settings_[pidTiltGain] = 3;
    settings_[pidFilterRangeHigh] = 2000;
    settings_[pidFilterListenHigh] = 1;
    show();
    ASSERT_FALSE(expected_.audition.empty());
    expectFormulas(expected_.audition);
}

TEST_F(CurveReadingTest, ItsHeightIsThatOfTheLineThatIsDrawn) {
    settings_[pidTiltGain] = 10;
    show();
    const QVMFreqResp& display = sketch_->responseDisplay();
    for (std::size_t i = 1; i < display.freqs().size(); i += 13)
        EXPECT_NEAR(readCurve(*sketch_, display.freqs()[i]).height * 2 - 1, display.curve(0).ys[i], 1e-3);
}

TEST_F(CurveReadingTest, OutsideItReadsAsItsEnds) {
    settings_[pidTiltGain] = 10;
    show();
    EXPECT_EQ(readCurve(*sketch_, 1).gainDb, readCurve(*sketch_, 4).gainDb);
    EXPECT_EQ(readCurve(*sketch_, 96000).gainDb, readCurve(*sketch_, 24000).gainDb);
}

TEST_F(CurveReadingTest, ACurveWithoutPointsReadsAsNothing) {
    const QVM0015GLSketch none;
    EXPECT_EQ(readCurve(none, 1000).gainDb, 0);
}

} // namespace
} // namespace QVM_NAMESPACE
