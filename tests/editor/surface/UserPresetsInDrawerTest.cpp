// The user's presets where they are seen: a section of the list, the walk of the arrows, the name that is typed, and
// the menu.
#include "editor/surface/PresetsFixture.h"

#include "editor/PressedKeys.h"
#include "editor/RecordingWorkspace.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/NameField.h"
#include "editor/surface/NoticeView.h"
#include "editor/surface/OutlineView.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "editor/surface/UserPresetItems.h"
#include "platform/view/Menu.h"
#include "presets/MemoryPresetStore.h"
#include "presets/PresetName.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class UserPresetsInDrawer : public PresetsFixture {
protected:
    void SetUp() override {
        EditorFixture::SetUp();
        connect();
    }
    void connect() { ui_->session().presets().list().user().setStore(&store_); }
    void put(const std::string& name, float gain, const std::string& note = "") {
        store_.files[presetFileName(name)] = "Slantwise preset 1\nName: " + name + "\nNote: " + note +
                                             "\nSettings: https://a.example/s/2/?tg:" + std::to_string(gain) + "\n";
    }
    QVMPresetsDrawer& drawer() { return *ui_->presetDrawer(); }
    OutlineView& outline() { return drawer().outline(); }
    void open() {
        ui_->togglePresetsDrawer();
        settle();
    }
    const OutlineItem& lastSection() { return outline().items().back(); }
    std::vector<std::string> lastTitles() {
        std::vector<std::string> titles = {lastSection().title};
        for (const OutlineItem& item : lastSection().children)
            titles.push_back(item.title);
        return titles;
    }
    MenuItem menuItem(const std::string& beginning) {
        const auto menu = ui_->menuForKeyboard();
        for (const MenuItem& item : menu->items)
            if (item.title.starts_with(beginning)) return item;
        return {};
    }
    void choose(const std::string& beginning) {
        const MenuItem item = menuItem(beginning);
        ASSERT_TRUE(item.enabled && item.action) << beginning;
        item.action();
        settle();
    }
    void press(const Event& key) { EXPECT_TRUE(window_.sendEvent(key)); }
    void type(std::string_view text) {
        for (const Event& key : typedKeys(text))
            press(key);
    }
    // Through the menu and the keys.
    void save(const std::string& name) {
        choose("Save preset as...");
        type(name);
        press(pressedReturn());
        settle();
    }

    MemoryPresetStore store_;
    RecordingWorkspace workspace_;
};

TEST_F(UserPresetsInDrawer, WithoutAnyTheListIsTheFactorysAlone) {
    open();
    EXPECT_EQ(lastSection().title, "Speakers");
}

TEST_F(UserPresetsInDrawer, TheyStandBehindTheFactorysInASectionOfTheirOwn) {
    put("warm", 1);
    put("Bright", 2, "for the lead");
    EXPECT_EQ(store_.readings, 0);
    open();
    EXPECT_EQ(store_.readings, 1);
    EXPECT_THAT(lastTitles(), ElementsAre("User", "Bright", "warm"));
    EXPECT_EQ(lastSection().children[0].note, "for the lead");
}

TEST_F(UserPresetsInDrawer, ADamagedOneIsListedWithTheReasonAndCannotBeChosen) {
    put("Bright", 2);
    store_.files["Broken.slantwise-preset"] = "half of";
    open();
    ASSERT_THAT(lastTitles(), ElementsAre("User", "Bright", "Broken"));
    const OutlineItem& broken = lastSection().children[1];
    EXPECT_EQ(broken.note, "not a preset");
    EXPECT_FALSE(broken.id);
    outline().scrollTo(1e6);
    const Rect above = outline().frameOfLeaf(*lastSection().children[0].id);
    const std::uint32_t before = ui_->currentPreset();
    click(outline().coordinates().toWindow(Point{above.center().x, above.maxY() + 8}));
    settle();
    EXPECT_EQ(ui_->currentPreset(), before);
    EXPECT_TRUE(outline().isExpanded(4));
}

TEST_F(UserPresetsInDrawer, AClickAndTheArrowKeysChooseThem) {
    put("warm", 1);
    put("Bright", 2);
    open();
    ui_->requestPresetNamed("Cellphone");
    press(pressedArrow(Key::down));
    EXPECT_EQ(shownName(), "Bright");
    EXPECT_EQ(memoized(pidTiltGain), 2);
    click(outline().coordinates().toWindow(outline().frameOfLeaf(*lastSection().children[1].id).center()));
    EXPECT_EQ(shownName(), "warm");
    EXPECT_EQ(memoized(pidTiltGain), 1);
    EXPECT_THAT(delegate_.calls, Contains("preset User: warm 25"));
    settle();
    EXPECT_FALSE(dirty());
}

TEST_F(UserPresetsInDrawer, TheArrowsInTheBarWalkThroughThemAfterTheFactorys) {
    put("warm", 1);
    ui_->requestPresetNamed("Cellphone");
    const Point rightArrow = ui_->presetBar()->coordinates().toWindow(Point{320, 15});
    click(rightArrow);
    EXPECT_EQ(shownName(), "warm");
    EXPECT_EQ(memoized(pidTiltGain), 1);
    click(rightArrow);
    EXPECT_EQ(shownName(), "Default");
    click(ui_->presetBar()->coordinates().toWindow(Point{95, 15}));
    EXPECT_EQ(shownName(), "warm");
}

