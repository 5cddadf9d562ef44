// The parameter control: values in and out, clicks beside the inner control, dimming.
#include "controls/ParameterControlBench.h"
#include "platform/runloop/RunLoop.h"
#include "platform/view/Window.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Bench = ParameterControlBench;

constexpr Rect kFrame = {0, 26, 321, 56};

TEST(QVMParameterControl, TheInnerControlStandsInTheParametersFrameAndShowsTheFirstValue) {
    Bench b(parameterLike(pidTiltGain), 4.5f);
    EXPECT_EQ(b.control.primaryControl()->frame(), (Rect{30, 2, 260, 54}));
    EXPECT_EQ(b.control.controlFrame(), (Rect{30, 2, 260, 54}));
    EXPECT_FLOAT_EQ(b.control.floatValue(), 4.5f);
    EXPECT_EQ(b.readout(), "4.5\uE803");
    EXPECT_EQ(b.control.toolTip(), "Tilt Gain");
    EXPECT_FALSE(b.control.layer()->masksToBounds());
    EXPECT_THAT(b.values, IsEmpty());
}

TEST(QVMParameterControl, WithoutAFrameOfItsOwnTheInnerControlFillsTheBounds) {
    Bench b(parameterLike(pidTiltGain, [](QVMParameter& p) { p.controlFrame = {}; }));
    EXPECT_EQ(b.control.primaryControl()->frame(), (Rect{0, 0, 321, 56}));
}

TEST(QVMParameterControl, AnUnknownTypeAndAMissingParameterShowNothingAndForwardToNothing) {
    Bench unknown(parameterLike(pidTiltGain, [](QVMParameter& p) { p.controlType = 42; }));
    QVMParameterControl none(kFrame, {}, nullptr, 3);
    for (QVMParameterControl* control : {&unknown.control, &none}) {
        EXPECT_EQ(control->primaryControl(), nullptr);
        control->setFloatValue(3);
        control->setStringValue("3");
        control->setFocused(true);
        control->setTransientStringValue("3");
        control->setDimmedDelayPriorityKey(true, 0, 10, "A");
        EXPECT_FALSE(control->incrementWithArrowGranularity(Key::up, 0));
        EXPECT_FALSE(control->toggleBooleanControl());
        EXPECT_FALSE(control->tap());
        EXPECT_FALSE(control->acceptsTransientStringBuffers());
        press(*control, {5, 5});
        release(*control, {5, 5});
        EXPECT_FLOAT_EQ(control->floatValue(), 0);
    }
    EXPECT_EQ(none.controlFrame(), Rect{});
}

TEST(QVMParameterControl, ItIsDimmedUntilTheLastHoldIsReleased) {
    Bench b(parameterLike(pidFilterSlopeLow), 12);
    b.control.setDimmedDelayPriorityKey(true, 0, 10, "A");
    b.control.setDimmedDelayPriorityKey(true, 0, 1000, "B");
    EXPECT_TRUE(b.control.isDimmed());
    EXPECT_TRUE(b.control.primaryControl()->dimmed());
    EXPECT_DOUBLE_EQ(b.control.alpha(), 0.2);
    EXPECT_DOUBLE_EQ(b.control.layer()->presentation().opacity, 1); // it fades from here
    b.time.advance(1);
    EXPECT_DOUBLE_EQ(b.control.layer()->presentation().opacity, 0.2);
    EXPECT_EQ(b.control.dimHolds().at("B"), 1000u);
    b.control.setDimmedDelayPriorityKey(false, 0, 10, "A");
    EXPECT_TRUE(b.control.isDimmed());
    EXPECT_DOUBLE_EQ(b.control.alpha(), 0.2);
    b.control.setDimmedDelayPriorityKey(false, 0, 10, "never held");
    EXPECT_DOUBLE_EQ(b.control.alpha(), 0.2);
    b.control.setDimmedDelayPriorityKey(false, 0, 10, "B");
    EXPECT_FALSE(b.control.isDimmed());
    EXPECT_FALSE(b.control.primaryControl()->dimmed());
    EXPECT_DOUBLE_EQ(b.control.alpha(), 1);
    b.time.advance(1);
    EXPECT_DOUBLE_EQ(b.control.layer()->presentation().opacity, 1);
}

