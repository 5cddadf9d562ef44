#include "EditorFixture.h"

#include "controls/QVMVerticalSlider.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::IsEmpty;

class QVMKeyboardHandlerTest : public EditorFixture {
protected:
    void focus(std::uint32_t pid) { ui_->bringParameterControlIntoFocus(&control(pid)); }
    std::uint32_t focusedPid() const { return ui_->focusedControl()->parameter()->pid; }
    const std::string& buffer() { return ui_->keyboard().numberBuffer(); }
    void type(std::string_view text) {
        for (const char c : text)
            key(static_cast<char32_t>(c));
    }
    bool tab(std::uint32_t modifiers = 0) { return key(0, Key::codeTab, modifiers); }
    bool arrow(char32_t which, std::uint32_t modifiers = 0) {
        return ui_->keyboard().handlePerformKeyEquivalent(keyEvent(which, 0, modifiers | EventModifier::numericPad));
    }
};

TEST_F(QVMKeyboardHandlerTest, WithoutFocusNoKeyIsHandled) {
    EXPECT_FALSE(key(U'5'));
    EXPECT_FALSE(tab());
    EXPECT_FALSE(key(0, Key::codeEscape));
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, AMinusIsAcceptedOnlyAsTheFirstCharacter) {
    focus(1);
    EXPECT_TRUE(key(U'-'));
    EXPECT_FALSE(key(U'-'));
    EXPECT_TRUE(key(U'3'));
    EXPECT_FALSE(key(U'-'));
    EXPECT_EQ(buffer(), "-3");
}

TEST_F(QVMKeyboardHandlerTest, NothingFollowsTheThousands) {
    focus(2);
    type("12k5");
    EXPECT_EQ(buffer(), "12k");
    type(".");
    EXPECT_EQ(buffer(), "12k");
}

TEST_F(QVMKeyboardHandlerTest, PointAndCommaMayEachOccurOnce) {
    focus(1);
    type("1.2.");
    EXPECT_EQ(buffer(), "1.2");
    type(",3,");
    EXPECT_EQ(buffer(), "1.2,3");
}

TEST_F(QVMKeyboardHandlerTest, DeleteTakesTheLastCharacter) {
    focus(1);
    type("12");
    EXPECT_TRUE(key(0, Key::codeDelete));
    EXPECT_EQ(buffer(), "1");
    EXPECT_TRUE(key(0, Key::codeDelete));
    EXPECT_FALSE(key(0, Key::codeDelete));
}

TEST_F(QVMKeyboardHandlerTest, ReturnAppliesWhatWasTyped) {
    focus(2);
    type("1.5k");
    EXPECT_TRUE(key(0, Key::codeReturn));
    EXPECT_EQ(memoized(2), 1500);
    EXPECT_EQ(buffer(), "");
    EXPECT_FALSE(key(0, Key::codeEnter)); // nothing typed
}

TEST_F(QVMKeyboardHandlerTest, ReturnOnASwitchTogglesItAndKeepsTheBuffer) {
    focus(13);
    type("12");
    EXPECT_TRUE(key(0, Key::codeReturn));
    EXPECT_EQ(memoized(13), 1);
    EXPECT_EQ(buffer(), "12");
}

TEST_F(QVMKeyboardHandlerTest, AnInteractionEmptiesTheBuffer) {
    focus(1);
    type("12");
    QVMFloatControl* inner = control(7).primaryControl();
    inner->delegate()->floatControlInteractionDidChangeToEvent(*inner, QVMInteractionBegan, nullptr);
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, TabWalksTheTabOrderOverWhatHasNoControl) {
    focus(1);
    for (const std::uint32_t expected : {2u, 3u, 6u, 7u, 9u, 10u, 13u, 20u, 14u, 15u, 21u, 22u, 23u, 1u}) {
        EXPECT_TRUE(tab());
        ASSERT_EQ(focusedPid(), expected);
    }
}

