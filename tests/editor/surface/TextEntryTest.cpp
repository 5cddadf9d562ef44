#include "editor/surface/TextEntry.h"

#include "editor/PressedKeys.h"
#include "editor/RecordingWorkspace.h"
#include "platform/system/Utf8.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t shift = EventModifier::shift, ctrl = EventModifier::command;

class TextEntryTest : public testing::Test {
protected:
    void type(std::string_view text) {
        for (const Event& key : typedKeys(text))
            EXPECT_TRUE(entry_.handleKey(key));
    }
    void press(const Event& key) { EXPECT_TRUE(entry_.handleKey(key)); }
    std::string selected() const {
        const std::size_t start = entry_.selectionStart();
        return utf8From(entry_.characters().substr(start, entry_.selectionEnd() - start));
    }

    TextEntry entry_{10};
};

TEST_F(TextEntryTest, TakesWhatIsTypedAtTheCaret) {
    type("Wrm");
    press(pressedArrow(Key::left));
    press(pressedArrow(Key::left));
    type("ä");
    EXPECT_EQ(entry_.text(), "Wärm");
    EXPECT_EQ(entry_.caret(), 2u);
}

TEST_F(TextEntryTest, WhatIsThereAtFirstIsReplacedByTyping) {
    entry_.set("Warm");
    EXPECT_EQ(selected(), "Warm");
    type("B");
    EXPECT_EQ(entry_.text(), "B");
}

TEST_F(TextEntryTest, BackspaceAndDeleteTakeACharacterOrTheSelection) {
    entry_.set("Wärme");
    press(pressedKey(Key::end));
    press(pressedBackspace());
    EXPECT_EQ(entry_.text(), "Wärm");
    press(pressedKey(Key::home));
    press(pressedKey(Key::forwardDelete, Key::codeDelete));
    EXPECT_EQ(entry_.text(), "ärm");
    press(pressedArrow(Key::right, shift));
    press(pressedBackspace());
    EXPECT_EQ(entry_.text(), "rm");
    press(pressedBackspace());
    EXPECT_EQ(entry_.text(), "rm") << "at the beginning there is nothing before the caret";
}

TEST_F(TextEntryTest, ArrowsLeaveTheSelectionAtTheirEndOfIt) {
    entry_.set("Warm");
    press(pressedArrow(Key::left));
    EXPECT_EQ(entry_.caret(), 0u);
    entry_.selectAll();
    press(pressedArrow(Key::right));
    EXPECT_EQ(entry_.caret(), 4u);
    EXPECT_EQ(selected(), "");
}

TEST_F(TextEntryTest, ShiftSelectsAndCtrlGoesByWords) {
    entry_.set("Warm  lead");
    press(pressedKey(Key::end));
    press(pressedArrow(Key::left, shift | ctrl));
    EXPECT_EQ(selected(), "lead");
    press(pressedArrow(Key::left, shift | ctrl));
    EXPECT_EQ(selected(), "Warm  lead");
    press(pressedArrow(Key::right, shift | ctrl));
    EXPECT_EQ(selected(), "  lead");
    press(pressedKey(Key::home, 0, shift));
    EXPECT_EQ(selected(), "Warm  lead");
}

TEST_F(TextEntryTest, NothingIsLongerThanItsBound) {
    type("0123456789abc");
    EXPECT_EQ(entry_.text(), "0123456789");
    entry_.set("äöüäöüäöüäöü");
    EXPECT_EQ(entry_.text(), "äöüäöüäöüä");
}

TEST_F(TextEntryTest, TheClipboardGivesALineAndTakesTheSelection) {
    RecordingWorkspace workspace;
    workspace.clipboard = "\nWarm\x01\tvoice\nand more";
    press(pressedKey(U'v', 0, ctrl));
    EXPECT_EQ(entry_.text(), "Warm voice");
    press(pressedArrow(Key::left, shift | ctrl));
    press(pressedKey(U'x', 0, ctrl));
    EXPECT_EQ(entry_.text(), "Warm ");
    EXPECT_EQ(workspace.clipboard, "voice");
    press(pressedKey(U'a', 0, ctrl));
    press(pressedKey(U'c', 0, ctrl));
    EXPECT_EQ(workspace.clipboard, "Warm ");
    EXPECT_EQ(entry_.text(), "Warm ");
    entry_.moveCaret(0, TextEntry::Selecting::no);
    press(pressedKey(U'c', 0, ctrl));
    EXPECT_EQ(workspace.clipboard, "Warm ") << "nothing was selected";
}

TEST_F(TextEntryTest, OtherKeysMeanNothing) {
    entry_.set("Warm");
    for (const Event& key : {pressedReturn(), pressedEscape(), pressedKey(U'\t', Key::codeTab),
                             pressedKey(U'z', 0, ctrl), pressedKey(0, Key::codeF10, shift)})
        EXPECT_FALSE(entry_.handleKey(key));
    EXPECT_EQ(entry_.text(), "Warm");
}

} // namespace
} // namespace QVM_NAMESPACE