TEST_F(UserPresetsInDrawer, WhatIsSavedIsTypedAtTheEndOfTheListAndBecomesTheCurrentOne) {
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

TEST_F(UserPresetsInDrawer, ANameThatIsTakenAsksBeforeItIsReplaced) {
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

TEST_F(UserPresetsInDrawer, EscapeAndAClickElsewhereLeaveEverythingAsItWas) {
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

TEST_F(UserPresetsInDrawer, NoKeyReachesTheEditorWhileANameIsTyped) {
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

// A menu gives the keyboard back to the host when it closes.
TEST_F(UserPresetsInDrawer, WhereTheHostHasTheKeyboardANameTakesItForItself) {
    window_.setKeyWindow(false);
    choose("Save preset as...");
    ASSERT_TRUE(drawer().nameField());
    EXPECT_TRUE(window_.isKeyWindow());
}

TEST_F(UserPresetsInDrawer, OneWhoseFileHasGoneLeavesTheListWhenItIsChosen) {
    put("warm", 1);
    put("Bright", 2);
    open();
    outline().scrollTo(1e6);
    store_.files.erase(presetFileName("warm"));
    click(outline().coordinates().toWindow(outline().frameOfLeaf(*lastSection().children[1].id).center()));
    settle();
    EXPECT_THAT(lastTitles(), ElementsAre("User", "Bright"));
    ASSERT_TRUE(ui_->parts().notice());
    EXPECT_EQ(ui_->parts().notice()->why(), "warm: its file is gone");
}

TEST_F(UserPresetsInDrawer, OneThatCannotBeDeletedIsNotSaidToBeThoughItWasOnceBefore) {
    save("Warm");
    choose("Delete");
    save("Warm");
    store_.fault = std::make_error_code(std::errc::permission_denied);
    choose("Delete");
    EXPECT_EQ(ui_->parts().notice()->why(), store_.fault.message());
}

TEST_F(UserPresetsInDrawer, FromTheSmallWindowTheListComesUpInTheNormalOne) {
    ui_->requestFrame(QVMAltFrameCompact);
    choose("Save preset as...");
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal);
    EXPECT_TRUE(drawer().visible() && drawer().nameField());
}

TEST_F(UserPresetsInDrawer, TheNameOfTheUsersPresetThatIsCurrentIsOffered) {
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

TEST_F(UserPresetsInDrawer, WhatTheDiskRefusesIsToldAndTheNameStaysToBeTyped) {
    store_.fault = std::make_error_code(std::errc::no_space_on_device);
    save("Warm");
    EXPECT_TRUE(drawer().nameField());
    EXPECT_FALSE(ui_->parts().notice()->isHidden());
    EXPECT_EQ(ui_->parts().notice()->why(), store_.fault.message());
    EXPECT_EQ(shownName(), "Default");
}

TEST_F(UserPresetsInDrawer, OnlyTheUsersCanBeDeletedAndOnlyOncePutBack) {
    EXPECT_FALSE(menuItem("Delete").enabled);
    EXPECT_EQ(menuItem("Put back").title, "");
    save("Warm");
    EXPECT_EQ(menuItem("Delete").title, "Delete “Warm”");
    choose("Delete");
    EXPECT_TRUE(store_.files.empty());
    EXPECT_EQ(lastSection().title, "Speakers");
    EXPECT_EQ(shownName(), "Warm");
    EXPECT_TRUE(dirty());
    EXPECT_EQ(ui_->parts().notice()->why(), "The menu can put it back");
    EXPECT_FALSE(menuItem("Delete").enabled) << "it is gone already";
    EXPECT_EQ(menuItem("Put back").title, "Put back “Warm”");
    choose("Put back");
    EXPECT_THAT(lastTitles(), ElementsAre("User", "Warm"));
    EXPECT_FALSE(dirty());
    EXPECT_EQ(menuItem("Put back").title, "");
}

TEST_F(UserPresetsInDrawer, ASessionShowsTheNameThoughTheFileIsGone) {
    reopen("User: Long gone");
    EXPECT_EQ(shownName(), "Long gone");
    settle();
    EXPECT_TRUE(dirty());
    EXPECT_THAT(delegate_.sent, IsEmpty());
}

TEST_F(UserPresetsInDrawer, ALongNameIsCutInTheBarAndInTheList) {
    const std::string name = "A name that is as long as it may be and not less";
    ASSERT_EQ(name.size(), longestPresetName);
    save(name);
    EXPECT_TRUE(shownName().ends_with("\xE2\x80\xA6")) << shownName();
    EXPECT_THAT(lastTitles(), ElementsAre("User", name));
}

TEST_F(UserPresetsInDrawer, NothingIsLookedAtBeforeTheListOpensOrTheWalkLeadsThere) {
    reopen("Air");
    connect();
    frames(2);
    ui_->menuForKeyboard();
    click(ui_->presetBar()->coordinates().toWindow(Point{320, 15}));
    EXPECT_EQ(store_.readings, 0);
}

TEST_F(UserPresetsInDrawer, TwoEditorsSeeEachOthersPresetsWhenTheListOpens) {
    save("Warm");
    reopen("Default");
    connect();
    open();
    EXPECT_THAT(lastTitles(), ElementsAre("User", "Warm"));
}

TEST_F(UserPresetsInDrawer, AMenuThatOutlivesTheEditorDoesNothing) {
    const auto items = userPresetItems(*ui_);
    build(QVMConfig::inlinedConfig());
    for (const MenuItem& item : items)
        item.action();
    EXPECT_TRUE(store_.files.empty());
}

} // namespace
} // namespace QVM_NAMESPACE
