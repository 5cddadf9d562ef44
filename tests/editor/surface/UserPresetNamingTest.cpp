// How the user's presets get their names: typed at the end of the list.
#include "editor/surface/UserPresetsFixture.h"

#include "editor/surface/EditorLayout.h"
#include "editor/surface/NameField.h"
#include "editor/surface/NoticeView.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class UserPresetNaming : public UserPresetsFixture {};

TEST_F(UserPresetNaming, WhatIsSavedIsTypedAtTheEndOfTheListAndBecomesTheCurrentOne) {
    userSets(pidTiltGain, 4.5f);
    settle();
    choose("Save preset as...");
    ASSERT_TRUE(drawer().visible() && drawer().nameField());
    EXPECT_THAT(lastTitles(), ElementsAre("User"));
    const Rect field = drawer().nameField()->frame();
    EXPECT_GT(field.y, 0);
    EXPECT_LE(field.maxY(), outline().bounds().height);
    delegate_.calls.clear();
    type("Wärm 2");
    EXPECT_THAT(delegate_.calls, IsEmpty()) << "no key of a name does anything else";
    press(pressedReturn());
    settle();
    EXPECT_FALSE(drawer().nameField());
    EXPECT_THAT(lastTitles(), ElementsAre("User", "Wärm 2"));
    EXPECT_EQ(outline().selection(), ui_->currentPreset());
    EXPECT_EQ(shownName(), "Wärm 2");
    EXPECT_FALSE(dirty());
    EXPECT_TRUE(drawer().visible());
    press(pressedReturn());
    EXPECT_FALSE(drawer().visible()) << "the keys are the list's again";
}

TEST_F(UserPresetNaming, ANameThatIsTakenAsksBeforeItIsReplaced) {
    put("Warm", 1);
    userSets(pidTiltGain, 4.5f);
    choose("Save preset as...");
    type("Warm");
    press(pressedReturn());
    ASSERT_TRUE(drawer().nameField());
    EXPECT_EQ(drawer().nameField()->question(), "Name is taken");
    EXPECT_THAT(store_.files.begin()->second, testing::HasSubstr("tg:1"));
    press(pressedReturn());
    EXPECT_FALSE(drawer().nameField());
    EXPECT_THAT(store_.files.begin()->second, testing::HasSubstr("tg:4.5"));
}

TEST_F(UserPresetNaming, EscapeAndAClickElsewhereLeaveEverythingAsItWas) {
    put("Warm", 1);
    choose("Save preset as...");
    type("Warm");
    press(pressedReturn());
    press(pressedEscape());
    EXPECT_FALSE(drawer().nameField());
    EXPECT_TRUE(drawer().visible());
    choose("Save preset as...");
    type("Bright");
    click(outline().coordinates().toWindow(outline().frameOfLeaf(*lastSection().children[0].id).center()));
    EXPECT_FALSE(drawer().nameField());
    EXPECT_EQ(shownName(), "Warm");
    choose("Save preset as...");
    ui_->togglePresetsDrawer();
    EXPECT_FALSE(drawer().nameField());
    EXPECT_EQ(store_.files.size(), 1u);
}

TEST_F(UserPresetNaming, NoKeyReachesTheEditorWhileANameIsTyped) {
    userSets(pidTiltGain, 4.5f);
    settle();
    choose("Save preset as...");
    const std::vector<float> before = memoized();
    press(pressedKey(U'z', 0, EventModifier::command));
    press(pressedArrow(Key::down));
    press(pressedKey(U'\t', Key::codeTab));
    press(pressedKey(0, Key::codeMenu));
    settle();
    EXPECT_EQ(memoized(), before);
    EXPECT_TRUE(drawer().nameField());
}

TEST_F(UserPresetNaming, WhereTheHostHasTheKeyboardANameTakesItForItself) {
    window_.setKeyWindow(false);
    choose("Save preset as...");
    ASSERT_TRUE(drawer().nameField());
    EXPECT_TRUE(window_.isKeyWindow());
}

TEST_F(UserPresetNaming, FromTheSmallWindowTheListComesUpInTheNormalOne) {
    ui_->requestFrame(QVMAltFrameCompact);
    choose("Save preset as...");
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal);
    EXPECT_TRUE(drawer().visible() && drawer().nameField());
}

TEST_F(UserPresetNaming, TheNameOfTheUsersPresetThatIsCurrentIsOffered) {
    save("Warm");
    userSets(pidTiltGain, 6);
    choose("Save preset as...");
    EXPECT_EQ(drawer().nameField()->entry().text(), "Warm");
    press(pressedReturn());
    press(pressedReturn());
    EXPECT_THAT(store_.files.begin()->second, testing::HasSubstr("tg:6"));
    settle();
    EXPECT_FALSE(dirty());
}

TEST_F(UserPresetNaming, WhereANameEndsIsToldWithTheFirstCharacterThatHasNoRoom) {
    choose("Save preset as...");
    type(std::string(48, 'a'));
    EXPECT_FALSE(ui_->parts().notice()) << "it fits";
    type("b");
    ASSERT_TRUE(ui_->parts().notice());
    EXPECT_FALSE(ui_->parts().notice()->isHidden());
    EXPECT_EQ(ui_->parts().notice()->what(), "Name is full");
    EXPECT_EQ(ui_->parts().notice()->why(), "It has 48 characters at most");
    EXPECT_EQ(drawer().nameField()->entry().text(), std::string(48, 'a'));
    time_.advance(6);
    ASSERT_TRUE(ui_->parts().notice()->isHidden());
    press(pressedArrow(Key::left));
    press(pressedKey(U'\x7F', Key::codeDelete));
    EXPECT_TRUE(ui_->parts().notice()->isHidden()) << "nothing was left out";
    press(pressedReturn());
    EXPECT_FALSE(drawer().nameField()) << "what there is can be saved";
}

TEST_F(UserPresetNaming, ANameWithNothingInItIsToldToBeMissing) {
    choose("Save preset as...");
    type("  ");
    press(pressedReturn());
    EXPECT_TRUE(drawer().nameField()) << "it stays to be typed";
    ASSERT_TRUE(ui_->parts().notice());
    EXPECT_FALSE(ui_->parts().notice()->isHidden());
    EXPECT_EQ(ui_->parts().notice()->what(), "Not saved");
    EXPECT_EQ(ui_->parts().notice()->why(), "A preset needs a name");
    EXPECT_TRUE(store_.files.empty());
}

TEST_F(UserPresetNaming, WhatTheDiskRefusesIsToldAndTheNameStaysToBeTyped) {
    store_.fault = std::make_error_code(std::errc::no_space_on_device);
    save("Warm");
    EXPECT_TRUE(drawer().nameField());
    EXPECT_FALSE(ui_->parts().notice()->isHidden());
    EXPECT_EQ(ui_->parts().notice()->why(), store_.fault.message());
    EXPECT_EQ(shownName(), "Default");
}

} // namespace
} // namespace QVM_NAMESPACE
