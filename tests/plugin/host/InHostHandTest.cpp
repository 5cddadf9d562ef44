// The built VST3 and LV2 with real pointer and key events: what a hand does to a parameter, and what the host hears of
// it.
#include "plugin/host/InHost.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace QVM_NAMESPACE {
namespace {

using InHostHand = InHost;

TEST_P(InHostHand, ADragIsAGestureOfTheHost) {
    open();
    pointAt(gainHandle(0));
    press();
    glideTo(gainHandle(9));
    release();
    EXPECT_NEAR(gainDb(), 9, 0.6);
    EXPECT_TRUE(hasHeardOneGesture(3));
}

TEST_P(InHostHand, AltClickResets) {
    gain().setValue(0.75f);
    open();
    plugin_.run(0.4);
    pointAt(gainHandle(9));
    hold("Alt_L");
    click();
    letGo("Alt_L");
    EXPECT_NEAR(gainDb(), 0, 0.001);
    const auto kinds = plugin_.recorder().kinds();
    const auto begins = std::count_if(kinds.begin(), kinds.end(), [](const auto& k) { return k[0] == 'b'; });
    const auto ends = std::count_if(kinds.begin(), kinds.end(), [](const auto& k) { return k[0] == 'e'; });
    EXPECT_EQ(begins, ends);
}

// A reset has no end of its own, and a partner neither beginning nor end; a host hears them all the same. LV2 has no
// message for gestures.
TEST_P(InHostHand, WhatAPressHoldsEndsWithIt) {
    gain().setValue(0.75f);
    open();
    plugin_.run(0.4);
    const auto count = [this](const char* kind) {
        const auto& lines = plugin_.recorder().lines;
        return std::count_if(lines.begin(), lines.end(), [&](const auto& line) { return line.starts_with(kind); });
    };
    const auto hears = [&](int begins, int ends) {
        if (GetParam() == Format::lv2) begins = ends = 0;
        return comesTrue([&] { return count("begin") == begins && count("end") == ends && count("value") > 0; });
    };
    pointAt(gainHandle(9));
    hold("Alt_L");
    press();
    EXPECT_TRUE(hears(1, 0));
    plugin_.run(0.5);
    EXPECT_EQ(count("end"), 0) << "the button is down";
    release();
    letGo("Alt_L");
    EXPECT_TRUE(hears(1, 1));
    EXPECT_NEAR(gainDb(), 0, 0.001);

    plugin_.recorder().lines.clear();
    pointAt(map_.handleOf(pidTiltRangeLow, 100));
    press();
    glideTo(map_.handleOf(pidTiltRangeLow, 20000)); // past half of what the high end has
    EXPECT_TRUE(hears(2, 0));
    plugin_.run(0.5);
    EXPECT_EQ(count("end"), 0) << "the button is down";
    release();
    EXPECT_TRUE(hears(2, 2));
}

// The same way of the hand, three times.
TEST_P(InHostHand, ControlDragsFineAndShiftDragsCoarse) {
    open();
    const auto dragWith = [&](const char* modifier) {
        gain().setValue(0.5f);
        plugin_.run(0.4);
        const Point from = gainHandle(0);
        pointAt(from);
        if (*modifier) hold(modifier);
        press();
        glideTo({from.x + 40, from.y});
        release();
        if (*modifier) letGo(modifier);
        return gainDb();
    };
    const double plain = dragWith(""), fine = dragWith("Control_L"), coarse = dragWith("Shift_L");
    EXPECT_GT(plain, 3);
    EXPECT_NEAR(plain / 0.5, std::round(plain / 0.5), 1e-3) << plain;
    EXPECT_GT(fine, 0);
    EXPECT_LT(fine, plain / 2);
    EXPECT_NEAR(fine / 0.1, std::round(fine / 0.1), 1e-3) << fine;
    EXPECT_NEAR(coarse / 1.5, std::round(coarse / 1.5), 1e-3) << coarse;
    EXPECT_NEAR(coarse, plain, 0.8);
}

TEST_P(InHostHand, AModifierPressedInMidDragMakesNoJump) {
    for (const char* modifier : {"Control_L", "Shift_L"}) {
        open();
        gain().setValue(0.5f);
        plugin_.run(0.4);
        const Point from = gainHandle(0);
        pointAt(from);
        press();
        glideTo({from.x + 50, from.y});
        const double before = gainDb();
        hold(modifier);
        glideTo({from.x + 51, from.y});
        EXPECT_NEAR(gainDb(), before, *modifier == 'C' ? 0.11 : 0.76 + 0.15) << modifier;
        release();
        letGo(modifier);
        plugin_.closeEditor();
    }
}

TEST_P(InHostHand, DoubleClickThenTypedDigitsAndReturnSetTheValue) {
    open();
    pointAt(gainHandle(0));
    screen_.button(1, true), screen_.button(1, false);
    screen_.button(1, true), screen_.button(1, false);
    plugin_.run(0.3);
    EXPECT_TRUE(keepsKeyboard());
    for (const char* key : {"4", "period", "5"})
        type(key);
    EXPECT_NEAR(gainDb(), 0, 0.001) << "nothing is sent before Return";
    type("Return");
    EXPECT_NEAR(gainDb(), 4.5, 0.001);
}

TEST_P(InHostHand, AnArrowKeySteps) {
    open();
    pointAt(gainHandle(0));
    click();
    EXPECT_TRUE(keepsKeyboard());
    type("Up");
    EXPECT_NEAR(gainDb(), 0.5, 0.001);
    type("Left");
    type("Left");
    EXPECT_NEAR(gainDb(), -0.5, 0.001);
}

TEST_P(InHostHand, TheWheelIsInertOverASlider) {
    open();
    pointAt(gainHandle(0));
    screen_.button(4, true), screen_.button(4, false);
    plugin_.run(0.3);
    EXPECT_NEAR(gainDb(), 0, 1e-6);
    EXPECT_TRUE(plugin_.recorder().lines.empty()) << plugin_.recorder().lines.front();
}

INSTANTIATE_TEST_SUITE_P(Vst3, InHostHand, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, InHostHand, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

} // namespace
} // namespace QVM_NAMESPACE
