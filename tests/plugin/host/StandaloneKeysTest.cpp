// The keyboard in the stand-alone program, which no pointer touches. What became of the keys is read from the address
// of all settings, copied by keys too.
#include "plugin/host/EditorProgram.h"
#include "plugin/host/TabStops.h"
#include "support/ShellCommand.h"

#include "description/Description.h"

#include <array>
#include <filesystem>
#include <utility>

#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

class StandaloneKeys : public EditorProgram {
protected:
    static constexpr const char* page = "https://ferrowind.example/slantwise/2.0.1/?";

    void SetUp() override {
        ASSERT_TRUE(slantwise_tests::isInstalled("xclip"));
        ASSERT_TRUE(screen_.isOpen()) << "needs a display";
        ASSERT_NO_FATAL_FAILURE(start({SLANTWISE_STANDALONE, "--scale", "1"}, {}, log_));
    }
    void TearDown() override {
        program_.reset();
        std::filesystem::remove(log_);
    }

    static std::string output(const std::string& command) { return slantwise_tests::runCommand(command).output; }
    static std::string clipboard() { return output("timeout 5 xclip -selection clipboard -o 2>/dev/null"); }
    // What differs from the initial settings, as in their address. Paste can't be chosen while there is nothing to
    // paste, so the way to Copy is the same whatever the focus.
    std::string settings() {
        output("printf none | xclip -selection clipboard >/dev/null 2>&1");
        EXPECT_TRUE(comesTrue([] { return clipboard() == "none"; }));
        chooseFromMenu({"Up", "Up", "Up", "Up", "Up", "Up", "Up", "Return"});
        std::string text;
        EXPECT_TRUE(HasFatalFailure() || comesTrue([&] { return (text = clipboard()).starts_with(page); })) << text;
        return text.starts_with(page) ? text.substr(std::string(page).size()) : text;
    }

