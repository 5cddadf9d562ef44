#include "editor/EditorFixture.h"
#include "editor/RecordingWorkspace.h"

#include "controls/QVMSymbolButton.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMPowerBox.h"
#include "platform/view/Menu.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QVMGenericUIMenu : public EditorFixture {
protected:
    static constexpr Point beside = {10, 15}; // in the preset bar
    static constexpr const char* site = "https://ferrowind.example/slantwise";

    std::unique_ptr<Menu> menuAt(Point at, std::uint32_t modifiers = 0) {
        return ui_->menuForEvent(mouseEvent(EventType::rightMouseDown, at, modifiers));
    }
    static std::vector<std::string> titles(const Menu& menu) { return titles(menu.items); }
    static std::vector<std::string> titles(const std::vector<MenuItem>& items) {
        std::vector<std::string> found;
        for (const MenuItem& item : items)
            found.push_back(item.isSeparator() ? "-" : item.title);
        return found;
    }
    static const MenuItem& itemNamed(const Menu& menu, const std::string& title) {
        const auto found = std::find_if(menu.items.begin(), menu.items.end(),
                                        [&](const MenuItem& item) { return item.title == title; });
        return found == menu.items.end() ? menu.items.front() : *found;
    }
    RecordingWorkspace desktop;
};

TEST_F(QVMGenericUIMenu, OfAControlBeginsWithWhatConcernsIt) {
    const auto menu = menuAt(middleOf(control(pidOutputGain)));
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->title, "Output Gain");
    EXPECT_THAT(titles(*menu),
                ElementsAre("Reset Output Gain to default", "Read about Output Gain", "-", "Meter Mode", "-",
                            "Copy all settings as URL to Clipboard", "Paste all settings from Clipboard",
                            "Reset all settings to default", "-", "Save preset as...", "Delete", "-", "Size",
                            "Spectrum", "-", "Ferrowind Slantwise, 2.0.1", "-", "Editor"));
    EXPECT_EQ(ui_->lastRightClickedControl(), &control(pidOutputGain));
}

TEST_F(QVMGenericUIMenu, OverOutputChoosesWhatTheMeterShows) {
    const QVMClumpView& output = *ui_->clumpViewWithCodename("Output");
    const Point heading = output.coordinates().toWindow(Point{output.bounds().midX(), 4});
    for (const Point at : {heading, middleOf(control(pidTiltLoudnessMode)), middleOf(control(pidOutputGain))}) {
        const auto menu = menuAt(at);
        const MenuItem& modes = itemNamed(*menu, "Meter Mode");
        ASSERT_THAT(titles(modes.submenu), ElementsAre("Pre", "Post", "Diff"));
        EXPECT_TRUE(modes.submenu[0].checked) << "as it was at first";
        EXPECT_FALSE(modes.submenu[1].checked);
    }
    itemNamed(*menuAt(heading), "Meter Mode").submenu[2].action();
    EXPECT_THAT(delegate_.calls, ElementsAre("updated 8", "discrete 8"));
    EXPECT_EQ(delegate_.unit[8], 2);
    const MenuItem after = itemNamed(*menuAt(heading), "Meter Mode");
    EXPECT_FALSE(after.submenu[0].checked);
    EXPECT_TRUE(after.submenu[2].checked);
}

TEST_F(QVMGenericUIMenu, OverOtherClumpsHasNoMeterMode) {
    for (const std::uint32_t pid : {1u, 9u, 13u})
        EXPECT_THAT(titles(*menuAt(middleOf(control(pid)))), testing::Not(testing::Contains("Meter Mode"))) << pid;
}

TEST_F(QVMGenericUIMenu, ElsewhereIsTheProducts) {
    const auto menu = menuAt(beside);
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->title, "Slantwise");
    EXPECT_THAT(titles(*menu), ElementsAre("Copy all settings as URL to Clipboard", "Paste all settings from Clipboard",
                                           "Reset all settings to default", "-", "Save preset as...", "Delete", "-",
                                           "Size", "Spectrum", "-", "Ferrowind Slantwise, 2.0.1", "-", "Editor"));
    EXPECT_EQ(ui_->lastRightClickedControl(), nullptr);
    itemNamed(*menu, "Ferrowind Slantwise, 2.0.1").action();
    EXPECT_THAT(desktop.opened, ElementsAre(site));
}

TEST_F(QVMGenericUIMenu, OnTheGroundOfAPanelIsTheEditorsWithWhatThePanelHas) {
    EXPECT_EQ(menuAt({400, 200})->title, "Output Gain") << "the meter's scale";
    const auto belowMeter = menuAt({400, 250});
    EXPECT_EQ(belowMeter->title, "Slantwise");
    EXPECT_EQ(belowMeter->items.front().title, "Meter Mode");
}