TEST(QVMParameterControl, OtherClicksArePassedOnButNotADoubleClick) {
    struct Listener : Responder {
        int downs = 0;
        void mouseDown(const Event&) override { ++downs; }
    } next;
    Bench b(parameterLike(pidTiltGain));
    b.control.setNextResponder(&next);
    for (const int clicks : {1, 2, 3}) {
        b.control.mouseDown(clickAt(b.control, {5, 5}, clicks));
        EXPECT_EQ(next.downs, clicks == 1 ? 1 : clicks - 1);
    }
    b.control.setNextResponder(nullptr);
}

TEST(QVMParameterControl, AnImmutableValueIsShownWhateverIsPushedIn) {
    Bench b(parameterLike(pidTiltGain), 1);
    b.control.setImmutableFloatValue(3);
    for (const float pushed : {-18.0f, 0.0f, 12.0f}) {
        b.control.setFloatValue(pushed);
        EXPECT_FLOAT_EQ(b.control.floatValue(), 3);
        EXPECT_EQ(b.readout(), "3.0\uE803");
    }
}

TEST(QVMParameterControl, PushedValuesAreNormalisedAtTheFineStepAndSendNothing) {
    Bench b(parameterLike(pidTiltGain));
    b.control.setFloatValue(4.5678f);
    EXPECT_NEAR(b.control.floatValue(), 4.6f, 1e-5);
    b.control.setFloatValue(1000);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 18);
    b.control.setFloatValue(std::numeric_limits<float>::quiet_NaN());
    EXPECT_FLOAT_EQ(b.control.floatValue(), -18);
    EXPECT_THAT(b.values, IsEmpty());
}

TEST(QVMParameterControl, EqualValuesAreAppliedAgainUntilTheUserHasTakenControl) {
    Bench b(parameterLike(pidTiltGain), 3);
    QVMVerticalSlider& slider = b.slider();
    slider.readoutBulb()->setPosition({0, 0});
    b.control.setFloatValue(3);
    EXPECT_DOUBLE_EQ(slider.handleValue(), slider.idealHandleValue());
    slider.reportInterfaceInitiatedValueChange();
    slider.readoutBulb()->setPosition({0, 0});
    b.control.setFloatValue(3);
    EXPECT_DOUBLE_EQ(slider.handleValue(), 0);
}

TEST(QVMParameterControl, EveryChangeInsideLeavesAsItsOwnAction) {
    Bench b(parameterLike(pidTiltGain));
    press(b.slider(), {256, 33});
    release(b.slider(), {256, 33});
    EXPECT_THAT(b.values, ElementsAre(18));
    EXPECT_THAT(b.reports, ElementsAre("began", "ended"));
    b.control.incrementWithArrowGranularity(Key::left, 0);
    EXPECT_THAT(b.values, ElementsAre(18, 17.5f));
    EXPECT_THAT(b.reports, ElementsAre("began", "ended", "discrete"));
}

TEST(QVMParameterControl, AGestureBesideTheInnerControlReachesIt) {
    Bench b(parameterLike(pidTiltGain));
    press(b.control, {300, 30}); // right of the slider, which ends at 290
    EXPECT_TRUE(b.control.handlingOutsideClick());
    EXPECT_FLOAT_EQ(b.control.floatValue(), 18);
    drag(b.control, {30 + 130, 30});
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0);
    release(b.control, {30 + 130, 30});
    EXPECT_FALSE(b.control.handlingOutsideClick());
    EXPECT_THAT(b.reports, ElementsAre("began", "ended"));
}

TEST(QVMParameterControl, AGestureBesideTheInnerControlWhoseReleaseGotLostEndsWithTheNextPress) {
    Bench b(parameterLike(pidTiltGain));
    press(b.control, {300, 30});
    b.control.mouseDown(clickAt(b.control, {300, 30}, 2));
    EXPECT_FALSE(b.control.handlingOutsideClick());
    drag(b.control, {30 + 130, 30});
    EXPECT_FLOAT_EQ(b.control.floatValue(), 18) << "a double-click types, it does not drag";
}