    // A value is in its control once the unit has told the editor of it.
    testing::AssertionResult settingsBecome(const std::string& expected) {
        std::string last;
        for (int tries = 0; tries < 20 && !HasFatalFailure(); ++tries) {
            if ((last = settings()) == expected) return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << "they are " << last;
    }
    void openPresets() {
        const Picture before = wholePicture();
        chooseFromMenu({"Up", "Right", "Return"});
        // The menu is smaller than the list.
        ASSERT_TRUE(comesTrue([&] { return wholePicture().differingPixels(before) > listPixels; })) << "it opens";
        EXPECT_TRUE(comesTrue([&, last = wholePicture()]() mutable {
            rest(0.2);
            const Picture now = wholePicture();
            return std::exchange(last, now).differingPixels(now) < 100;
        })) << "and comes to rest";
    }
    // The arrow of the undo button is drawn stronger while there is something to undo.
    bool isOfferedUndo() { return pictureOf(undoButton).countOf(0x000000, 0x50) > 10; }

    static constexpr std::size_t listPixels = 40000, tipPixels = 8000; // more than a border and a meter
    static constexpr Rect undoButton{20, 4, 32, 22};
    const std::string log_ =
        (std::filesystem::temp_directory_path() / ("slantwise-keys-" + std::to_string(getpid()) + ".log")).string();
};

TEST_F(StandaloneKeys, TabWalksThroughAllControlsAndBack) {
    const std::array<const char*, tabStops.size()> moved = {"tg:0.5",   "trl:21",    "trh:20100", "tal:1", "out:0.5",
                                                            "frl:5",    "frh:23900", "fll:1",     "flh:1", "fsl:13",
                                                            "frsl:0.5", "fsh:13",    "frsh:0.5",  "hq:1"};
    std::vector<std::string> addresses = {""};
    for (const char* entry : moved)
        addresses.push_back(addresses.back() + (addresses.back().empty() ? "" : "/") + entry);
    for (std::size_t i = 0; i < tabStops.size(); ++i) {
        type({"Tab", tabStops[i].there});
        EXPECT_TRUE(settingsBecome(addresses[i + 1]));
    }
    type({"Tab"}); // round to the first
    for (std::size_t i = tabStops.size(); i-- > 0;) {
        typeWith("Shift_L", "Tab");
        type({tabStops[i].back});
        EXPECT_TRUE(settingsBecome(addresses[i]));
    }
}

TEST_F(StandaloneKeys, AFrequencyIsTypedInThousands) {
    type({"Tab", "Tab", "1", "period", "5", "k", "Return"});
    EXPECT_TRUE(settingsBecome("trl:1500"));
    type({"2", "k", "Tab", "8", "comma", "5", "k", "BackSpace", "k", "Return"});
    EXPECT_TRUE(settingsBecome("trl:2000/trh:8500")) << "Tab applies a number, and a comma is a point";
    type({"1", "k", "Return"});
    EXPECT_TRUE(settingsBecome("trl:500/trh:1000")) << "the other end is pushed";
}

TEST_F(StandaloneKeys, ArrowsStepWithShiftAndControl) {
    type({"Tab", "Right"});
    typeWith("Control_L", "Right");
    EXPECT_TRUE(settingsBecome("tg:0.6"));
    typeWith("Shift_L", "Up");
    EXPECT_TRUE(settingsBecome("tg:1.5"));
}

// The server begins to repeat it later than the first step becomes one of the history.
TEST_F(StandaloneKeys, WhatAHeldArrowKeyDidIsUndoneInOneStep) {
    type({"Tab"});
    ASSERT_TRUE(comesTrue([&] {
        type({"Up"});
        rest(1);
        return isOfferedUndo();
    })) << "the history has begun";
    const std::string was = settings();
    screen_.key("Down", true);
    rest(2);
    screen_.key("Down", false);
    rest(1);
    const std::string held = settings();
    EXPECT_TRUE(held.starts_with("tg:-")) << held << ": it was repeated";
    chooseFromMenu({"Up", "Right", "Down", "Return"});
    EXPECT_TRUE(settingsBecome(was));
}

TEST_F(StandaloneKeys, ReturnFlipsASwitchAndTheGraveKeyWalksBack) {
    type({"Tab", "grave", "Return"});
    EXPECT_TRUE(settingsBecome("hq:1"));
    type({"Return"});
    EXPECT_TRUE(settingsBecome(""));
}

TEST_F(StandaloneKeys, EscapeForgetsANumberAndClosesThePresets) {
    type({"Tab", "5", "Escape", "Return"});
    EXPECT_TRUE(settingsBecome(""));
    openPresets();
    const Picture list = wholePicture();
    type({"Down"});
    EXPECT_TRUE(settingsBecome("tg:6")) << "the next preset";
    type({"Escape"});
    ASSERT_TRUE(comesTrue([&] { return wholePicture().differingPixels(list) > listPixels; })) << "it closes";
    type({"Tab", "Up"});
    EXPECT_TRUE(settingsBecome("tg:6.5")) << "keys go to the controls again";
}

// As a user without a pointer does it: off, and on again with no control in focus.
TEST_F(StandaloneKeys, TheMenuLeadsToUndoAndPower) {
    type({"Tab"});
    // What is changed within half a second of the opening is the beginning of the history.
    std::string was;
    ASSERT_TRUE(comesTrue([&] {
        was = settings();
        type({"Up"});
        rest(1);
        return isOfferedUndo();
    }));
    chooseFromMenu({"Up", "Right", "Down", "Return"});
    EXPECT_TRUE(settingsBecome(was));
    const Picture on = wholePicture();
    // Past Presets, Redo, and A and B.
    chooseFromMenu({"Up", "Right", "Down", "Down", "Down", "Down", "Return"});
    ASSERT_TRUE(comesTrue([&] { return wholePicture().differingPixels(on) > 3000; })) << "all is dimmed";
    type({"Tab"});
    chooseFromMenu({"Up", "Right", "Down", "Down", "Down", "Down", "Return"});
    ASSERT_TRUE(comesTrue([&] { return wholePicture().differingPixels(on) < 3000; })) << "and no more";
    type({"Tab", "4", "Return"});
    EXPECT_TRUE(settingsBecome("tg:4"));
}

TEST_F(StandaloneKeys, F1ListsTheKeysUntilEscape) {
    const Picture before = wholePicture();
    type({"F1"});
    ASSERT_TRUE(comesTrue([&] { return wholePicture().differingPixels(before) > listPixels; }));
    type({"Escape"});
    EXPECT_TRUE(comesTrue([&] { return wholePicture().differingPixels(before) < tipPixels; })) << "but for the meter";
}

TEST_F(StandaloneKeys, ARestAfterTabShowsATipUntilTheNextKey) {
    type({"Tab"});
    const Picture before = wholePicture();
    EXPECT_TRUE(comesTrue([&] { return wholePicture().differingPixels(before) > tipPixels; }));
    type({"Escape"});
    EXPECT_TRUE(comesTrue([&] { return wholePicture().differingPixels(before) < tipPixels; }));
}

} // namespace
} // namespace QVM_NAMESPACE