TEST_F(QVMGenericUIMenu, IsNotThereWhileOptionOrCommandIsHeld) {
    EXPECT_FALSE(menuAt(beside, EventModifier::option));
    EXPECT_FALSE(menuAt(beside, EventModifier::command));
    EXPECT_TRUE(menuAt(beside, EventModifier::shift));
}

TEST_F(QVMGenericUIMenu, HasThemeAndKeysAsThatOfTheKeyboardHas) {
    const auto byPointer = menuAt(beside), byKey = ui_->menuForKeyboard();
    EXPECT_EQ(titles(*byPointer), titles(*byKey));
    const std::vector<MenuItem>& editor = byPointer->items.back().submenu;
    EXPECT_EQ(titles(editor), titles(byKey->items.back().submenu));
    EXPECT_THAT(titles(editor), testing::IsSupersetOf({"Dark theme", "Keys and gestures", "Reset meter"}));
}

TEST_F(QVMGenericUIMenu, ResetsAControlThatIsNotAtItsInitialValue) {
    EXPECT_FALSE(menuAt(middleOf(control(pidOutputGain)))->items.front().enabled);
    hostSets(pidOutputGain, -6);
    const auto menu = menuAt(middleOf(control(pidOutputGain)));
    EXPECT_TRUE(menu->items.front().enabled);
    menu->items.front().action();
    EXPECT_EQ(memoized(pidOutputGain), 0);
}

TEST_F(QVMGenericUIMenu, AStaticConversionStandsBehindTheDocumentation) {
    QVMParameter& gain = *GetParameter(pidOutputGain);
    gain.staticConversions = {{"Zero"}, {"One"}};
    const auto atZero = titles(*menuAt(middleOf(control(pidOutputGain))));
    hostSets(pidOutputGain, 1.4f);
    const auto atOne = titles(*menuAt(middleOf(control(pidOutputGain))));
    hostSets(pidOutputGain, -3);
    const auto below = titles(*menuAt(middleOf(control(pidOutputGain))));
    gain.staticConversions.clear();
    EXPECT_EQ(atZero.at(2), "Zero");
    EXPECT_EQ(atOne.at(2), "One");
    EXPECT_EQ(below.at(2), "-");
}

TEST_F(QVMGenericUIMenu, ReadsAboutAControlInTheManual) {
    itemNamed(*menuAt(middleOf(control(pidOutputGain))), "Read about Output Gain").action();
    EXPECT_THAT(desktop.opened, ElementsAre(std::string(site) + "/2.0.1/manual/#OutputGain"));
}

TEST_F(QVMGenericUIMenu, PasteIsEnabledForAnAddressOfThisProductOnly) {
    const auto isEnabled = [this] { return itemNamed(*menuAt(beside), "Paste all settings from Clipboard").enabled; };
    EXPECT_FALSE(isEnabled()); // nothing there
    desktop.clipboard = "https://ferrowind.example/other/1.0/?tg:3";
    EXPECT_FALSE(isEnabled());
    desktop.clipboard = std::string(site) + "/2.0.1/?tg:3";
    EXPECT_TRUE(isEnabled());
}

TEST_F(QVMGenericUIMenu, CopyPutsTheAddressOnTheClipboard) {
    itemNamed(*menuAt(beside), "Copy all settings as URL to Clipboard").action();
    ASSERT_TRUE(desktop.clipboard);
    EXPECT_TRUE(desktop.clipboard->starts_with(std::string(site) + "/2.0.1/?")) << *desktop.clipboard;
}

TEST_F(QVMGenericUIMenu, ResetAllChoosesTheDefaultPreset) {
    hostSets(pidTiltGain, 6);
    ui_->lastSavedPresetWasKeyed(8);
    itemNamed(*menuAt(beside), "Reset all settings to default").action();
    EXPECT_EQ(memoized(pidTiltGain), 0);
    EXPECT_EQ(ui_->currentPreset(), 0u);
    EXPECT_EQ(delegate_.calls.back(), "preset Default 0");
}

TEST_F(QVMGenericUIMenu, TheLogoOpensAndCopiesTheSettings) {
    click(middleOf(ui_->powerBox()->logo()));
    ASSERT_TRUE(desktop.clipboard);
    EXPECT_THAT(desktop.opened, ElementsAre(*desktop.clipboard));
}

TEST_F(QVMGenericUIMenu, OutlivesTheEditorWithoutHarm) {
    hostSets(pidOutputGain, -6);
    const auto menu = menuAt(middleOf(control(pidOutputGain)));
    ui_ = nullptr;
    window_.setContentView(std::make_unique<View>());
    delegate_.calls.clear();
    for (const MenuItem& item : menu->items)
        if (item.action && item.title.find("Ferrowind") == std::string::npos) item.action();
    EXPECT_THAT(delegate_.calls, IsEmpty());
    EXPECT_THAT(desktop.opened, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
