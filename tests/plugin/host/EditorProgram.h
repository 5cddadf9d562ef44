// An editor in the window of a program of its own, with a real pointer and keyboard: the fixture of tests that see
// nothing of it but its pixels and what it tells others. Needs a display with a window manager.
#pragma once

#include "description/ParameterIDs.h"
#include "plugin/host/ChildProcess.h"
#include "plugin/host/EditorMap.h"
#include "plugin/host/MenuHand.h"
#include "plugin/host/XScreen.h"

#include <gtest/gtest.h>

#include <chrono>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {

using slantwise_tests::ChildProcess;
using slantwise_tests::Picture;
using slantwise_tests::XScreen;

class EditorProgram : public testing::Test {
protected:
    static constexpr std::uint32_t gainColour = 0xA54D55;
    static constexpr Point besideControls{10, 200};

    static void rest(double seconds) { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }
    // Waits until the condition holds; false when it has not come true after seconds enough for any machine.
    template <class Condition>
    static bool comesTrue(Condition condition) {
        for (int i = 0; i < 300; ++i) {
            if (condition()) return true;
            rest(0.05);
        }
        return false;
    }

    // Starts the program and waits until its editor is painted and its window has the keyboard.
    void start(const std::vector<std::string>& command, const std::map<std::string, std::string>& environment,
               const std::string& log) {
        screen_.movePointer(5, 5);
        startUnderPointer(command, environment, log);
    }
    // The same with the pointer wherever it is.
    void startUnderPointer(const std::vector<std::string>& command,
                           const std::map<std::string, std::string>& environment, const std::string& log) {
        constexpr int width = 480, height = 320;
        program_ = std::make_unique<ChildProcess>(command, environment, log);
        // The window manager may move it at first.
        ASSERT_TRUE(comesTrue([&] {
            window_ = screen_.findWindow(width, height);
            return window_ && handleAt(0) > 200;
        })) << "the handle at 0 dB";
        ASSERT_TRUE(comesTrue([this] { return screen_.isFocusIn(window_->topLevel); }));
        window_ = screen_.findWindow(width, height);
        ASSERT_TRUE(window_);
        hostFocus_ = screen_.focus();
    }

    // Closes it as a user does; its exit status. The window manager, which places the next window clear of this one,
    // has let go of it then.
    std::optional<int> close() {
        screen_.closeWindow(window_->topLevel);
        const auto status = program_->exitStatus(10);
        program_.reset();
        window_.reset();
        EXPECT_TRUE(comesTrue([this] { return !screen_.managesWindows(); }));
        return status;
    }

    void pointAt(Point editorPoint) {
        screen_.movePointer(window_->x + static_cast<int>(editorPoint.x), window_->y + static_cast<int>(editorPoint.y));
        rest(0.1);
    }
    void pointBeside() {
        screen_.movePointer(5, 5);
        rest(0.1);
    }
    void click(int button = 1) {
        screen_.button(button, true);
        rest(0.1);
        screen_.button(button, false);
    }
    // On a control that takes the keyboard; returns when it has it.
    void clickOnControl(Point editorPoint) {
        pointAt(editorPoint);
        click();
        pointBeside();
        EXPECT_TRUE(comesTrue([this] { return screen_.focus() != hostFocus_; })) << "the editor has the keyboard";
    }
    void type(std::initializer_list<const char*> keys) {
        for (const char* key : keys)
            screen_.typeKey(key);
    }
    void typeWith(const char* modifier, const char* key) {
        screen_.key(modifier, true);
        screen_.typeKey(key);
        screen_.key(modifier, false);
    }
    // The menu key, and what is chosen from there by keys.
    void chooseFromMenu(std::initializer_list<const char*> keys) {
        const Rect widest{0, 0, 680, 320};
        const auto menuPixels = [&] { return pictureOf(widest).countOf(EditorMap::menuColour, 2); };
        type({"Menu"});
        ASSERT_TRUE(comesTrue([&] { return menuPixels() > 10000; })) << "it opens";
        type(keys);
        ASSERT_TRUE(comesTrue([&] { return menuPixels() < 500; })) << "it closes";
    }

    // Opens the menu beside the controls with the right button and chooses the last of the rows, where the others lead.
    testing::AssertionResult chooseByPointer(const std::vector<std::string>& titles) {
        return menuHand_.choose(besideControls, titles);
    }

    Picture pictureOf(const Rect& frame) {
        return screen_.capture(window_->x + static_cast<int>(frame.x), window_->y + static_cast<int>(frame.y),
                               static_cast<int>(frame.width), static_cast<int>(frame.height));
    }
    Picture wholePicture() { return pictureOf({0, 0, 480, 320}); }
    // How much of the handle's colour is where the handle of the tilt gain belongs.
    std::size_t handleAt(float db) {
        const Point at = map_.handleOf(pidTiltGain, db);
        return pictureOf({at.x - 10, at.y - 12, 20, 24}).countOf(gainColour, 4);
    }

    XScreen screen_;
    EditorMap map_;
    std::unique_ptr<ChildProcess> program_;
    std::optional<XScreen::Found> window_;
    unsigned long hostFocus_ = 0; // what had the keyboard before any click

private:
    MenuHand menuHand_{map_,
                       {.picture = [this] { return wholePicture(); },
                        .pointAt = [this](Point at) { pointAt(at); },
                        .click = [this](int button) { click(button); },
                        .comesTrue = [](const auto& condition) { return comesTrue(condition); }}};
};

} // namespace QVM_NAMESPACE
