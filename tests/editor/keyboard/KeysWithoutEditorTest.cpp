// The keys by themselves: what they ask of a focus and a surface that are no editor's.
#include "editor/PressedKeys.h"
#include "editor/keyboard/FocusFixture.h"
#include "editor/keyboard/QVMKeyboardHandler.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KeysWithoutEditor : public FocusFixture {
protected:
    bool key(char32_t character, std::uint16_t code = 0) {
        return handler_.handleKeyDownEvent(pressedKey(character, code));
    }

    QVMKeyboardHandler handler_{session_, focus_, *this};
};

TEST_F(KeysWithoutEditor, WhatIsTypedIsShownAndReturnGivesItToTheControl) {
    focus_.bring(&control(pidTiltGain));
    EXPECT_TRUE(key(U'3'));
    EXPECT_EQ(handler_.numberBuffer(), "3");
    EXPECT_TRUE(key(0, Key::codeReturn));
    EXPECT_EQ(control(pidTiltGain).floatValue(), 3);
    EXPECT_EQ(handler_.numberBuffer(), "");
}

TEST_F(KeysWithoutEditor, TabSendsWhatWasTypedAndMovesOn) {
    focus_.bring(&control(pidTiltGain));
    key(U'4');
    EXPECT_TRUE(key(0, Key::codeTab));
    EXPECT_EQ(control(pidTiltGain).floatValue(), 4);
    EXPECT_EQ(focus_.focused(), &control(pidTiltRangeLow));
}

TEST_F(KeysWithoutEditor, EscapeLeavesTheControlAndThenTheDrawers) {
    focus_.bring(&control(pidTiltGain));
    EXPECT_TRUE(key(0, Key::codeEscape));
    EXPECT_EQ(focus_.focused(), nullptr);
    told_.clear();
    EXPECT_FALSE(handler_.handleUnfocusedKeyEvent(pressedKey(0, Key::codeEscape)));
    hidesDrawers_ = true;
    EXPECT_TRUE(handler_.handleUnfocusedKeyEvent(pressedKey(0, Key::codeEscape)));
    EXPECT_THAT(told_, ElementsAre("hide drawers", "hide drawers"));
}

TEST_F(KeysWithoutEditor, WhatButtonsAndMenusAskForIsPassedOn) {
    handler_.keyboardShortcutToggleAdvancedDrawer();
    handler_.keyboardShortcutTogglePresetDrawer();
    handler_.keyboardShortcutToggleTheme();
    handler_.keyboardShortcutRefreshInitialParameterValues();
    handler_.keyboardShortcutResizeWindow();
    handler_.keyboardShortcutHideControls();
    handler_.keyboardShortcutFreakout();
    EXPECT_THAT(told_, ElementsAre("double wide", "presets", "theme", "reset", "frame", "hide controls", "freak out"));
}

TEST_F(KeysWithoutEditor, PowerIsTheMasterSwitch) {
    ASSERT_EQ(control(pidMasterOnOff).floatValue(), 1);
    EXPECT_TRUE(handler_.keyboardShortcutTogglePower());
    EXPECT_EQ(control(pidMasterOnOff).floatValue(), 0);
}

TEST_F(KeysWithoutEditor, UndoIsTheHistorysAndAlwaysConsumed) {
    open();
    EXPECT_TRUE(handler_.keyboardShortcutUndo());
    set(pidTiltGain, 5);
    time_.advance(1);
    EXPECT_TRUE(handler_.keyboardShortcutUndo());
    EXPECT_EQ(values().memoized(pidTiltGain), GetParameter(pidTiltGain)->initialValue);
    EXPECT_TRUE(handler_.keyboardShortcutRedo());
    EXPECT_EQ(values().memoized(pidTiltGain), 5);
    EXPECT_TRUE(handler_.applyUndoRedoStackValues(std::nullopt));
    EXPECT_EQ(&handler_.undoRedoStack(), &session_.history().stack());
}

} // namespace
} // namespace QVM_NAMESPACE
