// The menu of the keyboard: where it opens, and that it leads to everything that has a button.
#include "editor/EditorFixture.h"
#include "editor/RecordingWorkspace.h"

#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/view/Menu.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::ElementsAre;

// Keeps the menu that was to be shown.
class MenuHost final : public WindowHost {
public:
    void setCursor(Cursor) override {}
    void contentSizeDidChange(Size) override {}
    void takeKeyboardFocus() override {}
    void popUpMenu(std::unique_ptr<Menu> shown, Point where) override {
        menu = std::move(shown);
        at = where;
    }
    std::unique_ptr<Menu> menu;
    Point at;
};

class QVMGenericUIKeyMenu : public EditorFixture {
protected:
    void SetUp() override {
        EditorFixture::SetUp();
        window_.setHost(&host_);
    }
    void TearDown() override {
        window_.setHost(nullptr);
        EditorFixture::TearDown();
    }
    void focus(std::uint32_t pid) { ui_->bringParameterControlIntoFocus(&control(pid)); }
    // Whether the key opened a menu, which is then in `host_`.
    bool opens(std::uint16_t code, std::uint32_t modifiers = 0) {
        host_.menu = nullptr;
        const bool isHandled = window_.sendEvent(pressedKey(0, code, modifiers));
        EXPECT_EQ(isHandled, host_.menu != nullptr);
        return isHandled;
    }
    static std::vector<std::string> titles(const std::vector<MenuItem>& items) {
        std::vector<std::string> found;
        found.reserve(items.size());
        for (const MenuItem& item : items)
            found.push_back(item.isSeparator() ? "-" : item.title);
        return found;
    }
    // The row of this name among the buttons, as they are now.
    MenuItem row(const std::string& title) {
        const auto menu = ui_->menuForKeyboard();
        const std::vector<MenuItem>& rows = menu->items.back().submenu;
        const auto found =
            std::find_if(rows.begin(), rows.end(), [&](const MenuItem& it) { return it.title == title; });
        EXPECT_NE(found, rows.end()) << title;
        return found == rows.end() ? MenuItem() : *found;
    }
    void choose(const std::string& title) {
        const MenuItem chosen = row(title);
        EXPECT_TRUE(chosen.enabled) << title;
        if (chosen.action) chosen.action();
        frame();
        time_.advance(1);
    }

    MenuHost host_;
    RecordingWorkspace desktop_;
};

TEST_F(QVMGenericUIKeyMenu, OpensBelowTheControlWithTheFocus) {
    focus(pidOutputGain);
    for (const auto& [code, modifiers] : {std::pair{Key::codeMenu, 0U}, {Key::codeF10, EventModifier::shift}}) {
        ASSERT_TRUE(opens(code, modifiers)) << code;
        EXPECT_EQ(host_.menu->title, "Output Gain");
        const Rect frame = control(pidOutputGain).coordinates().toWindow(control(pidOutputGain).bounds());
        EXPECT_EQ(host_.at, (Point{frame.minX(), frame.maxY()}));
        EXPECT_EQ(ui_->lastRightClickedControl(), &control(pidOutputGain));
        EXPECT_EQ(ui_->focusedControl(), &control(pidOutputGain)) << "and leaves it there";
    }
}

TEST_F(QVMGenericUIKeyMenu, IsTheContextMenuWithTheButtonsInIt) {
    focus(pidOutputGain);
    ASSERT_TRUE(opens(Key::codeMenu));
    EXPECT_THAT(titles(host_.menu->items),
                ElementsAre("Reset Output Gain to default", "Read about Output Gain", "-", "Meter Mode", "-",
                            "Copy all settings as URL to Clipboard", "Paste all settings from Clipboard",
                            "Reset all settings to default", "-", "Save preset as...", "Delete", "-", "Size",
                            "Spectrum", "-", "Ferrowind Slantwise, 2.0.1", "-", "Editor"));
    EXPECT_THAT(titles(host_.menu->items.back().submenu),
                ElementsAre("Presets", "Undo", "Redo", "-", "Go to B", "Copy A to B", "-", "Power", "Advanced controls",
                            "Small window", "Dark theme", "-", "Curve and meter", "Meter Mode", "Reset meter",
                            "Open all settings in browser", "Keys and gestures"));
}

TEST_F(QVMGenericUIKeyMenu, HasNothingInTheSmallWindowThatItHasNoRoomFor) {
    focus(pidOutputGain);
    ui_->requestFrame(QVMAltFrameCompact);
    ASSERT_TRUE(opens(Key::codeMenu));
    EXPECT_EQ(host_.menu->title, "Slantwise") << "no control can be seen that it could be about";
    EXPECT_THAT(titles(host_.menu->items.back().submenu),
                ElementsAre("Undo", "Redo", "-", "Go to B", "Copy A to B", "-", "Power", "Small window", "Dark theme",
                            "-", "Curve and meter", "Meter Mode", "Reset meter", "Open all settings in browser"));
}

