// The keyboard in a host: what the editor takes, what it leaves, and that the host is none the worse for it.
#include "plugin/host/InHost.h"
#include "plugin/host/TabStops.h"

namespace QVM_NAMESPACE {
namespace {

class InHostKeys : public InHost {
protected:
    // On anything that does not take the keyboard.
    void clickBeside(Point editorPoint) {
        clickOn(editorPoint);
        EXPECT_TRUE(comesTrue([this] { return screen_.focus() == hostFocus_; })) << "the host has the keyboard";
    }
    Point middleOf(std::uint32_t pid) {
        const Rect frame = map_.frameOf(pid);
        return {frame.midX(), frame.midY()};
    }
    void typeWith(const char* modifier, const char* key) {
        screen_.key(modifier, true);
        type(key);
        screen_.key(modifier, false);
        plugin_.run(0.1);
    }
    // Whether so many pixels of the editor come to differ from an earlier picture, or fewer come to differ.
    bool differsFrom(const Picture& before, std::size_t pixels) {
        return comesTrue([&] { return wholePicture().differingPixels(before) > pixels; });
    }
    bool looksAgainLike(const Picture& before, std::size_t pixels) {
        return comesTrue([&] { return wholePicture().differingPixels(before) < pixels; });
    }
};

constexpr std::size_t menuPixels = 3000, listPixels = 20000; // less than what they cover

TEST_P(InHostKeys, TheSpaceBarWorksInTheHostAfterAnyClick) {
    open();
    type("space");
    EXPECT_TRUE(hostGets({"spacebar"})) << "before any click";
    const std::pair<const char*, Point> places[] = {{"a slider", gainHandle(0)},
                                                    {"beside the controls", besideControls},
                                                    {"a vertical slider", middleOf(7)},
                                                    {"a listen switch", middleOf(13)},
                                                    {"the listen switch again", middleOf(13)},
                                                    {"the preset bar", {60, 15}},
                                                    {"the power switch", middleOf(0)},
                                                    {"the power switch again", middleOf(0)},
                                                    {"the slider again", gainHandle(0)}};
    for (const auto& [name, place] : places) {
        clickOn(place);
        typeAll({"space", "space"});
        EXPECT_TRUE(hostGets({"spacebar", "spacebar"})) << name;
        EXPECT_FALSE(juce::KeyPress::isKeyCurrentlyDown(juce::KeyPress::spaceKey)) << name;
    }
}

TEST_P(InHostKeys, TheSpaceBarWorksInTheHostAfterAMenu) {
    open();
    const Picture before = wholePicture();
    clickOn(middleOf(6));
    ASSERT_TRUE(differsFrom(before, menuPixels)) << "the menu of the loudness modes opens";
    type("Escape");
    ASSERT_TRUE(looksAgainLike(before, menuPixels)) << "and closes";
    EXPECT_TRUE(hostGetsNothing());
    typeAll({"space", "space"});
    EXPECT_TRUE(hostGets({"spacebar", "spacebar"}));
}

TEST_P(InHostKeys, TheSpaceBarWorksInTheHostAfterEscapeHasClosedThePresets) {
    open();
    const Picture before = wholePicture();
    clickOn({209, 15}); // the preset's name
    ASSERT_TRUE(differsFrom(before, listPixels)) << "the list opens";
    type("Escape");
    ASSERT_TRUE(looksAgainLike(before, listPixels)) << "and closes";
    EXPECT_TRUE(hostGetsNothing());
    typeAll({"space", "space"});
    EXPECT_TRUE(hostGets({"spacebar", "spacebar"}));
}

TEST_P(InHostKeys, TheMenuKeyLeadsToThePowerSwitchAndBack) {
    open();
    clickOnControl(gainHandle(0));
    pointAt({-20, -20}); // a row under the pointer would be marked
    for (const int power : {0, 1}) {
        const Picture before = wholePicture();
        type("Menu");
        ASSERT_TRUE(differsFrom(before, menuPixels));
        typeAll({"Up", "Right", "Down", "Down", "Down", "Return"});
        EXPECT_TRUE(becomes(0, power)) << power;
    }
    EXPECT_TRUE(hostGetsNothing());
    type("Up");
    EXPECT_TRUE(becomes(pidTiltGain, 0.5)) << "the control has the keyboard as before";
}

TEST_P(InHostKeys, ShortcutsReachTheHostWhileAControlHasTheFocus) {
    open();
    clickOnControl(gainHandle(0));
    typeWith("Control_L", "s");
    typeWith("Shift_L", "r");
    typeAll({"m", "F5"});
    EXPECT_TRUE(hostGets({"ctrl + S", "shift + R", "M", "F5"}));
}

TEST_P(InHostKeys, KeysThatTheEditorTakesDoNotReachTheHost) {
    open();
    clickOnControl(gainHandle(0));
    typeAll({"minus", "1", "2", "period", "5", "BackSpace", "4", "Return", "Up", "Tab"});
    typeWith("Shift_L", "Tab");
    EXPECT_TRUE(becomes(pidTiltGain, -12)); // the step goes to a whole one
    EXPECT_TRUE(hostGetsNothing());
}

TEST_P(InHostKeys, AFrequencyIsTypedInThousands) {
    open();
    clickOnControl(map_.handleOf(pidTiltRangeLow, 20));
    typeAll({"1", "period", "5", "k"});
    EXPECT_NEAR(shownValue(2), 20, 0.01) << "nothing is sent before Return";
    type("Return");
    EXPECT_TRUE(becomes(2, 1500, 0.5));
}

TEST_P(InHostKeys, ArrowsStepWithShiftAndControl) {
    open();
    clickOnControl(gainHandle(0));
    type("Right");
    EXPECT_TRUE(becomes(pidTiltGain, 0.5));
    typeWith("Control_L", "Right");
    EXPECT_TRUE(becomes(pidTiltGain, 0.6));
    typeWith("Control_L", "Down");
    typeWith("Shift_L", "Up");
    EXPECT_TRUE(becomes(pidTiltGain, 1.5)); // coarse values are far apart
    EXPECT_TRUE(hostGetsNothing());
}

TEST_P(InHostKeys, TabWalksThroughAllControlsAndBack) {
    open();
    clickOnControl(gainHandle(0));
    const auto movesOnly = [this](const TabStop& stop, const char* key) {
        std::vector<double> before;
        before.reserve(tabStops.size());
        for (const TabStop& each : tabStops)
            before.push_back(hostValue(each.pid));
        type(key);
        EXPECT_TRUE(comesTrue(
            [&] { return hostValue(stop.pid) != before[static_cast<std::size_t>(&stop - tabStops.data())]; }));
        for (std::size_t i = 0; i < tabStops.size(); ++i)
            EXPECT_EQ(hostValue(tabStops[i].pid) != before[i], tabStops[i].pid == stop.pid)
                << key << " for " << stop.pid << " at " << tabStops[i].pid;
    };
    for (const TabStop& stop : tabStops) {
        movesOnly(stop, stop.there);
        type("Tab");
    }
    for (auto stop = tabStops.rbegin(); stop != tabStops.rend(); ++stop) {
        typeWith("Shift_L", "Tab");
        movesOnly(*stop, stop->back);
    }
    for (const TabStop& stop : tabStops)
        EXPECT_NEAR(shownValue(stop.pid), double{GetParameter(stop.pid)->initialValue},
                    double{GetParameter(stop.pid)->initialValue} * 1e-3 + 1e-3);
    EXPECT_TRUE(hostGetsNothing());
}

TEST_P(InHostKeys, EscapeForgetsWhatWasTypedAndGivesTheKeyboardBack) {
    open();
    clickOnControl(gainHandle(0));
    typeAll({"4", "Escape"});
    EXPECT_TRUE(hostGetsNothing());
    typeAll({"5", "Return", "Up", "Escape"});
    EXPECT_TRUE(hostGets({"5", "return", "cursor up", "escape"}));
    EXPECT_NEAR(gainDb(), 0, 1e-6);
}

TEST_P(InHostKeys, ALossOfFocusForAMomentLosesNothingThatWasTyped) {
    open();
    clickOnControl(gainHandle(0));
    typeAll({"4", "period"});
    screen_.blinkFocus();
    plugin_.run(0.3);
    typeAll({"5", "Return"});
    EXPECT_TRUE(becomes(pidTiltGain, 4.5));
}

INSTANTIATE_TEST_SUITE_P(Vst3, InHostKeys, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, InHostKeys, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

} // namespace
} // namespace QVM_NAMESPACE
