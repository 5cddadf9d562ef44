// The keyboard in a host: what the editor takes, what it leaves, and that the host is none the worse for it.
#include "plugin/host/InHost.h"

#include "description/Description.h"

#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using Keys = std::vector<std::string>;

class InHostKeys : public InHost {
protected:
    void open() {
        InHost::open();
        hostFocus_ = screen_.focus();
    }
    // On a control that takes the keyboard, or on anything else.
    void clickOnControl(Point editorPoint) {
        clickOn(editorPoint);
        EXPECT_TRUE(comesTrue([this] { return screen_.focus() != hostFocus_; })) << "the editor has the keyboard";
    }
    void clickBeside(Point editorPoint) {
        clickOn(editorPoint);
        EXPECT_TRUE(comesTrue([this] { return screen_.focus() == hostFocus_; })) << "the host has the keyboard";
    }
    Point middleOf(std::uint32_t pid) {
        const Rect frame = map_.frameOf(pid);
        return {frame.midX(), frame.midY()};
    }
    void clickOn(Point editorPoint) {
        pointAt(editorPoint);
        click();
    }
    void typeAll(std::initializer_list<const char*> keys) {
        for (const char* key : keys)
            type(key);
    }
    void typeWith(const char* modifier, const char* key) {
        screen_.key(modifier, true);
        type(key);
        screen_.key(modifier, false);
        plugin_.run(0.1);
    }
    // What the host got since it was last asked.
    Keys takeHostKeys() {
        plugin_.run(0.1);
        const Keys keys = plugin_.hostKeys();
        plugin_.forgetHostKeys();
        return keys;
    }
    // As the host has them, 0 to 1.
    double hostValue(std::uint32_t pid) { return plugin_.parameter(GetParameter(pid)->name.c_str()).getValue(); }
    double shownValue(std::uint32_t pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        const double host = parameter.minValue + hostValue(pid) * (parameter.maxValue - parameter.minValue);
        return parameter.castValue(static_cast<float>(host));
    }

private:
    unsigned long hostFocus_ = 0;
};

// All that stand in the order, with a key that moves each from where it is at first and one that moves it back.
struct Stop {
    std::uint32_t pid;
    const char *there, *back;
};
constexpr std::array<Stop, 14> stops = {{{1, "Up", "Down"},
                                         {2, "Up", "Down"},
                                         {3, "Up", "Down"},
                                         {6, "Up", "Down"},
                                         {7, "Up", "Down"},
                                         {9, "Up", "Down"},
                                         {10, "Down", "Up"},
                                         {13, "Return", "Return"},
                                         {20, "Return", "Return"},
                                         {14, "Up", "Down"},
                                         {15, "Up", "Down"},
                                         {21, "Up", "Down"},
                                         {22, "Up", "Down"},
                                         {23, "Return", "Return"}}};
constexpr Point besideControls = {10, 200};

TEST_P(InHostKeys, TheSpaceBarWorksInTheHostAfterAnyClick) {
    open();
    type("space");
    EXPECT_EQ(takeHostKeys(), Keys{"spacebar"}) << "before any click";
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
        EXPECT_EQ(takeHostKeys(), (Keys{"spacebar", "spacebar"})) << name;
        EXPECT_FALSE(juce::KeyPress::isKeyCurrentlyDown(juce::KeyPress::spaceKey)) << name;
    }
}

TEST_P(InHostKeys, TheSpaceBarWorksInTheHostAfterAMenu) {
    open();
    clickOn(middleOf(6)); // opens the menu of the loudness modes
    plugin_.run(1.5);     // a busy machine takes its time to open the first one
    type("Escape");
    EXPECT_EQ(takeHostKeys(), Keys());
    typeAll({"space", "space"});
    EXPECT_EQ(takeHostKeys(), (Keys{"spacebar", "spacebar"}));
}