TEST_F(QVMGenericUIKeyMenu, HidesCurveAndMeterAndShowsThemAgain) {
    EXPECT_TRUE(row("Curve and meter").checked);
    choose("Curve and meter");
    EXPECT_FALSE(ui_->sketch()->vizVisible());
    EXPECT_FALSE(row("Curve and meter").checked);
    choose("Curve and meter");
    EXPECT_TRUE(ui_->sketch()->vizVisible());
}

TEST_F(QVMGenericUIKeyMenu, ChoosesWhatTheMeterShows) {
    row("Meter Mode").submenu.at(1).action();
    EXPECT_EQ(memoized(pidMeterMode), 1);
    EXPECT_TRUE(row("Meter Mode").submenu.at(1).checked);
    EXPECT_FALSE(row("Meter Mode").submenu.at(0).checked);
}

TEST_F(QVMGenericUIKeyMenu, OfAnEditorWithoutFocusIsTheProducts) {
    ASSERT_TRUE(opens(Key::codeMenu));
    EXPECT_EQ(host_.menu->title, "Slantwise");
    EXPECT_EQ(host_.menu->items.front().title, "Copy all settings as URL to Clipboard");
    EXPECT_EQ(ui_->lastRightClickedControl(), nullptr);
}

TEST_F(QVMGenericUIKeyMenu, OtherCombinationsOfItsKeysAreTheHosts) {
    focus(pidOutputGain);
    EXPECT_FALSE(opens(Key::codeF10));
    EXPECT_FALSE(opens(Key::codeF10, EventModifier::shift | EventModifier::command));
    EXPECT_FALSE(opens(Key::codeMenu, EventModifier::option));
}

TEST_F(QVMGenericUIKeyMenu, LeadsToThePresets) {
    EXPECT_FALSE(row("Presets").checked);
    choose("Presets");
    EXPECT_TRUE(ui_->presetDrawer()->visible());
    EXPECT_TRUE(ui_->wantsKeys()) << "the list takes the keys";
    EXPECT_TRUE(row("Presets").checked);
    choose("Presets");
    EXPECT_FALSE(ui_->presetDrawer()->visible());
}

TEST_F(QVMGenericUIKeyMenu, LeadsBackAndForthThroughTheHistory) {
    EXPECT_FALSE(row("Undo").enabled);
    EXPECT_FALSE(row("Redo").enabled);
    userSets(pidOutputGain, -6);
    frame();
    time_.advance(1);
    choose("Undo");
    EXPECT_EQ(memoized(pidOutputGain), 0);
    EXPECT_FALSE(row("Undo").enabled);
    choose("Redo");
    EXPECT_EQ(memoized(pidOutputGain), -6);
}

TEST_F(QVMGenericUIKeyMenu, FlipsBetweenAAndBAndCopiesTheOneToTheOther) {
    userSets(pidOutputGain, -6);
    frame();
    time_.advance(1);
    choose("Go to B");
    EXPECT_EQ(ui_->abState(), 1U);
    EXPECT_EQ(memoized(pidOutputGain), 0);
    choose("Go to A");
    EXPECT_EQ(ui_->abState(), 0U);
    choose("Copy A to B");
    EXPECT_EQ(ui_->abState(), 1U);
    EXPECT_EQ(memoized(pidOutputGain), -6);
}

TEST_F(QVMGenericUIKeyMenu, SwitchesPowerOffAndOnAgain) {
    focus(pidOutputGain);
    EXPECT_TRUE(row("Power").checked);
    choose("Power");
    EXPECT_EQ(memoized(pidMasterOnOff), 0);
    EXPECT_FALSE(row("Power").checked);
    choose("Power");
    EXPECT_EQ(memoized(pidMasterOnOff), 1);
}

TEST_F(QVMGenericUIKeyMenu, ChangesTheLayoutAndTheTheme) {
    choose("Advanced controls");
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameDoubleWide);
    EXPECT_TRUE(row("Advanced controls").checked);
    choose("Advanced controls");
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal);
    choose("Small window");
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameCompact);
    EXPECT_TRUE(row("Small window").checked);
    choose("Small window");
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal);
    choose("Dark theme");
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::dark());
    EXPECT_TRUE(row("Dark theme").checked);
}

TEST_F(QVMGenericUIKeyMenu, ResetsTheMeterAndOpensTheSettings) {
    choose("Reset meter");
    EXPECT_THAT(delegate_.calls, Contains("reset metering"));
    choose("Open all settings in browser");
    EXPECT_THAT(desktop_.opened, ElementsAre(desktop_.clipboard.value_or("")));
}

TEST_F(QVMGenericUIKeyMenu, OutlivesTheEditorWithoutHarm) {
    const auto menu = ui_->menuForKeyboard();
    ui_ = nullptr;
    window_.setContentView(std::make_unique<View>());
    delegate_.calls.clear();
    for (const MenuItem& item : menu->items.back().submenu)
        if (item.action) item.action();
    EXPECT_THAT(delegate_.calls, testing::IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
