// Presses in a host that does not leave them alone: it takes the keyboard back for its own window, or goes away in the
// middle of one.
#include "plugin/host/InHost.h"

#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

class InHostPress : public InHost {
protected:
    static constexpr std::size_t menuPixels = 3000; // less than what one covers

    void open() {
        InHost::open();
        host_ = screen_.focus();
    }
    // What window managers and hosts do in answer to a press in a part of a window: the window gets the focus.
    void answer(double secondsLater) {
        plugin_.run(secondsLater);
        screen_.setFocus(host_);
    }
    bool hasEditorTheKeyboard() {
        return comesTrue([this] { return screen_.focus() != host_; });
    }
    bool isMenuOpen(const Picture& before) { return wholePicture().differingPixels(before) > menuPixels; }
    void hold(int button, double seconds) {
        screen_.button(button, true);
        answer(0.002);
        plugin_.run(seconds);
        screen_.button(button, false);
        plugin_.run(0.3);
    }
    // LV2 has no message for gestures: there it is given the time.
    bool hasGestureEnded() {
        if (GetParam() == Format::lv2) return plugin_.run(1), true;
        return comesTrue([this] {
            const auto& lines = plugin_.recorder().lines;
            return !lines.empty() && lines.back().starts_with("end");
        });
    }
    unsigned long topLevel() { return screen_.findWindow(480, 320).value_or(XScreen::Found{}).topLevel; }

    unsigned long host_ = 0;
};

TEST_P(InHostPress, TheKeyboardIsTheEditorsAlthoughTheHostTakesItInMidPress) {
    open();
    for (int i = 0; i < 10; ++i) {
        pointAt(gainHandle(i % 2 == 0 ? 0 : 6));
        hold(1, 0.1);
        EXPECT_TRUE(hasEditorTheKeyboard()) << i;
        type(i % 2 == 0 ? "6" : "0");
        type("Return");
        EXPECT_TRUE(comesTrue([&] { return std::abs(gainDb() - (i % 2 == 0 ? 6 : 0)) < 1e-3; })) << i;
        EXPECT_TRUE(plugin_.hostKeys().empty()) << i;
    }
}

TEST_P(InHostPress, TheKeyboardIsTheEditorsAlthoughTheHostTakesItAfterAQuickClick) {
    open();
    for (const double later : {0.002, 0.02, 0.1}) {
        pointAt(gainHandle(0));
        screen_.button(1, true);
        screen_.button(1, false);
        answer(later);
        plugin_.run(0.3);
        EXPECT_TRUE(hasEditorTheKeyboard()) << later;
        type("Escape");
        EXPECT_TRUE(comesTrue([this] { return screen_.focus() == host_; })) << later;
    }
}

TEST_P(InHostPress, AHostThatWantsTheKeyboardForGoodGetsIt) {
    open();
    pointAt(gainHandle(0));
    hold(1, 0.1);
    ASSERT_TRUE(hasEditorTheKeyboard());
    plugin_.run(0.5);
    screen_.setFocus(host_);
    plugin_.run(0.5);
    EXPECT_EQ(screen_.focus(), host_);
}

TEST_P(InHostPress, AContextMenuStaysOpenAndChoosesNothingWhenItsPressEnds) {
    open();
    const std::pair<Point, double> presses[] = {
        {gainHandle(0), 0.02}, {gainHandle(0), 0.6}, {{200, 310}, 0.6}, {{10, 200}, 0.3}};
    for (const auto& [place, seconds] : presses) {
        pointAt(place);
        const Picture before = wholePicture();
        hold(3, seconds);
        EXPECT_TRUE(isMenuOpen(before)) << place.x << ' ' << seconds;
        plugin_.run(0.5);
        EXPECT_TRUE(isMenuOpen(before)) << "and stays " << place.x << ' ' << seconds;
        type("Escape");
        EXPECT_TRUE(comesTrue([&] { return !isMenuOpen(before); })) << "it has the keyboard";
        EXPECT_TRUE(plugin_.hostKeys().empty());
    }
    EXPECT_TRUE(plugin_.recorder().lines.empty());
}

TEST_P(InHostPress, TheClickThatClosesAMenuDoesNothingElse) {
    open();
    for (const int button : {1, 3}) {
        const Picture before = wholePicture();
        pointAt({400, 250});
        screen_.button(3, true);
        plugin_.run(0.1);
        screen_.button(3, false);
        ASSERT_TRUE(comesTrue([&] { return isMenuOpen(before); }));
        pointAt(gainHandle(-9)); // beside handle and menu: a press moves the handle there
        screen_.button(button, true);
        plugin_.run(0.1);
        screen_.button(button, false);
        EXPECT_TRUE(comesTrue([&] { return !isMenuOpen(before); })) << button;
        plugin_.run(0.3);
        EXPECT_TRUE(plugin_.recorder().lines.empty()) << button;
        EXPECT_FALSE(isMenuOpen(before)) << button;
    }
}

TEST_P(InHostPress, ADragEndsWhereTheWindowIsMinimised) {
    open();
    pointAt(gainHandle(0));
    press();
    glideTo(gainHandle(4));
    const unsigned long window = topLevel();
    ASSERT_NE(window, 0u);
    screen_.minimise(window);
    EXPECT_TRUE(hasGestureEnded()) << "while the button is held";
    release();
    screen_.restore(window);
    plugin_.run(0.5);
    const double value = gainDb();
    const auto told = plugin_.recorder().lines;
    glideTo(gainHandle(-9));
    EXPECT_EQ(gainDb(), value);
    EXPECT_EQ(plugin_.recorder().lines, told);
    glideTo(gainHandle(value));
    press();
    glideTo(gainHandle(-3));
    release();
    EXPECT_NEAR(gainDb(), -3, 0.6) << "the next press is one";
}

TEST_P(InHostPress, ADragEndsWhereTheKeyboardGoesToAnotherProgram) {
    open();
    pointAt(gainHandle(0));
    press();
    glideTo(gainHandle(4));
    plugin_.run(0.5);
    XScreen another;
    const unsigned long window = another.showAnotherWindow(20, 20, 100, 50);
    EXPECT_TRUE(comesTrue([&] { return screen_.isFocusIn(window); }));
    EXPECT_TRUE(hasGestureEnded());
    const double value = gainDb();
    glideTo(gainHandle(-9));
    EXPECT_EQ(gainDb(), value) << "though the button is held";
    release();
    EXPECT_EQ(gainDb(), value);
}

TEST_P(InHostPress, AfterAnEditorClosedInMidDragTheFirstPressOfTheNextDrags) {
    open();
    pointAt(gainHandle(0));
    press();
    glideTo(gainHandle(6));
    EXPECT_TRUE(comesTrue([this] { return std::abs(gainDb() - 6) < 1; }));
    plugin_.closeEditor();
    release();
    const double left = gainDb();
    open();
    pointAt(gainHandle(left));
    press();
    glideTo(gainHandle(-6));
    EXPECT_TRUE(comesTrue([this] { return std::abs(gainDb() + 6) < 1; }));
    release();
    EXPECT_TRUE(hasGestureEnded());
}

INSTANTIATE_TEST_SUITE_P(Vst3, InHostPress, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, InHostPress, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

} // namespace
} // namespace QVM_NAMESPACE