TEST_F(QVMKeyboardHandlerTest, TabbingIntoTheClosedAdvancedDrawerOpensIt) {
    focus(13);
    tab();
    EXPECT_EQ(ui_->altFrame(), 0);
    tab();
    EXPECT_EQ(focusedPid(), 14u);
    EXPECT_EQ(ui_->altFrame(), 1);
}

TEST_F(QVMKeyboardHandlerTest, ShiftTabAndTheGraveKeyWalkBackwards) {
    focus(1);
    tab(EventModifier::shift);
    EXPECT_EQ(focusedPid(), 23u);
    key(U'`', Key::codeGrave);
    EXPECT_EQ(focusedPid(), 22u);
}

TEST_F(QVMKeyboardHandlerTest, TabAppliesWhatWasTyped) {
    focus(1);
    type("4.5");
    tab();
    EXPECT_EQ(memoized(1), 4.5f);
    EXPECT_EQ(focusedPid(), 2u);
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, TabPassesDisabledControls) {
    focus(1);
    control(2).primaryControl()->setPreventInteraction(true);
    tab();
    EXPECT_EQ(focusedPid(), 3u);
}

TEST_F(QVMKeyboardHandlerTest, TabPassesHiddenControls) {
    focus(1);
    control(2).setHidden(true);
    tab();
    EXPECT_EQ(ui_->focusedControl(), &control(3));
}

TEST_F(QVMKeyboardHandlerTest, TabWithAllOthersDisabledRemovesFocus) {
    focus(1);
    for (QVMParameterControl* other : ui_->parameterControls())
        if (other != &control(1)) other->primaryControl()->setPreventInteraction(true);
    tab();
    EXPECT_EQ(ui_->focusedControl(), nullptr);
}

TEST_F(QVMKeyboardHandlerTest, TabWithProcessingOffRemovesFocus) {
    hostSets(0, 0);
    focus(1);
    tab();
    EXPECT_EQ(ui_->focusedControl(), nullptr);
}

TEST_F(QVMKeyboardHandlerTest, TabFromNowhereBeginsAtTheFirst) {
    EXPECT_EQ(ui_->keyboard().adjacentParameterControlDirection(nullptr, 1), &control(1));
}

TEST_F(QVMKeyboardHandlerTest, TheWalkEndsForAControlThatIsNotInTheOrder) {
    EXPECT_EQ(ui_->keyboard().adjacentParameterControlDirection(&control(0), 1), nullptr);
}

TEST_F(QVMKeyboardHandlerTest, EscapeRemovesFocusAndForgetsWhatWasTyped) {
    focus(1);
    type("12");
    EXPECT_TRUE(key(0, Key::codeEscape));
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    EXPECT_EQ(buffer(), "");
    EXPECT_EQ(memoized(1), 0);
}

TEST_F(QVMKeyboardHandlerTest, ArrowsStepTheFocusedControlByGranularity) {
    focus(1);
    EXPECT_TRUE(arrow(Key::up));
    EXPECT_FLOAT_EQ(memoized(1), 0.5f);
    EXPECT_TRUE(arrow(Key::left));
    EXPECT_FLOAT_EQ(memoized(1), 0);
    arrow(Key::right, EventModifier::command);
    EXPECT_FLOAT_EQ(memoized(1), 0.1f);
    arrow(Key::down, EventModifier::command);
    arrow(Key::right, EventModifier::shift);
    EXPECT_FLOAT_EQ(memoized(1), 1.5f);
}

TEST_F(QVMKeyboardHandlerTest, ShiftWinsOverCommandForArrows) {
    focus(1);
    arrow(Key::right, EventModifier::shift | EventModifier::command);
    EXPECT_FLOAT_EQ(memoized(1), 1.5f);
}

TEST_F(QVMKeyboardHandlerTest, OneArrowIsOneDiscreteGesture) {
    focus(1);
    arrow(Key::up);
    EXPECT_THAT(delegate_.calls, testing::ElementsAre("updated 1", "discrete 1"));
}