TEST(QVMParameterControl, AClickThatTheInnerControlPassesOnIsNotHandledTwice) {
    Bench b(parameterLike(pidTiltGain));
    press(b.slider(), {256, 33});
    EXPECT_FALSE(b.control.handlingOutsideClick());
    EXPECT_THAT(b.reports, ElementsAre("began"));
    drag(b.control, {30 + 130, 30}); // not under way here
    EXPECT_FLOAT_EQ(b.control.floatValue(), 18);
}

TEST(QVMParameterControl, OnlyTwoStateParametersToggle) {
    Bench gain(parameterLike(pidTiltGain));
    EXPECT_FALSE(gain.control.toggleBooleanControl());
    for (const std::uint32_t pid : {13u, 23u}) { // a switch, and an index of two
        Bench b(parameterLike(pid));
        EXPECT_TRUE(b.control.toggleBooleanControl());
        EXPECT_FLOAT_EQ(b.control.floatValue(), 1);
        EXPECT_TRUE(b.control.toggleBooleanControl());
        EXPECT_FLOAT_EQ(b.control.floatValue(), 0);
        EXPECT_THAT(b.values, ElementsAre(1, 0));
        EXPECT_THAT(b.reports, ElementsAre("discrete", "discrete"));
    }
    EXPECT_FALSE(Bench(parameterLike(pidTiltLoudnessMode)).control.toggleBooleanControl()); // an index of four
}

TEST(QVMParameterControl, AQuickSecondTapSetsZero) {
    Bench b(parameterLike(pidTiltGain, [](QVMParameter& p) { p.tap = "tempo"; }), 6);
    EXPECT_DOUBLE_EQ(b.control.lastTap(), 0);
    EXPECT_TRUE(b.control.tap());
    EXPECT_FLOAT_EQ(b.control.floatValue(), 6);
    b.time.advance(5);
    EXPECT_TRUE(b.control.tap());
    EXPECT_FLOAT_EQ(b.control.floatValue(), 6);
    b.time.advance(4.9);
    EXPECT_TRUE(b.control.tap());
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0);
    b.control.primaryControl()->setPreventInteraction(true);
    EXPECT_FALSE(b.control.tap());
    EXPECT_FALSE(Bench(parameterLike(pidTiltGain)).control.tap());
}

TEST(QVMParameterControl, WhatTheInnerControlReportsIsReportedOn) {
    Bench b(parameterLike(pidTiltGain), -2.5f);
    QVMFloatControl& inner = b.slider();
    inner.contextMenuDoStaticConversion();
    inner.contextMenuRequestedDocumentation();
    b.control.floatControlDidTapMeaninglessly(inner);
    b.control.floatControlWantsToDisplayModal(inner, inner);
    b.control.floatControlWantsToChangeMultipleValuesMotion(inner, {}, 0);
    b.control.floatControlDidPerformMetaActionWithEvent(inner, 0, nullptr);
    EXPECT_THAT(b.reports, ElementsAre("convert -2", "document", "meaningless", "modal"));
}

TEST(QVMParameterControl, TheTooltipCanBeSwitchedOff) {
    Bench b(parameterLike(pidTiltGain));
    b.control.toggleTooltip(false);
    EXPECT_EQ(b.control.toolTip(), "");
    b.control.toggleTooltip(true);
    EXPECT_EQ(b.control.toolTip(), "Tilt Gain");
}

TEST(QVMParameterControl, AnotherThemeRecoloursTheSlider) {
    Bench b(parameterLike(pidTiltGain));
    EXPECT_EQ(b.slider().background()->look().backgroundColor(), QVMPalette::light().trackFill);
    const DarkTheme dark;
    EXPECT_EQ(b.slider().background()->look().backgroundColor(), QVMPalette::dark().trackFill);
    EXPECT_THAT(b.values, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
