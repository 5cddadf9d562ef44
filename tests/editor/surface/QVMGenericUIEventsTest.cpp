#include "editor/EditorFixture.h"

#include "controls/QVMRangeControl.h"
#include "controls/QVMSymbolButton.h"
#include "editor/surface/QVMLogoStamp.h"
#include "editor/surface/QVMPowerBox.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QVMGenericUIEvents : public EditorFixture {
protected:
    void interaction(std::uint32_t pid, QVMInteraction state) {
        QVMFloatControl* inner = control(pid).primaryControl();
        inner->delegate()->floatControlInteractionDidChangeToEvent(*inner, state, nullptr);
    }
    // The tilt's band, with room on both sides, and nothing reported of how it came to that.
    void narrowTheBand() {
        userSets(pidTiltRangeLow, 100);
        userSets(pidTiltRangeHigh, 6400);
        frame();
        time_.advance(1);
        delegate_.calls.clear();
    }
    void expectOneGestureOfEachEnd(double pressedAt) {
        for (const char* call : {"began 2", "began 3", "ended 2", "ended 3"})
            EXPECT_EQ(std::ranges::count(delegate_.calls, call), 1) << call << " at " << pressedAt;
    }
};

TEST_F(QVMGenericUIEvents, GesturesAreReportedAndRemembered) {
    EXPECT_EQ(ui_->interactionState(pidOutputGain), QVMInteractionDiscrete);
    interaction(pidOutputGain, QVMInteractionBegan);
    EXPECT_EQ(ui_->interactionState(pidOutputGain), QVMInteractionBegan);
    EXPECT_EQ(ui_->focusedControl(), &control(pidOutputGain));
    interaction(pidOutputGain, QVMInteractionEnded);
    interaction(pidOutputGain, QVMInteractionDiscrete);
    EXPECT_THAT(delegate_.calls, ElementsAre("began 7", "ended 7", "discrete 7"));
    EXPECT_EQ(ui_->interactionState(24), QVMInteractionDiscrete); // no such parameter
}

TEST_F(QVMGenericUIEvents, ADragOfARangesBandIsOneGestureOfEachEnd) {
    narrowTheBand();
    const Point middle = middleOf(*control(pidTiltRangeHigh).range());
    window_.sendEvent(mouseEvent(EventType::mouseDown, middle));
    window_.sendEvent(mouseEvent(EventType::mouseDragged, {middle.x + 10, middle.y}));
    window_.sendEvent(mouseEvent(EventType::mouseUp, {middle.x + 10, middle.y}));
    expectOneGestureOfEachEnd(middle.x);
    EXPECT_GT(memoized(pidTiltRangeLow), 100);
    EXPECT_GT(memoized(pidTiltRangeHigh), 6400);
}

TEST_F(QVMGenericUIEvents, APressBesideARangesBandIsOneGestureOfEachEndAndJumpsNeither) {
    narrowTheBand();
    const Rect strip =
        control(pidTiltRangeHigh).range()->coordinates().toWindow(control(pidTiltRangeHigh).range()->bounds());
    for (const double x : {strip.minX() + 10, strip.minX() + 45, strip.maxX() - 45}) {
        delegate_.calls.clear();
        const float low = memoized(pidTiltRangeLow), high = memoized(pidTiltRangeHigh);
        window_.sendEvent(mouseEvent(EventType::mouseDown, {x, strip.midY()}));
        frames(0.2);
        EXPECT_EQ(memoized(pidTiltRangeLow), low) << x;
        EXPECT_EQ(memoized(pidTiltRangeHigh), high) << x;
        window_.sendEvent(mouseEvent(EventType::mouseDragged, {x + 5, strip.midY()}));
        window_.sendEvent(mouseEvent(EventType::mouseUp, {x + 5, strip.midY()}));
        frames(0.2);
        EXPECT_GT(memoized(pidTiltRangeLow), low) << x;
        EXPECT_GT(memoized(pidTiltRangeHigh), high) << x;
        expectOneGestureOfEachEnd(x);
        for (const std::uint32_t pid : {pidTiltRangeLow, pidTiltRangeHigh})
            EXPECT_FALSE(control(pid).handlingOutsideClick() || control(pid).range()->handlingOutsideClick()) << x;
    }
}

TEST_F(QVMGenericUIEvents, AnOptionClickOnABandResetsBothEndsInOneGestureOfEach) {
    narrowTheBand();
    const Point middle = middleOf(*control(pidTiltRangeHigh).range());
    window_.sendEvent(mouseEvent(EventType::mouseDown, middle, EventModifier::option));
    window_.sendEvent(mouseEvent(EventType::mouseUp, middle, EventModifier::option));
    EXPECT_THAT(delegate_.calls, ElementsAre("began 3", "updated 3", "ended 3", "began 2", "updated 2", "ended 2"));
    EXPECT_EQ(memoized(pidTiltRangeLow), GetParameter(pidTiltRangeLow)->initialValue);
    EXPECT_EQ(memoized(pidTiltRangeHigh), GetParameter(pidTiltRangeHigh)->initialValue);
}