TEST_F(QVMKeyboardHandlerTest, ArrowsWithoutFocusDoNothing) {
    EXPECT_FALSE(arrow(Key::up));
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMKeyboardHandlerTest, OtherKeypadKeysAreNoEquivalents) {
    focus(1);
    EXPECT_FALSE(arrow(U'5'));
}

TEST_F(QVMKeyboardHandlerTest, NoCommandShortcutIsBound) {
    focus(1);
    for (char32_t c = U'a'; c <= U'z'; ++c)
        EXPECT_FALSE(ui_->keyboard().handlePerformKeyEquivalent(keyEvent(c, 0, EventModifier::command)));
    EXPECT_FALSE(key(U'k', 0, EventModifier::command)); // and none is typed
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, LettersAreTheHosts) {
    focus(1);
    EXPECT_FALSE(key(U'j'));
    EXPECT_FALSE(key(U' ', Key::codeSpace));
}

TEST_F(QVMKeyboardHandlerTest, KeysReachTheHandlerThroughTheWindow) {
    window_.makeFirstResponder(ui_);
    focus(1);
    window_.sendEvent(keyEvent(U'6'));
    EXPECT_EQ(buffer(), "6");
    window_.sendEvent(keyEvent(Key::up, 126, EventModifier::numericPad));
    EXPECT_FLOAT_EQ(memoized(1), 0.5f);
}

TEST_F(QVMKeyboardHandlerTest, ATypedNumberShowsInTheFocusedControlWhileItIsTyped) {
    for (const std::uint32_t pid : {1u, 14u}) {
        focus(pid);
        auto* display = dynamic_cast<QVMTransientBufferDisplay*>(control(pid).primaryControl());
        EXPECT_FALSE(display->displayingTransientBufferValue());
        type("12");
        EXPECT_TRUE(display->displayingTransientBufferValue());
        key(0, Key::codeReturn);
        EXPECT_FALSE(display->displayingTransientBufferValue());
        EXPECT_EQ(memoized(pid), 12);
    }
}

// A number half typed into a slider of the editor, and the real gestures that may come in between.
class HalfTypedNumber : public QVMKeyboardHandlerTest {
protected:
    static constexpr std::uint32_t kTiltGain = 1, kPower = 0;
    void SetUp() override {
        QVMKeyboardHandlerTest::SetUp();
        focus(kTiltGain);
        type("12");
        ASSERT_EQ(readout(), "12");
    }
    QVMVerticalSlider& slider() { return dynamic_cast<QVMVerticalSlider&>(*control(kTiltGain).primaryControl()); }
    std::string readout() { return slider().readout()->string().string(); }
    Point handle() { return slider().convertToWindow(slider().readoutBulb()->position()); }
    void send(EventType type, Point at, std::uint32_t modifiers = 0, int clicks = 1) {
        Event event = mouseEvent(type, at, modifiers);
        event.clickCount = clicks;
        window_.sendEvent(event);
    }
    void doubleClickHandle() {
        for (const int clicks : {1, 2}) {
            send(EventType::mouseDown, handle(), 0, clicks);
            send(EventType::mouseUp, handle(), 0, clicks);
        }
    }
    // Nothing is left of what was typed: neither seen nor applied.
    void expectValueShown() {
        frames(0.2);
        EXPECT_FALSE(slider().displayingTransientBufferValue());
        EXPECT_EQ(buffer(), "");
        std::string text;
        GetParameter(kTiltGain)->valueString(&text, nullptr, memoized(kTiltGain));
        EXPECT_EQ(readout().substr(0, text.size()), text);
        const float value = memoized(kTiltGain);
        EXPECT_FALSE(key(0, Key::codeReturn));
        EXPECT_EQ(memoized(kTiltGain), value);
    }
};

TEST_F(HalfTypedNumber, APressOnItsHandleEndsIt) {
    send(EventType::mouseDown, handle());
    expectValueShown();
}

