#include "editor/EditorFixture.h"

#include "controls/QVMSymbolButton.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <cmath>
#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

class QVMGenericUISketch : public EditorFixture {
protected:
    QVMParameterSketch& sketch() { return *ui_->sketch(); }
    QVMAuxiliarySketch& meter() { return *sketch().auxiliarySketches().front(); }
    QVM0015GLSketch& object() { return static_cast<QVM0015GLSketch&>(*sketch().getVizRef()); }
    // An editor as it is right after its setup.
    void openAnew() { build(QVMConfig::inlinedConfig()); }
};

TEST_F(QVMGenericUISketch, ComesHalfASecondAfterTheSetupAndAppearsInOneMore) {
    openAnew();
    time_.advance(0.49);
    EXPECT_EQ(ui_->sketch(), nullptr);
    time_.advance(0.02);
    ASSERT_NE(ui_->sketch(), nullptr);
    EXPECT_LT(sketch().layer()->presentation().opacity, 0.1);
    time_.advance(0.5);
    EXPECT_NEAR(sketch().layer()->presentation().opacity, 0.5, 0.1);
    time_.advance(0.51);
    EXPECT_EQ(sketch().layer()->presentation().opacity, 1);
    EXPECT_TRUE(sketch().glSketch()->shouldRender());
}

TEST_F(QVMGenericUISketch, AnEditorThatGoesBeforeHasNone) {
    openAnew();
    time_.advance(0.3);
    window_.takeContentView().reset();
    ui_ = nullptr;
    time_.advance(2);
    EXPECT_FALSE(ticks_.isStarted());
}

TEST_F(QVMGenericUISketch, StandsInItsPlaceInThePowerBox) {
    const PBRect& outer = PB_Sketches[0].outer;
    EXPECT_EQ(sketch().superview(), ui_->powerBox());
    EXPECT_EQ(sketch().frame(), (Rect{outer.x, outer.y, outer.w, outer.h}));
    EXPECT_EQ(sketch().frame(), (Rect{4, 196, 54, 62}));
}

TEST_F(QVMGenericUISketch, IsAGhostWhileThePowerIsOff) {
    const Layer& curve = *sketch().glSketch();
    EXPECT_EQ(curve.opacity(), 1);
    hostSets(pidMasterOnOff, 0);
    time_.advance(1);
    EXPECT_GT(curve.presentation().opacity, 0.2);
    EXPECT_LT(curve.presentation().opacity, 0.5);
    hostSets(pidMasterOnOff, 1);
    time_.advance(1);
    EXPECT_EQ(curve.presentation().opacity, 1);
    delegate_.unit[pidMasterOnOff] = 0;
    openAnew();
    frames(2);
    EXPECT_LT(sketch().glSketch()->opacity(), 0.5) << "also in an editor that is opened then";
}

TEST_F(QVMGenericUISketch, AClickOnTheCurveHidesAllSketchesAndAnotherShowsThem) {
    click(middleOf(sketch()));
    EXPECT_FALSE(sketch().vizVisible());
    EXPECT_EQ(sketch().layer()->opacity(), 0);
    EXPECT_FALSE(meter().glSketch()->shouldRender());
    click(middleOf(sketch()));
    EXPECT_TRUE(sketch().vizVisible());
    EXPECT_TRUE(meter().glSketch()->shouldRender());
}

TEST_F(QVMGenericUISketch, FillsTheCompactFormAndComesBack) {
    ui_->requestFrame(QVMAltFrameCompact);
    EXPECT_EQ(sketch().frame(), (Rect{0, 0, 200, 200}));
    EXPECT_EQ(sketch().glSketch()->bounds().size(), (Size{200, 200}));
    EXPECT_EQ(object().responseDisplay().canvas().width, 200);
    ui_->requestFrame(0);
    EXPECT_EQ(sketch().frame(), (Rect{4, 196, 54, 62}));
    EXPECT_EQ(object().responseDisplay().canvas().width, 54);
}

TEST_F(QVMGenericUISketch, AnEditorThatOpensInTheCompactFormHasTheCurveFillIt) {
    openAnew();
    ui_->requestFrame(QVMAltFrameCompact);
    time_.advance(1);
    EXPECT_EQ(sketch().frame(), (Rect{0, 0, 200, 200}));
}

TEST_F(QVMGenericUISketch, FollowsTheWindowsScale) {
    window_.setBackingScaleFactor(2);
    EXPECT_EQ(sketch().glSketch()->look().contentsScale(), 2);
    EXPECT_EQ(meter().glSketch()->look().contentsScale(), 2);
    EXPECT_EQ(object().responseDisplay().canvas().scale, 2);
    EXPECT_EQ(object().refCount, 2u);
}

TEST_F(QVMGenericUISketch, HandsItsObjectOverBeforeItTakesAnyValue) {
    openAnew();
    delegate_.unit[1] = 6;
    time_.advance(0.6);
    const std::uint32_t count = ui_->receivedParamUpdateCount();
    frame();
    EXPECT_THAT(delegate_.calls, ElementsAre("viz"));
    EXPECT_EQ(delegate_.vizRef, &object().sharedState);
    EXPECT_EQ(memoized(pidTiltGain), 0);
    EXPECT_EQ(ui_->receivedParamUpdateCount(), count);
    frame();
    EXPECT_EQ(memoized(pidTiltGain), 6);
    EXPECT_THAT(delegate_.calls, ElementsAre("viz")) << "once, and nothing is sent back";
    EXPECT_EQ(ui_->receivedParamUpdateCount(), count + 1);
}