TEST_F(QVMGenericUIEvents, AControlClickForTheMenuHasBegunAndNeverEnds) {
    const Point middle = middleOf(control(pidOutputGain));
    window_.sendEvent(mouseEvent(EventType::mouseDown, middle, EventModifier::control));
    window_.sendEvent(mouseEvent(EventType::mouseUp, middle, EventModifier::control));
    EXPECT_THAT(delegate_.calls, ElementsAre("began 7"));
    EXPECT_EQ(ui_->focusedControl(), &control(pidOutputGain));
    control(pidOutputGain).primaryControl()->setPreventInteraction(true);
    window_.sendEvent(mouseEvent(EventType::mouseDown, middle, EventModifier::control));
    EXPECT_THAT(delegate_.calls, ElementsAre("began 7")) << "a disabled control tells nobody";
}

TEST_F(QVMGenericUIEvents, ARightClickForTheMenuBeginsNothing) {
    window_.sendEvent(mouseEvent(EventType::rightMouseDown, middleOf(control(pidOutputGain))));
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIEvents, TheMasterSwitchNeverTakesFocus) {
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    interaction(pidMasterOnOff, QVMInteractionBegan);
    EXPECT_EQ(ui_->focusedControl(), &control(pidTiltGain));
}

TEST_F(QVMGenericUIEvents, OneControlAtATimeShowsFocus) {
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    ui_->bringParameterControlIntoFocus(&control(pidOutputGain));
    EXPECT_FALSE(control(pidTiltGain).focused());
    EXPECT_TRUE(control(pidOutputGain).focused());
    ui_->bringParameterControlIntoFocus(nullptr);
    EXPECT_FALSE(control(pidOutputGain).focused());
}

TEST_F(QVMGenericUIEvents, AClickBesideTheControlsClearsFocus) {
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    click({10, 15}); // in the preset bar
    EXPECT_EQ(ui_->focusedControl(), nullptr);
}

TEST_F(QVMGenericUIEvents, TheEditorIsFirstResponderInItsWindow) {
    EXPECT_EQ(window_.firstResponder(), ui_);
}

TEST_F(QVMGenericUIEvents, IsFirstResponderAgainWhenItsWindowComesToTheFront) {
    window_.makeFirstResponder(nullptr);
    ASSERT_NE(window_.firstResponder(), ui_);
    NotificationCenter::defaultCenter().post({Window::didBecomeKeyNotification, &window_, {}});
    EXPECT_EQ(window_.firstResponder(), ui_);
}

TEST_F(QVMGenericUIEvents, LosingTheKeyWindowFadesTheLogoAndRemembersTheFocus) {
    window_.setKeyWindow(true);
    ui_->bringParameterControlIntoFocus(&control(pidOutputGain));
    window_.setKeyWindow(false);
    EXPECT_EQ(ui_->powerBox()->logoStamp().alpha(), 0.5);
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    window_.setKeyWindow(true);
    EXPECT_EQ(ui_->powerBox()->logoStamp().alpha(), 1);
    EXPECT_EQ(ui_->focusedControl(), &control(pidOutputGain));
    EXPECT_TRUE(ui_->hasFocus());
}

TEST_F(QVMGenericUIEvents, TheClickThatBringsTheWindowBackChoosesTheFocus) {
    window_.setKeyWindow(true);
    ui_->bringParameterControlIntoFocus(&control(pidOutputGain));
    window_.setKeyWindow(false);
    click(middleOf(*control(pidFilterListenLow).primaryControl()));
    EXPECT_TRUE(window_.isKeyWindow());
    EXPECT_EQ(ui_->focusedControl(), &control(pidFilterListenLow));
}

TEST_F(QVMGenericUIEvents, AFocusInTheHiddenDrawerIsNotGivenBack) {
    window_.setKeyWindow(true);
    ui_->gearTapped();
    ui_->bringParameterControlIntoFocus(&control(pidFilterSlopeLow));
    window_.setKeyWindow(false);
    ui_->gearTapped();
    window_.setKeyWindow(true);
    EXPECT_EQ(ui_->focusedControl(), nullptr);
}

TEST_F(QVMGenericUIEvents, PreferenceNotificationsReachTheDelegate) {
    ui_->updateLayoutKeyNumerical(3, 7);
    NotificationCenter::defaultCenter().post(QVMGenericUI::preferencesSavedNotification, nullptr);
    EXPECT_THAT(delegate_.calls, ElementsAre("preference 3 7", "layout"));
}

TEST_F(QVMGenericUIEvents, APreferenceWithoutItsNumbersIsIgnored) {
    NotificationCenter::defaultCenter().post(QVMGenericUI::preferenceNotification, nullptr);
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIEvents, TheMeterIsResetThroughTheDelegate) {
    ui_->meterTapped();
    EXPECT_THAT(delegate_.calls, ElementsAre("reset metering"));
}

} // namespace
} // namespace QVM_NAMESPACE