TEST_F(HalfTypedNumber, ADragEndsIt) {
    send(EventType::mouseDown, handle());
    type("5"); // with the handle held
    EXPECT_EQ(readout(), "5");
    send(EventType::mouseDragged, handle() + Point{40, 0});
    EXPECT_NE(memoized(kTiltGain), 0);
    expectValueShown();
}

TEST_F(HalfTypedNumber, WhatIsTypedWhileTheHandleIsHeldEndsWithTheRelease) {
    send(EventType::mouseDown, handle());
    type("5");
    send(EventType::mouseUp, handle());
    expectValueShown();
}

TEST_F(HalfTypedNumber, ArrowsEndIt) {
    for (const char32_t which : {Key::up, Key::left}) {
        type("3");
        EXPECT_TRUE(arrow(which));
        expectValueShown();
    }
}

TEST_F(HalfTypedNumber, AnOptionClickEndsIt) {
    send(EventType::mouseDown, handle(), EventModifier::option);
    send(EventType::mouseUp, handle(), EventModifier::option);
    expectValueShown();
}

TEST_F(HalfTypedNumber, AClickThatLeavesTheFocusWhereItIsEndsIt) {
    click(middleOf(control(kPower)));
    EXPECT_EQ(focusedPid(), kTiltGain);
    expectValueShown();
}

TEST_F(HalfTypedNumber, AResetFromTheMenuEndsIt) {
    userSets(kTiltGain, 6);
    type("3");
    control(kTiltGain).primaryControl()->contextMenuResetInitialValue();
    expectValueShown();
}

TEST_F(HalfTypedNumber, ADoubleClickOpensAnEmptyFieldThatTakesDigits) {
    doubleClickHandle();
    EXPECT_EQ(buffer(), "");
    EXPECT_EQ(readout(), "");
    type("7");
    EXPECT_EQ(readout(), "7");
    EXPECT_TRUE(key(0, Key::codeReturn));
    EXPECT_EQ(memoized(kTiltGain), 7);
}

TEST_F(HalfTypedNumber, ADoubleClickThatBecomesADragClosesItsField) {
    doubleClickHandle();
    send(EventType::mouseDown, handle(), 0, 2);
    EXPECT_TRUE(slider().displayingTransientBufferValue());
    send(EventType::mouseDragged, handle() + Point{40, 0}, 0, 2);
    EXPECT_GT(memoized(kTiltGain), 0);
    send(EventType::mouseUp, handle(), 0, 2);
    expectValueShown();
}

TEST_F(HalfTypedNumber, APressThatMovesNothingKeepsTheFieldOfADoubleClick) {
    doubleClickHandle();
    send(EventType::mouseDown, handle(), 0, 2);
    send(EventType::mouseDragged, handle() + Point{0, 3}, 0, 2);
    send(EventType::mouseUp, handle(), 0, 2);
    EXPECT_TRUE(slider().displayingTransientBufferValue());
}

TEST_F(HalfTypedNumber, AFieldOfWhichEverythingWasDeletedEndsWithTheNextPress) {
    key(0, Key::codeDelete);
    key(0, Key::codeDelete);
    EXPECT_EQ(readout(), "");
    send(EventType::mouseDown, handle());
    expectValueShown();
}

TEST_F(HalfTypedNumber, ReturnClosesAnEmptyField) {
    doubleClickHandle();
    EXPECT_FALSE(key(0, Key::codeReturn)) << "nothing was typed: the key is the host's";
    expectValueShown();
}

TEST_F(HalfTypedNumber, ChangesOfTheHostLeaveIt) {
    hostSets(kTiltGain, 3);
    frames(0.2);
    EXPECT_EQ(memoized(kTiltGain), 3);
    EXPECT_EQ(readout(), "12");
    EXPECT_TRUE(key(0, Key::codeReturn));
    EXPECT_EQ(memoized(kTiltGain), 12);
}

