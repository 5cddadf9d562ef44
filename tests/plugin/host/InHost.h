// A plug-in format in a small host with a real window, pointer and keyboard: the fixture of the tests in this folder.
// Needs a display with a window manager.
#pragma once

#include "description/Description.h"
#include "description/ParameterIDs.h"
#include "plugin/host/EditorMap.h"
#include "plugin/host/HostedPlugin.h"
#include "plugin/host/MenuHand.h"
#include "plugin/host/XScreen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

using slantwise_tests::Format;
using slantwise_tests::HostedPlugin;
using slantwise_tests::Picture;
using slantwise_tests::XScreen;

class InHost : public testing::TestWithParam<Format> {
protected:
    static constexpr std::uint32_t gainColour = 0xA54D55;
    static constexpr Rect curveBox = EditorMap::curveBox, meterTrack = EditorMap::meterTrack;
    static constexpr Point besideControls{10, 200}, beside{-20, -20}; // the latter outside of the editor

    void SetUp() override {
        ASSERT_TRUE(screen_.isOpen()) << "needs a display";
        ASSERT_NE(plugin_.instance(), nullptr) << plugin_.error();
    }

    // Opens the editor and waits until it has painted its handles and the host's window has the keyboard: a host that
    // is only being activated takes the focus away from an editor that was clicked already.
    void open() {
        screen_.movePointer(5, 5);
        plugin_.openEditor();
        EXPECT_TRUE(comesTrue([this] { return pictureOf(map_.frameOf(pidTiltGain)).countOf(gainColour, 4) > 200; }));
        EXPECT_TRUE(comesTrue([this] { return plugin_.editor()->getPeer()->isFocused(); }));
        hostFocus_ = screen_.focus();
        plugin_.recorder().lines.clear();
    }

    // Lets the host run until the condition holds; false when it has not come true after seconds enough for any
    // machine.
    template <class F>
    bool comesTrue(F&& condition) {
        for (int i = 0; i < 100; ++i) {
            if (condition()) return true;
            plugin_.run(0.1);
        }
        return false;
    }

    // Whether the editor comes to have the keyboard after a press, and to keep it: window manager and host may answer
    // the press late, by giving it to the host once more.
    bool keepsKeyboard() {
        return comesTrue([this, looks = 0]() mutable {
            looks = screen_.focus() != hostFocus_ ? looks + 1 : 0;
            return looks == 4;
        });
    }

    // Whether these are the keys that the host gets from the last question on, and no others.
    testing::AssertionResult hostGets(const std::vector<std::string>& keys) {
        comesTrue([&] { return plugin_.hostKeys().size() >= keys.size(); });
        plugin_.run(0.1);
        const std::vector<std::string> got = plugin_.hostKeys();
        plugin_.forgetHostKeys();
        if (got == keys) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "the host got " << testing::PrintToString(got);
    }
    testing::AssertionResult hostGetsNothing() { return hostGets({}); }
    testing::AssertionResult becomes(std::uint32_t pid, double shown, double tolerance = 1e-3) {
        const bool isSo = comesTrue([&] { return std::abs(shownValue(pid) - shown) <= tolerance; });
        return isSo ? testing::AssertionSuccess() : testing::AssertionFailure() << "it is " << shownValue(pid);
    }
    // As the host has them, 0 to 1.
    double hostValue(std::uint32_t pid) { return plugin_.parameter(GetParameter(pid)->name.c_str()).getValue(); }
    double shownValue(std::uint32_t pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        const double host = parameter.minValue + hostValue(pid) * (parameter.maxValue - parameter.minValue);
        return GetParam() == Format::lv2 ? host : parameter.castValue(static_cast<float>(host));
    }
    // Whether all that the host has heard is one gesture on one parameter, with so many values at least. LV2 has no
    // message for gestures on this kind of parameter: there the session is marked as modified by a message of its own.
    testing::AssertionResult hasHeardOneGesture(std::ptrdiff_t leastValues) {
        const bool hasGestures = GetParam() == Format::vst3;
        if (!hasGestures && !comesTrue([this] { return plugin_.recorder().stateChanges == 1; }))
            return testing::AssertionFailure() << plugin_.recorder().stateChanges << " changes of the state";
        const auto kinds = plugin_.recorder().kinds();
        const auto failure = [&] { return testing::AssertionFailure() << testing::PrintToString(kinds); };
        if (kinds.empty()) return failure();
        const std::string number = kinds.back().substr(kinds.back().find(' ')); // of the parameter, as the host counts
        const auto countOf = [&](const char* kind) { return std::ranges::count(kinds, kind + number); };
        const std::ptrdiff_t ends = hasGestures ? 1 : 0;
        const bool isInOrder = !hasGestures || (kinds.front() == "begin" + number && kinds.back() == "end" + number);
        const bool isOne = isInOrder && countOf("begin") == ends && countOf("end") == ends &&
                           countOf("value") + 2 * ends == std::ssize(kinds) && countOf("value") >= leastValues;
        return isOne ? testing::AssertionSuccess() : failure();
    }
    // What the host shows for the tilt gain, in decibels.
    double gainDb() { return 36 * static_cast<double>(gain().getValue()) - 18; }
    juce::AudioProcessorParameter& gain() { return plugin_.parameter("Tilt Gain"); }

