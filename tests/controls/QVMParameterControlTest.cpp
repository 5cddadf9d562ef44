// The parameter control: values in and out, typed text, clicks beside the inner control, dimming.
#include "controls/QVMParameterControl.h"

#include "controls/Gestures.h"
#include "controls/QVMVerticalSlider.h"
#include "platform/RunLoop.h"
#include "platform/VirtualTime.h"
#include "platform/Window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Rect kFrame = {0, 26, 321, 56};

// A lone parameter control with a record of what reaches its owner.
class Bench : public QVMParameterControlDelegate {
public:
    explicit Bench(QVMParameter p, float value = 0) : parameter(std::move(p)), control(kFrame, {}, &parameter, value) {
        control.setDelegate(this);
        control.setAction([this](Control& sender) { values.push_back(sender.floatValue()); });
    }
    void parameterControlDidChangeInteractionStateEvent(QVMParameterControl& sender, QVMInteraction state,
                                                        const Event*) override {
        EXPECT_EQ(&sender, &control);
        static const char* const names[] = {"began", "ended", "discrete"};
        reports.push_back(names[state]);
    }
    void parameterControlHasRequestedDocumentation(QVMParameterControl&) override { reports.push_back("document"); }
    void parameterControlDidTapMeaninglessly(QVMParameterControl&) override { reports.push_back("meaningless"); }
    void parameterControlWantsToPerformStaticConversion(QVMParameterControl&, std::int32_t value) override {
        reports.push_back("convert " + std::to_string(value));
    }
    void parameterControlWantsToDisplayModal(QVMParameterControl&, View&) override { reports.push_back("modal"); }

    QVMVerticalSlider& slider() { return dynamic_cast<QVMVerticalSlider&>(*control.primaryControl()); }
    std::string readout() { return slider().readout()->string().string(); }

    VirtualTime time;
    QVMParameter parameter;
    QVMParameterControl control;
    std::vector<float> values;
    std::vector<std::string> reports;
};

Event clickAt(const View& view, Point point, int clicks) {
    Event event = eventAt(EventType::mouseDown, view, point);
    event.clickCount = clicks;
    return event;
}

TEST(QVMParameterControl, TheInnerControlStandsInTheParametersFrameAndShowsTheFirstValue) {
    Bench b(parameterLike(1), 4.5f);
    EXPECT_EQ(b.control.primaryControl()->frame(), (Rect{30, 2, 260, 54}));
    EXPECT_EQ(b.control.controlFrame(), (Rect{30, 2, 260, 54}));
    EXPECT_FLOAT_EQ(b.control.floatValue(), 4.5f);
    EXPECT_EQ(b.readout(), "4.5\uE803");
    EXPECT_EQ(b.control.toolTip(), "Tilt Gain");
    EXPECT_FALSE(b.control.layer()->masksToBounds());
    EXPECT_THAT(b.values, IsEmpty());
}

TEST(QVMParameterControl, WithoutAFrameOfItsOwnTheInnerControlFillsTheBounds) {
    Bench b(parameterLike(1, [](QVMParameter& p) { p.controlFrame = {}; }));
    EXPECT_EQ(b.control.primaryControl()->frame(), (Rect{0, 0, 321, 56}));
}

TEST(QVMParameterControl, AnUnknownTypeAndAMissingParameterShowNothingAndForwardToNothing) {
    Bench unknown(parameterLike(1, [](QVMParameter& p) { p.controlType = 42; }));
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

TEST(QVMParameterControl, TypingOnePointFiveWithACommaAndKSetsFifteenHundred) {
    Bench b(parameterLike(2), 20);
    b.control.setStringValue("1,5k");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 1500);
    b.control.setStringValue("2.2k");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 2200);
    EXPECT_THAT(b.values, ElementsAre(1500, 2200));
    EXPECT_THAT(b.reports, ElementsAre("discrete", "discrete"));
}

TEST(QVMParameterControl, TypingWhatIsNoNumberSetsZero) {
    Bench b(parameterLike(1), 6);
    for (const char* odd : {"abc", "", "-", "1.2.3", "inf", "nan", "k", "1e3", "0x10", " 5"}) {
        b.control.setFloatValue(6);
        b.control.setStringValue(odd);
        EXPECT_FLOAT_EQ(b.control.floatValue(), 0) << odd;
    }
    b.control.setStringValue("-4.5");
    EXPECT_FLOAT_EQ(b.control.floatValue(), -4.5f);
    b.control.setStringValue(".5");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0.5f);
}

