#include "editor/surface/EditorSketches.h"

#include "editor/session/SessionFixture.h"
#include "editor/surface/EditorParts.h"
#include "editor/surface/NoReports.h"
#include "editor/surface/ParameterControls.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/ToolTips.h"
#include "viz/sketches/QVMParameterSketch.h"
#include "viz/sketches/QVMParameterSketchDelegate.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::HasSubstr;
using testing::Not;

// The pictures among the parts of an editor, with nobody who connects them to a unit.
class EditorSketchesTest : public SessionFixture, protected QVMParameterSketchDelegate {
protected:
    void SetUp() override {
        parts_.addFrame();
        parts_.addClumps(controls_);
    }
    void add() { sketches_.add(*parts_.powerBox(), EditorLayoutForAltFrame(QVMAltFrameNormal), *this, {}); }
    StatesAre sketchHasUpdatedParameterStates(QVMParameterSketch&, const QVMParameterState*) override {
        return states_;
    }
    StatesAre states_ = StatesAre::drawnOnly;
    void sketchDidChangeVisibility(QVMParameterSketch&) override { sketches_.visibilityDidChange(*parts_.powerBox()); }
    std::string meterText() { return controls_.withPid(pidOutputGain)->toolTip(); }

    NoReports delegate_;
    ParameterControls controls_{delegate_, values()};
    View root_{Rect{0, 0, 480, 320}};
    EditorParts parts_{root_, *config_};
    EditorSketches sketches_{*config_, values(), controls_};
};

TEST_F(EditorSketchesTest, BeforeThereAreAnyNothingHappens) {
    EXPECT_EQ(sketches_.main(), nullptr);
    EXPECT_FALSE(sketches_.areHidden());
    sketches_.toggleVisibility();
    sketches_.setFocusedPid(pidTiltGain);
    sketches_.scaleDidChange();
    sketches_.describeMeters();
    sketches_.assumeLayout(EditorLayoutForAltFrame(QVMAltFrameNormal));
}

TEST_F(EditorSketchesTest, TheCurveStandsInTheBoxAndFollowsTheLayout) {
    add();
    ASSERT_NE(sketches_.main(), nullptr);
    EXPECT_EQ(sketches_.main()->superview(), parts_.powerBox());
    EXPECT_EQ(sketches_.main()->frame(), EditorLayoutForAltFrame(QVMAltFrameNormal).sketchPlace);
    sketches_.assumeLayout(EditorLayoutForAltFrame(QVMAltFrameCompact));
    EXPECT_EQ(sketches_.main()->frame(), (Rect{0, 0, 200, 200}));
    EXPECT_EQ(sketches_.main()->layer()->look().cornerRadius(), 0);
}

TEST_F(EditorSketchesTest, TheFirstPictureIsOfWhatTheControlsShow) {
    values().setDirectly(pidTiltGain, 4.5f);
    add();
    PBGLSketchAbstract& vizRef = *sketches_.main()->getVizRef();
    EXPECT_EQ(vizRef.parameterStates()[pidTiltGain].value, 4.5f);
    EXPECT_EQ(vizRef.interpValues()[pidTiltGain], 4.5f);
    EXPECT_EQ(vizRef.interpTargets()[pidTiltGain], 4.5f);
}

TEST_F(EditorSketchesTest, AMetersModeIsToldWithItsSlider) {
    add();
    const QVMParameter& mode = *GetParameter(pidMeterMode);
    EXPECT_THAT(meterText(), HasSubstr(mode.name + ": " + mode.stringForValue(values().memoized(pidMeterMode))));
    values().setDirectly(pidMeterMode, mode.minValue + 1);
    sketches_.describeMeters();
    EXPECT_THAT(meterText(), HasSubstr(mode.name + ": " + mode.stringForValue(mode.minValue + 1)));
}

TEST_F(EditorSketchesTest, WhatIsHiddenLeavesASign) {
    add();
    sketches_.toggleVisibility();
    EXPECT_TRUE(sketches_.areHidden());
    EXPECT_GT(parts_.powerBox()->hiddenSign()->opacity(), 0);
    EXPECT_EQ(sketches_.main()->toolTip(), toolTipOf(Button::hiddenCurve));
    EXPECT_THAT(meterText(), HasSubstr("The meter is hidden"));
    sketches_.toggleVisibility();
    EXPECT_EQ(parts_.powerBox()->hiddenSign()->opacity(), 0);
    EXPECT_THAT(meterText(), Not(HasSubstr("hidden")));
}

TEST_F(EditorSketchesTest, TheCurveHasAToolTipWhereItIsNotAllThereIs) {
    add();
    EXPECT_EQ(sketches_.main()->toolTip(), toolTipOf(Button::curve));
    sketches_.assumeLayout(EditorLayoutForAltFrame(QVMAltFrameCompact));
    EXPECT_EQ(sketches_.main()->toolTip(), "");
    sketches_.toggleVisibility();
    EXPECT_EQ(sketches_.main()->toolTip(), toolTipOf(Button::hiddenCurve));
}

} // namespace
} // namespace QVM_NAMESPACE