TEST_F(QVMGenericUISketch, HandsItsObjectOverAgainWhenTheUnitLostIt) {
    delegate_.vizRef = nullptr;
    frame();
    EXPECT_THAT(delegate_.calls, ElementsAre("viz"));
}

TEST_F(QVMGenericUISketch, TheFirstGlideStartsFromWhatTheControlsShow) {
    openAnew();
    time_.advance(0.6);
    EXPECT_EQ(object().parameterStates()[pidFilterRangeHigh].displayValue, 24000);
    EXPECT_EQ(object().interpValues()[pidFilterRangeHigh], 24000);
}

TEST_F(QVMGenericUISketch, TheFirstGlideStartsWithinTheRangeWhateverWasSent) {
    for (const float sent : {1e35F, -1e35F}) {
        openAnew();
        ui_->setParameterValuePairs({{"TiltGain", sent}});
        time_.advance(0.6);
        EXPECT_LE(std::abs(object().parameterStates()[pidTiltGain].displayValue), 18);
    }
}

TEST_F(QVMGenericUISketch, TheCurveGlidesToAHostsChangeInSevenFrames) {
    hostSets(pidTiltGain, 6);
    EXPECT_GT(object().parameterStates()[pidTiltGain].displayValue, 0);
    EXPECT_LT(object().parameterStates()[pidTiltGain].displayValue, 6);
    for (int i = 0; i < 6; ++i)
        frame();
    EXPECT_EQ(object().parameterStates()[pidTiltGain].displayValue, 6);
}

TEST_F(QVMGenericUISketch, WithoutADelegateNothingIsAdopted) {
    ui_->setDelegate(nullptr);
    hostSets(pidTiltGain, 6);
    EXPECT_EQ(memoized(pidTiltGain), 0);
}

TEST_F(QVMGenericUISketch, IsToldTheFocusedParameter) {
    ui_->bringParameterControlIntoFocus(&control(pidFilterRangeLow));
    EXPECT_EQ(sketch().focusedPid(), pidFilterRangeLow);
    ui_->bringParameterControlIntoFocus(nullptr);
    EXPECT_EQ(sketch().focusedPid(), -1);
}

// A control with no parameter of the unit has the focus while the sketch is made.
TEST_F(QVMGenericUISketch, ComesWhateverWasClickedBefore) {
    for (const char* name : {"aButton", "bButton", "arrowButton"}) {
        openAnew();
        time_.advance(0.3);
        for (const auto& button : ui_->presetBar()->ab().subviews())
            if (button->layer()->name() == name) click(middleOf(*button));
        ASSERT_EQ(ui_->focusedControl(), &ui_->presetBar()->ab()) << name;
        time_.advance(0.3);
        ASSERT_NE(ui_->sketch(), nullptr) << name;
        EXPECT_EQ(sketch().focusedPid(), -1) << name;
    }
    openAnew();
    click(ui_->presetBar()->coordinates().toWindow(Point{320, 15})); // an arrow beside the preset's name
    ASSERT_EQ(ui_->focusedControl(), ui_->presetBar()->presetControl());
    time_.advance(0.6);
    EXPECT_EQ(sketch().focusedPid(), -1) << "the preset's number is no parameter of the unit";
}

TEST_F(QVMGenericUISketch, IsMadeForTheUnitsSampleRate) {
    EXPECT_EQ(object().sampleRate, 44100);
    delegate_.sampleRate = 96000;
    openAnew();
    time_.advance(0.6);
    EXPECT_EQ(object().sampleRate, 96000);
}

TEST_F(QVMGenericUISketch, IsToldTheParameterThatHadTheFocusBefore) {
    openAnew();
    ui_->bringParameterControlIntoFocus(&control(pidFilterRangeLow));
    time_.advance(0.6);
    EXPECT_EQ(sketch().focusedPid(), pidFilterRangeLow);
}

TEST_F(QVMGenericUISketch, AControlOfNoParameterHasNoPid) {
    ui_->bringParameterControlIntoFocus(&control(pidFilterRangeLow));
    ui_->bringParameterControlIntoFocus(ui_->presetBar()->presetControl());
    EXPECT_EQ(sketch().focusedPid(), -1);
    ui_->bringParameterControlIntoFocus(&control(pidFilterRangeLow));
    ui_->bringParameterControlIntoFocus(&ui_->presetBar()->ab());
    EXPECT_EQ(sketch().focusedPid(), -1);
}

TEST_F(QVMGenericUISketch, RestsWhileTheWindowIsHidden) {
    window_.setVisible(false);
    EXPECT_FALSE(ticks_.isStarted());
    hostSets(pidTiltGain, 6);
    EXPECT_EQ(memoized(pidTiltGain), 0);
    window_.setVisible(true);
    frame();
    EXPECT_EQ(memoized(pidTiltGain), 6);
}

TEST_F(QVMGenericUISketch, StopsWithTheEditor) {
    EXPECT_TRUE(ticks_.isStarted());
    window_.takeContentView().reset();
    ui_ = nullptr;
    EXPECT_FALSE(ticks_.isStarted());
}

} // namespace
} // namespace QVM_NAMESPACE