TEST(QVMParameterControl, TypedValuesBeyondTheRangeStopAtItsEnds) {
    Bench b(parameterLike(2), 20);
    b.control.setStringValue("abc");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 10);
    b.control.setStringValue("99k");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 24000);
}

TEST(QVMParameterControl, WithTextEntryNumbersTheIndexOfTheNearestIsTheValue) {
    Bench b(parameterLike(1, [](QVMParameter& p) { p.textEntryNumbers = {0.5, 1, 2}; }));
    b.control.setStringValue("1.4");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 1);
    b.control.setStringValue("0.75"); // 0.5 and 1 are equally near: the first
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0);
    b.control.setStringValue("9");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 2);
    Bench empty(parameterLike(1, [](QVMParameter& p) { p.textEntryNumbers.emplace(); }), 6);
    empty.control.setStringValue("7");
    EXPECT_FLOAT_EQ(empty.control.floatValue(), 0);
}

TEST(QVMParameterControl, ItIsDimmedUntilTheLastHoldIsReleased) {
    Bench b(parameterLike(14), 12);
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

TEST(QVMParameterControl, ADoubleClickOnAnUnfocusedControlDoesNothingVisible) {
    Bench b(parameterLike(1), 3);
    b.control.mouseDown(clickAt(b.control, {5, 5}, 2));
    EXPECT_EQ(b.readout(), "3.0\uE803");
    EXPECT_FALSE(b.slider().displayingTransientBufferValue());
    EXPECT_TRUE(b.slider().readoutBorder()->isHidden());
    EXPECT_THAT(b.values, IsEmpty());
}

TEST(QVMParameterControl, ADoubleClickOnAFocusedControlOpensAnEmptyField) {
    Bench b(parameterLike(1), 3);
    b.control.setFocused(true);
    EXPECT_TRUE(b.slider().highlit());
    const Point handle = b.slider().readoutBulb()->position();
    b.slider().mouseDown(clickAt(b.slider(), handle, 2)); // passed on by the inner control
    EXPECT_TRUE(b.slider().displayingTransientBufferValue());
    EXPECT_EQ(b.readout(), "");
    EXPECT_FALSE(b.slider().readoutBorder()->isHidden());
}

TEST(QVMParameterControl, OtherClicksArePassedOnButNotADoubleClick) {
    struct Listener : Responder {
        int downs = 0;
        void mouseDown(const Event&) override { ++downs; }
    } next;
    Bench b(parameterLike(1));
    b.control.setNextResponder(&next);
    for (const int clicks : {1, 2, 3}) {
        b.control.mouseDown(clickAt(b.control, {5, 5}, clicks));
        EXPECT_EQ(next.downs, clicks == 1 ? 1 : clicks - 1);
    }
    b.control.setNextResponder(nullptr);
}

TEST(QVMParameterControl, TypedTextShowsOnlyWhileFocusedAndIsDiscardedWithTheFocus) {
    Bench b(parameterLike(1), 3);
    EXPECT_TRUE(b.control.acceptsTransientStringBuffers());
    b.control.setTransientStringValue("-1");
    EXPECT_EQ(b.readout(), "3.0\uE803");
    b.control.setFocused(true);
    b.control.setTransientStringValue("-1");
    EXPECT_EQ(b.readout(), "-1");
    b.control.setFloatValue(5); // the host moves on; what is typed stays
    EXPECT_EQ(b.readout(), "-1");
    b.control.setFocused(false);
    EXPECT_EQ(b.readout(), "5.0\uE803");
    EXPECT_FALSE(b.slider().displayingTransientBufferValue());
    EXPECT_FALSE(b.slider().highlit());
}

TEST(QVMParameterControl, CommittingTypedTextEndsItsDisplay) {
    Bench b(parameterLike(1), 3);
    b.control.setFocused(true);
    b.control.setTransientStringValue("7");
    b.control.setStringValue("7");
    EXPECT_FALSE(b.slider().displayingTransientBufferValue());
    EXPECT_EQ(b.readout(), "7.0\uE803");
}

TEST(QVMParameterControl, AnImmutableValueIsShownWhateverIsPushedIn) {
    Bench b(parameterLike(1), 1);
    b.control.setImmutableFloatValue(3);
    for (const float pushed : {-18.0f, 0.0f, 12.0f}) {
        b.control.setFloatValue(pushed);
        EXPECT_FLOAT_EQ(b.control.floatValue(), 3);
        EXPECT_EQ(b.readout(), "3.0\uE803");
    }
}

TEST(QVMParameterControl, PushedValuesAreNormalisedAtTheFineStepAndSendNothing) {
    Bench b(parameterLike(1));
    b.control.setFloatValue(4.5678f);
    EXPECT_NEAR(b.control.floatValue(), 4.6f, 1e-5);
    b.control.setFloatValue(1000);
    EXPECT_FLOAT_EQ(b.control.floatValue(), 18);
    b.control.setFloatValue(std::numeric_limits<float>::quiet_NaN());
    EXPECT_FLOAT_EQ(b.control.floatValue(), -18);
    EXPECT_THAT(b.values, IsEmpty());
}

TEST(QVMParameterControl, EqualValuesAreAppliedAgainUntilTheUserHasTakenControl) {
    Bench b(parameterLike(1), 3);
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
    Bench b(parameterLike(1));
    press(b.slider(), {256, 33});
    release(b.slider(), {256, 33});
    EXPECT_THAT(b.values, ElementsAre(18));
    EXPECT_THAT(b.reports, ElementsAre("began", "ended"));
    b.control.incrementWithArrowGranularity(Key::left, 0);
    EXPECT_THAT(b.values, ElementsAre(18, 17.5f));
    EXPECT_THAT(b.reports, ElementsAre("began", "ended", "discrete"));
}

TEST(QVMParameterControl, AGestureBesideTheInnerControlReachesIt) {
    Bench b(parameterLike(1));
    press(b.control, {300, 30}); // right of the slider, which ends at 290
    EXPECT_TRUE(b.control.handlingOutsideClick());
    EXPECT_FLOAT_EQ(b.control.floatValue(), 18);
    drag(b.control, {30 + 130, 30});
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0);
    release(b.control, {30 + 130, 30});
    EXPECT_FALSE(b.control.handlingOutsideClick());
    EXPECT_THAT(b.reports, ElementsAre("began", "ended"));
}