TEST_P(InHostKeys, ShortcutsReachTheHostWhileAControlHasTheFocus) {
    open();
    clickOnControl(gainHandle(0));
    typeWith("Control_L", "s");
    typeWith("Shift_L", "r");
    typeAll({"m", "F5"});
    EXPECT_EQ(takeHostKeys(), (Keys{"ctrl + S", "shift + R", "M", "F5"}));
}

TEST_P(InHostKeys, KeysThatTheEditorTakesDoNotReachTheHost) {
    open();
    clickOnControl(gainHandle(0));
    typeAll({"minus", "1", "2", "period", "5", "BackSpace", "4", "Return", "Up", "Tab"});
    typeWith("Shift_L", "Tab");
    EXPECT_NEAR(gainDb(), -12, 0.001); // the step goes to a whole one
    EXPECT_EQ(takeHostKeys(), Keys());
}

TEST_P(InHostKeys, AFrequencyIsTypedInThousands) {
    open();
    clickOnControl(map_.handleOf(2, 20));
    typeAll({"1", "period", "5", "k"});
    EXPECT_NEAR(shownValue(2), 20, 0.01) << "nothing is sent before Return";
    type("Return");
    EXPECT_NEAR(shownValue(2), 1500, 0.5);
}

TEST_P(InHostKeys, ArrowsStepWithShiftAndControl) {
    open();
    clickOnControl(gainHandle(0));
    type("Right");
    EXPECT_NEAR(gainDb(), 0.5, 1e-3);
    typeWith("Control_L", "Right");
    EXPECT_NEAR(gainDb(), 0.6, 1e-3);
    typeWith("Control_L", "Down");
    typeWith("Shift_L", "Up");
    EXPECT_NEAR(gainDb(), 1.5, 1e-3); // coarse values are far apart
    EXPECT_EQ(takeHostKeys(), Keys());
}

TEST_P(InHostKeys, TabWalksThroughAllControlsAndBack) {
    open();
    clickOnControl(gainHandle(0));
    const auto movesOnly = [this](const Stop& stop, const char* key) {
        std::vector<double> before;
        for (const Stop& each : stops)
            before.push_back(hostValue(each.pid));
        type(key);
        plugin_.run(0.1);
        for (std::size_t i = 0; i < stops.size(); ++i)
            EXPECT_EQ(hostValue(stops[i].pid) != before[i], stops[i].pid == stop.pid)
                << key << " for " << stop.pid << " at " << stops[i].pid;
    };
    for (const Stop& stop : stops) {
        movesOnly(stop, stop.there);
        type("Tab");
    }
    for (auto stop = stops.rbegin(); stop != stops.rend(); ++stop) {
        typeWith("Shift_L", "Tab");
        movesOnly(*stop, stop->back);
    }
    for (const Stop& stop : stops)
        EXPECT_NEAR(shownValue(stop.pid), double{GetParameter(stop.pid)->initialValue},
                    double{GetParameter(stop.pid)->initialValue} * 1e-3 + 1e-3);
    EXPECT_EQ(takeHostKeys(), Keys());
}

TEST_P(InHostKeys, EscapeForgetsWhatWasTypedAndGivesTheKeyboardBack) {
    open();
    clickOnControl(gainHandle(0));
    typeAll({"4", "Escape"});
    EXPECT_EQ(takeHostKeys(), Keys());
    typeAll({"5", "Return", "Up", "Escape"});
    EXPECT_EQ(takeHostKeys(), (Keys{"5", "return", "cursor up", "escape"}));
    EXPECT_NEAR(gainDb(), 0, 1e-6);
}

TEST_P(InHostKeys, ALossOfFocusForAMomentLosesNothingThatWasTyped) {
    open();
    clickOnControl(gainHandle(0));
    typeAll({"4", "period"});
    screen_.blinkFocus();
    plugin_.run(0.3);
    typeAll({"5", "Return"});
    EXPECT_NEAR(gainDb(), 4.5, 1e-3);
}

INSTANTIATE_TEST_SUITE_P(Vst3, InHostKeys, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, InHostKeys, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

} // namespace
} // namespace QVM_NAMESPACE
