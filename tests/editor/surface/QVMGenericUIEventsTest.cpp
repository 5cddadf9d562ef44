#include "editor/EditorFixture.h"

#include "controls/QVMRangeControl.h"
#include "controls/QVMSymbolButton.h"
#include "editor/surface/QVMLogoStamp.h"
#include "editor/surface/QVMPowerBox.h"

#include <gmock/gmock.h>

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
};

TEST_F(QVMGenericUIEvents, GesturesAreReportedAndRemembered) {
    EXPECT_EQ(ui_->interactionState(7), QVMInteractionDiscrete);
    interaction(7, QVMInteractionBegan);
    EXPECT_EQ(ui_->interactionState(7), QVMInteractionBegan);
    EXPECT_EQ(ui_->focusedControl(), &control(7));
    interaction(7, QVMInteractionEnded);
    interaction(7, QVMInteractionDiscrete);
    EXPECT_THAT(delegate_.calls, ElementsAre("began 7", "ended 7", "discrete 7"));
    EXPECT_EQ(ui_->interactionState(24), QVMInteractionDiscrete); // no such parameter
}

TEST_F(QVMGenericUIEvents, ADragOfARangesBandIsOneGestureOfEachEnd) {
    userSets(2, 100);
    userSets(3, 6400);
    frame();
    time_.advance(1);
    delegate_.calls.clear();
    const Point middle = middleOf(*control(3).range());
    window_.sendEvent(mouseEvent(EventType::mouseDown, middle));
    window_.sendEvent(mouseEvent(EventType::mouseDragged, {middle.x + 10, middle.y}));
    window_.sendEvent(mouseEvent(EventType::mouseUp, {middle.x + 10, middle.y}));
    for (const char* call : {"began 2", "began 3", "ended 2", "ended 3"})
        EXPECT_EQ(std::count(delegate_.calls.begin(), delegate_.calls.end(), call), 1) << call;
    EXPECT_GT(memoized(2), 100);
    EXPECT_GT(memoized(3), 6400);
}

TEST_F(QVMGenericUIEvents, APressBesideARangesBandIsOneGestureOfEachEndAndJumpsNeither) {
    userSets(2, 100);
    userSets(3, 6400);
    frame();
    time_.advance(1);
    const Rect strip = control(3).range()->convertToWindow(control(3).range()->bounds());
    for (const double x : {strip.minX() + 10, strip.minX() + 45, strip.maxX() - 45}) {
        delegate_.calls.clear();
        const float low = memoized(2), high = memoized(3);
        window_.sendEvent(mouseEvent(EventType::mouseDown, {x, strip.midY()}));
        frames(0.2);
        EXPECT_EQ(memoized(2), low) << x;
        EXPECT_EQ(memoized(3), high) << x;
        window_.sendEvent(mouseEvent(EventType::mouseDragged, {x + 5, strip.midY()}));
        window_.sendEvent(mouseEvent(EventType::mouseUp, {x + 5, strip.midY()}));
        frames(0.2);
        EXPECT_GT(memoized(2), low) << x;
        EXPECT_GT(memoized(3), high) << x;
        for (const char* call : {"began 2", "began 3", "ended 2", "ended 3"})
            EXPECT_EQ(std::count(delegate_.calls.begin(), delegate_.calls.end(), call), 1) << call << " at " << x;
        for (const std::uint32_t pid : {2u, 3u})
            EXPECT_FALSE(control(pid).handlingOutsideClick() || control(pid).range()->handlingOutsideClick()) << x;
    }
}

TEST_F(QVMGenericUIEvents, AnOptionClickOnABandResetsBothEndsInOneGestureOfEach) {
    userSets(2, 100);
    userSets(3, 6400);
    frame();
    time_.advance(1);
    delegate_.calls.clear();
    const Point middle = middleOf(*control(3).range());
    window_.sendEvent(mouseEvent(EventType::mouseDown, middle, EventModifier::option));
    window_.sendEvent(mouseEvent(EventType::mouseUp, middle, EventModifier::option));
    EXPECT_THAT(delegate_.calls, ElementsAre("began 3", "updated 3", "ended 3", "began 2", "updated 2", "ended 2"));
    EXPECT_EQ(memoized(2), GetParameter(2)->initialValue);
    EXPECT_EQ(memoized(3), GetParameter(3)->initialValue);
}

TEST_F(QVMGenericUIEvents, AControlClickForTheMenuHasBegunAndNeverEnds) {
    const Point middle = middleOf(control(7));
    window_.sendEvent(mouseEvent(EventType::mouseDown, middle, EventModifier::control));
    window_.sendEvent(mouseEvent(EventType::mouseUp, middle, EventModifier::control));
    EXPECT_THAT(delegate_.calls, ElementsAre("began 7"));
    EXPECT_EQ(ui_->focusedControl(), &control(7));
    control(7).primaryControl()->setPreventInteraction(true);
    window_.sendEvent(mouseEvent(EventType::mouseDown, middle, EventModifier::control));
    EXPECT_THAT(delegate_.calls, ElementsAre("began 7")) << "a disabled control tells nobody";
}

TEST_F(QVMGenericUIEvents, ARightClickForTheMenuBeginsNothing) {
    window_.sendEvent(mouseEvent(EventType::rightMouseDown, middleOf(control(7))));
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIEvents, TheMasterSwitchNeverTakesFocus) {
    ui_->bringParameterControlIntoFocus(&control(1));
    interaction(0, QVMInteractionBegan);
    EXPECT_EQ(ui_->focusedControl(), &control(1));
}

TEST_F(QVMGenericUIEvents, OneControlAtATimeShowsFocus) {
    ui_->bringParameterControlIntoFocus(&control(1));
    ui_->bringParameterControlIntoFocus(&control(7));
    EXPECT_FALSE(control(1).focused());
    EXPECT_TRUE(control(7).focused());
    ui_->bringParameterControlIntoFocus(nullptr);
    EXPECT_FALSE(control(7).focused());
}

TEST_F(QVMGenericUIEvents, AClickBesideTheControlsClearsFocus) {
    ui_->bringParameterControlIntoFocus(&control(1));
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
    ui_->bringParameterControlIntoFocus(&control(7));
    window_.setKeyWindow(false);
    EXPECT_EQ(ui_->powerBox()->logoStamp().alpha(), 0.5);
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    window_.setKeyWindow(true);
    EXPECT_EQ(ui_->powerBox()->logoStamp().alpha(), 1);
    EXPECT_EQ(ui_->focusedControl(), &control(7));
    EXPECT_TRUE(ui_->hasFocus());
}

TEST_F(QVMGenericUIEvents, TheClickThatBringsTheWindowBackChoosesTheFocus) {
    window_.setKeyWindow(true);
    ui_->bringParameterControlIntoFocus(&control(7));
    window_.setKeyWindow(false);
    click(middleOf(*control(13).primaryControl()));
    EXPECT_TRUE(window_.isKeyWindow());
    EXPECT_EQ(ui_->focusedControl(), &control(13));
}

TEST_F(QVMGenericUIEvents, AFocusInTheHiddenDrawerIsNotGivenBack) {
    window_.setKeyWindow(true);
    ui_->gearTapped();
    ui_->bringParameterControlIntoFocus(&control(14));
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
