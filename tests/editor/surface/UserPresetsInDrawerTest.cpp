// The user's presets where they are seen: a section of the list, the walk of the arrows, and the menu.
#include "editor/surface/UserPresetsFixture.h"

#include "editor/surface/NoticeView.h"
#include "editor/surface/UserPresetItems.h"
#include "platform/layer/TextMetrics.h"
#include "theme/QVMUITheme.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class UserPresetsInDrawer : public UserPresetsFixture {};

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

// A menu gives the keyboard back to the host when it closes.
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

TEST_F(UserPresetsInDrawer, ADamagedOneIsDeletedFromTheMenuAndPutBack) {
    const std::map<std::string, std::string> files = {{"Broken.slantwise-preset", "half of"}};
    store_.files.insert(files.begin(), files.end());
    EXPECT_EQ(menuItem("Delete damaged").title, "") << "nobody has looked yet";
    open();
    ASSERT_THAT(lastTitles(), ElementsAre("User", "Broken"));
    const std::vector<MenuItem> damaged = menuItem("Delete damaged").submenu;
    ASSERT_EQ(damaged.size(), 1u);
    EXPECT_EQ(damaged[0].title, "Broken: not a preset");
    damaged[0].action();
    settle();
    EXPECT_THAT(store_.files, IsEmpty());
    EXPECT_EQ(lastSection().title, "Speakers");
    EXPECT_EQ(ui_->parts().notice()->why(), "The menu can put it back");
    EXPECT_EQ(menuItem("Delete damaged").title, "");
    choose("Put back");
    EXPECT_EQ(store_.files, files);
    EXPECT_THAT(lastTitles(), ElementsAre("User", "Broken"));
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

TEST_F(UserPresetsInDrawer, ALongNameIsCutInItsMiddleInTheMenu) {
    const std::string name = "A name that is as long as it may be and not less";
    save(name);
    const auto widthOfRow = [this](const std::string& beginning) {
        return widthOf(menuItem(beginning).title, QVMUITheme::safeFontWithNameSize("HelveticaNeue-Medium", 13));
    };
    EXPECT_LT(widthOfRow("Delete"), 230) << "no wider than the longest row of the menu's own";
    EXPECT_TRUE(menuItem("Delete").title.starts_with("Delete \xE2\x80\x9C"
                                                     "A name"));
    EXPECT_TRUE(menuItem("Delete").title.ends_with("less\xE2\x80\x9D"));
    choose("Delete");
    EXPECT_LT(widthOfRow("Put back"), 240);
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