TEST_F(QVMKeyboardHandlerTest, EveryFocusMoveEmptiesTheBuffer) {
    focus(1);
    type("12");
    focus(1);
    EXPECT_EQ(buffer(), "12"); // it did not move
    focus(7);
    EXPECT_EQ(buffer(), "");
    type("3");
    ui_->bringParameterControlIntoFocus(nullptr);
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, TheWholeOrderIsWalkedAndBack) {
    std::vector<std::uint32_t> forwards, backwards;
    focus(1);
    do {
        forwards.push_back(focusedPid());
        tab();
    } while (focusedPid() != 1 && forwards.size() < 50);
    do {
        tab(EventModifier::shift);
        backwards.insert(backwards.begin(), focusedPid());
    } while (focusedPid() != 1 && backwards.size() < 50);
    EXPECT_EQ(forwards, backwards);
    EXPECT_EQ(forwards.size(), ui_->parameterControls().size() - 1); // all but the master switch
}

TEST_F(QVMKeyboardHandlerTest, TabInAnEditorWithoutFocusBeginsTheWalk) {
    EXPECT_TRUE(window_.sendEvent(keyEvent(U'\t', Key::codeTab)));
    EXPECT_EQ(focusedPid(), 1u);
}

TEST_F(QVMKeyboardHandlerTest, TabInAnEditorThatIsOffIsTheHosts) {
    hostSets(0, 0);
    EXPECT_FALSE(window_.sendEvent(keyEvent(U'\t', Key::codeTab)));
}

TEST_F(QVMKeyboardHandlerTest, WithoutFocusAllOtherKeysAreTheHosts) {
    for (const std::uint16_t code :
         {Key::codeReturn, Key::codeEnter, Key::codeSpace, Key::codeGrave, Key::codeDelete, Key::codeEscape})
        EXPECT_FALSE(window_.sendEvent(keyEvent(U'5', code))) << code;
    EXPECT_FALSE(window_.sendEvent(keyEvent(Key::up, 126, EventModifier::numericPad)));
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, KeysAreWantedWhileAControlHasTheFocus) {
    EXPECT_FALSE(window_.wantsKeys());
    focus(1);
    EXPECT_TRUE(window_.wantsKeys());
    key(0, Key::codeEscape);
    EXPECT_FALSE(window_.wantsKeys());
}

TEST_F(QVMKeyboardHandlerTest, InitialValuesAreOneCallAway) {
    userSets(1, 6);
    userSets(7, -12);
    EXPECT_TRUE(ui_->keyboard().keyboardShortcutRefreshInitialParameterValues());
    EXPECT_EQ(memoized(1), 0);
    EXPECT_EQ(memoized(7), 0);
}

TEST_F(QVMKeyboardHandlerTest, TheLayoutsAreOneCallAway) {
    EXPECT_TRUE(ui_->keyboard().keyboardShortcutToggleAdvancedDrawer());
    EXPECT_EQ(ui_->altFrame(), 1);
    EXPECT_TRUE(ui_->keyboard().keyboardShortcutToggleAdvancedDrawer());
    EXPECT_EQ(ui_->altFrame(), 0);
    EXPECT_TRUE(ui_->keyboard().keyboardShortcutResizeWindow());
    EXPECT_EQ(ui_->altFrame(), 2);
}

TEST_F(QVMKeyboardHandlerTest, WhatTheProductDoesNotHaveChangesNothing) {
    ui_->keyboard().keyboardShortcutHideControls();
    ui_->keyboard().keyboardShortcutFreakout();
    EXPECT_FALSE(ui_->keyboard().keyboardShortcutLoadFile());
    EXPECT_FALSE(ui_->keyboard().keyboardShortcutLoadListedFile());
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMKeyboardHandlerTest, PowerAndThemeAreOneCallAway) {
    EXPECT_TRUE(ui_->keyboard().keyboardShortcutTogglePower());
    EXPECT_EQ(memoized(0), 0);
    ui_->keyboard().keyboardShortcutToggleTheme();
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::dark());
}

} // namespace
} // namespace QVM_NAMESPACE