TEST(QVMParameterControl, AClickThatTheInnerControlPassesOnIsNotHandledTwice) {
    Bench b(parameterLike(1));
    press(b.slider(), {256, 33});
    EXPECT_FALSE(b.control.handlingOutsideClick());
    EXPECT_THAT(b.reports, ElementsAre("began"));
    drag(b.control, {30 + 130, 30}); // not under way here
    EXPECT_FLOAT_EQ(b.control.floatValue(), 18);
}

TEST(QVMParameterControl, OnlyTwoStateParametersToggle) {
    Bench gain(parameterLike(1));
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
    EXPECT_FALSE(Bench(parameterLike(6)).control.toggleBooleanControl()); // an index of four
}

TEST(QVMParameterControl, AQuickSecondTapSetsZero) {
    Bench b(parameterLike(1, [](QVMParameter& p) { p.tap = "tempo"; }), 6);
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
    EXPECT_FALSE(Bench(parameterLike(1)).control.tap());
}

TEST(QVMParameterControl, WhatTheInnerControlReportsIsReportedOn) {
    Bench b(parameterLike(1), -2.5f);
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
    Bench b(parameterLike(1));
    b.control.toggleTooltip(false);
    EXPECT_EQ(b.control.toolTip(), "");
    b.control.toggleTooltip(true);
    EXPECT_EQ(b.control.toolTip(), "Tilt Gain");
}

TEST(QVMParameterControl, AnotherThemeRecoloursTheSlider) {
    Bench b(parameterLike(1));
    EXPECT_EQ(b.slider().background()->backgroundColor(), QVMPalette::light().trackFill);
    const DarkTheme dark;
    EXPECT_EQ(b.slider().background()->backgroundColor(), QVMPalette::dark().trackFill);
    EXPECT_THAT(b.values, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