    // The pointer goes there in small steps, as a hand moves it.
    void glideTo(Point editorPoint) {
        for (int i = 1; i <= steps; ++i) {
            const double part = static_cast<double>(i) / steps;
            jumpTo({at_.x + (editorPoint.x - at_.x) * part, at_.y + (editorPoint.y - at_.y) * part}, 0.015);
        }
        at_ = editorPoint;
        plugin_.run(0.1);
    }
    void pointAt(Point editorPoint) {
        jumpTo(editorPoint, 0.1);
        at_ = editorPoint;
    }
    void press() {
        screen_.button(1, true);
        plugin_.run(0.1);
    }
    void release() {
        screen_.button(1, false);
        plugin_.run(0.2);
    }
    void hold(const char* key) {
        screen_.key(key, true);
        plugin_.run(0.1);
    }
    void letGo(const char* key) {
        screen_.key(key, false);
        plugin_.run(0.1);
    }
    void type(const char* key) {
        screen_.typeKey(key);
        plugin_.run(0.1);
    }
    void click(int button = 1) {
        screen_.button(button, true);
        plugin_.run(0.1);
        screen_.button(button, false);
        plugin_.run(0.2);
    }
    void clickOn(Point editorPoint) {
        pointAt(editorPoint);
        click();
    }
    // On a control that takes the keyboard.
    void clickOnControl(Point editorPoint) {
        clickOn(editorPoint);
        EXPECT_TRUE(keepsKeyboard()) << "the editor has the keyboard";
    }
    // Opens the menu beside the controls with the right button and chooses the last of the rows, where the others lead.
    testing::AssertionResult chooseByPointer(const std::vector<std::string>& titles) {
        return menuHand_.choose(besideControls, titles);
    }
    void typeAll(std::initializer_list<const char*> keys) {
        for (const char* key : keys)
            type(key);
    }
    // On the handle of the tilt gain, which stands at `db`.
    Point gainHandle(double db) { return map_.handleOf(pidTiltGain, static_cast<float>(db)); }

    Picture pictureOf(const Rect& editorRect) {
        const auto corner = plugin_.onScreen(editorRect.x, editorRect.y);
        return screen_.capture(corner.x, corner.y, static_cast<int>(editorRect.width),
                               static_cast<int>(editorRect.height));
    }
    Picture wholePicture() { return pictureOf({0, 0, 480, 320}); }

    XScreen screen_;
    EditorMap map_;
    HostedPlugin plugin_{GetParam()};
    unsigned long hostFocus_ = 0; // what had the keyboard before any press

private:
    static constexpr int steps = 12;
    MenuHand menuHand_{map_,
                       {.picture = [this] { return wholePicture(); },
                        .pointAt = [this](Point at) { pointAt(at); },
                        .click = [this](int button) { click(button); },
                        .comesTrue = [this](const auto& condition) { return comesTrue(condition); }}};

    void jumpTo(Point editorPoint, double seconds) {
        const auto there = plugin_.onScreen(editorPoint.x, editorPoint.y);
        screen_.movePointer(there.x, there.y);
        plugin_.run(seconds);
    }

    Point at_;
};

} // namespace QVM_NAMESPACE
