#include "editor/keyboard/KeyboardFixture.h"

namespace QVM_NAMESPACE {
namespace {

using testing::IsEmpty;

TEST_F(QVMKeyboardHandlerTest, WithoutFocusNoKeyIsHandled) {
    EXPECT_FALSE(key(U'5'));
    EXPECT_FALSE(tab());
    EXPECT_FALSE(key(0, Key::codeEscape));
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, AMinusIsAcceptedOnlyAsTheFirstCharacter) {
    focus(pidTiltGain);
    EXPECT_TRUE(key(U'-'));
    EXPECT_FALSE(key(U'-'));
    EXPECT_TRUE(key(U'3'));
    EXPECT_FALSE(key(U'-'));
    EXPECT_EQ(buffer(), "-3");
}

TEST_F(QVMKeyboardHandlerTest, NothingFollowsTheThousands) {
    focus(pidTiltRangeLow);
    type("12k5");
    EXPECT_EQ(buffer(), "12k");
    type(".");
    EXPECT_EQ(buffer(), "12k");
}

TEST_F(QVMKeyboardHandlerTest, PointAndCommaMayEachOccurOnce) {
    focus(pidTiltGain);
    type("1.2.");
    EXPECT_EQ(buffer(), "1.2");
    type(",3,");
    EXPECT_EQ(buffer(), "1.2,3");
}

TEST_F(QVMKeyboardHandlerTest, DeleteTakesTheLastCharacter) {
    focus(pidTiltGain);
    type("12");
    EXPECT_TRUE(key(0, Key::codeDelete));
    EXPECT_EQ(buffer(), "1");
    EXPECT_TRUE(key(0, Key::codeDelete));
    EXPECT_FALSE(key(0, Key::codeDelete));
}

TEST_F(QVMKeyboardHandlerTest, ReturnAppliesWhatWasTyped) {
    focus(pidTiltRangeLow);
    type("1.5k");
    EXPECT_TRUE(key(0, Key::codeReturn));
    EXPECT_EQ(memoized(pidTiltRangeLow), 1500);
    EXPECT_EQ(buffer(), "");
    EXPECT_FALSE(key(0, Key::codeEnter)); // nothing typed
}

TEST_F(QVMKeyboardHandlerTest, ReturnOnASwitchTogglesItAndKeepsTheBuffer) {
    focus(pidFilterListenLow);
    type("12");
    EXPECT_TRUE(key(0, Key::codeReturn));
    EXPECT_EQ(memoized(pidFilterListenLow), 1);
    EXPECT_EQ(buffer(), "12");
}

TEST_F(QVMKeyboardHandlerTest, AnInteractionEmptiesTheBuffer) {
    focus(pidTiltGain);
    type("12");
    QVMFloatControl* inner = control(pidOutputGain).primaryControl();
    inner->delegate()->floatControlInteractionDidChangeToEvent(*inner, QVMInteractionBegan, nullptr);
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, EscapeRemovesFocusAndForgetsWhatWasTyped) {
    focus(pidTiltGain);
    type("12");
    EXPECT_TRUE(key(0, Key::codeEscape));
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    EXPECT_EQ(buffer(), "");
    EXPECT_EQ(memoized(pidTiltGain), 0);
}

TEST_F(QVMKeyboardHandlerTest, ArrowsStepTheFocusedControlByGranularity) {
    focus(pidTiltGain);
    EXPECT_TRUE(arrow(Key::up));
    EXPECT_FLOAT_EQ(memoized(pidTiltGain), 0.5f);
    EXPECT_TRUE(arrow(Key::left));
    EXPECT_FLOAT_EQ(memoized(pidTiltGain), 0);
    arrow(Key::right, EventModifier::command);
    EXPECT_FLOAT_EQ(memoized(pidTiltGain), 0.1f);
    arrow(Key::down, EventModifier::command);
    arrow(Key::right, EventModifier::shift);
    EXPECT_FLOAT_EQ(memoized(pidTiltGain), 1.5f);
}

TEST_F(QVMKeyboardHandlerTest, CommandWithPlusMinusAndZeroIsTheSizeWhileAControlHasTheFocus) {
    const auto press = [this](char32_t which, std::uint32_t modifiers = EventModifier::command) {
        return ui_->keyboard().handlePerformKeyEquivalent(pressedKey(which, 0, modifiers));
    };
    EXPECT_FALSE(press(U'+')) << "with no focus it is the host's";
    EXPECT_EQ(ui_->currentScale(), 1);
    focus(1);
    EXPECT_TRUE(press(U'+'));
    EXPECT_EQ(ui_->currentScale(), 1.25F);
    EXPECT_TRUE(press(U'=')) << "the same key without Shift";
    EXPECT_EQ(ui_->currentScale(), 1.5F);
    EXPECT_TRUE(press(U'+', EventModifier::command | EventModifier::numericPad));
    EXPECT_EQ(ui_->currentScale(), 2);
    EXPECT_TRUE(press(U'-'));
    EXPECT_EQ(ui_->currentScale(), 1.5F);
    EXPECT_TRUE(press(U'0'));
    EXPECT_EQ(ui_->currentScale(), 1);
    EXPECT_FALSE(press(U'+', EventModifier::numericPad)) << "a sign that is typed";
    EXPECT_FALSE(press(U'+', EventModifier::command | EventModifier::control));
    EXPECT_EQ(ui_->currentScale(), 1);
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, ShiftWinsOverCommandForArrows) {
    focus(pidTiltGain);
    arrow(Key::right, EventModifier::shift | EventModifier::command);
    EXPECT_FLOAT_EQ(memoized(pidTiltGain), 1.5f);
}

TEST_F(QVMKeyboardHandlerTest, OneArrowIsOneDiscreteGesture) {
    focus(pidTiltGain);
    arrow(Key::up);
    EXPECT_THAT(delegate_.calls, testing::ElementsAre("updated 1", "discrete 1"));
}

TEST_F(QVMKeyboardHandlerTest, ArrowsWithoutFocusDoNothing) {
    EXPECT_FALSE(arrow(Key::up));
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMKeyboardHandlerTest, OtherKeypadKeysAreNoEquivalents) {
    focus(pidTiltGain);
    EXPECT_FALSE(arrow(U'5'));
}

TEST_F(QVMKeyboardHandlerTest, NoCommandShortcutIsBound) {
    focus(pidTiltGain);
    for (char32_t c = U'a'; c <= U'z'; ++c)
        EXPECT_FALSE(ui_->keyboard().handlePerformKeyEquivalent(pressedKey(c, 0, EventModifier::command)));
    EXPECT_FALSE(key(U'k', 0, EventModifier::command)); // and none is typed
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, LettersAreTheHosts) {
    focus(pidTiltGain);
    EXPECT_FALSE(key(U'j'));
    EXPECT_FALSE(key(U' ', Key::codeSpace));
}

TEST_F(QVMKeyboardHandlerTest, KeysReachTheHandlerThroughTheWindow) {
    window_.makeFirstResponder(ui_);
    focus(pidTiltGain);
    window_.sendEvent(pressedKey(U'6'));
    EXPECT_EQ(buffer(), "6");
    window_.sendEvent(pressedKey(Key::up, 126, EventModifier::numericPad));
    EXPECT_FLOAT_EQ(memoized(pidTiltGain), 0.5f);
}

TEST_F(QVMKeyboardHandlerTest, EveryFocusMoveEmptiesTheBuffer) {
    focus(pidTiltGain);
    type("12");
    focus(pidTiltGain);
    EXPECT_EQ(buffer(), "12"); // it did not move
    focus(pidOutputGain);
    EXPECT_EQ(buffer(), "");
    type("3");
    ui_->bringParameterControlIntoFocus(nullptr);
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, WithoutFocusAllOtherKeysAreTheHosts) {
    for (const std::uint16_t code :
         {Key::codeReturn, Key::codeEnter, Key::codeSpace, Key::codeGrave, Key::codeDelete, Key::codeEscape})
        EXPECT_FALSE(window_.sendEvent(pressedKey(U'5', code))) << code;
    EXPECT_FALSE(window_.sendEvent(pressedKey(Key::up, 126, EventModifier::numericPad)));
    EXPECT_EQ(buffer(), "");
}

TEST_F(QVMKeyboardHandlerTest, KeysAreWantedWhileAControlHasTheFocus) {
    EXPECT_FALSE(window_.wantsKeys());
    focus(pidTiltGain);
    EXPECT_TRUE(window_.wantsKeys());
    key(0, Key::codeEscape);
    EXPECT_FALSE(window_.wantsKeys());
}

TEST_F(QVMKeyboardHandlerTest, InitialValuesAreOneCallAway) {
    userSets(pidTiltGain, 6);
    userSets(pidOutputGain, -12);
    EXPECT_TRUE(ui_->keyboard().keyboardShortcutRefreshInitialParameterValues());
    EXPECT_EQ(memoized(pidTiltGain), 0);
    EXPECT_EQ(memoized(pidOutputGain), 0);
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
    EXPECT_EQ(memoized(pidMasterOnOff), 0);
    ui_->keyboard().keyboardShortcutToggleTheme();
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::dark());
}

} // namespace
} // namespace QVM_NAMESPACE
