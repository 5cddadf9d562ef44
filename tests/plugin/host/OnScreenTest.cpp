// An editor of this program's own, in a real window: what it learns about being seen, and of the pointer.
#include "description/Presets.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "platform/view/Window.h"
#include "plugin/SlantwiseEditor.h"
#include "plugin/host/XScreen.h"
#include "toolkit/NativePeer.h"
#include "unit/PrivateProperties.h"

#include <gtest/gtest.h>

namespace juce {
bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
}

namespace QVM_NAMESPACE {
namespace {

class OnARealScreen : public testing::Test {
protected:
    OnARealScreen() {
        frame_.setUsingNativeTitleBar(true);
        frame_.setContentNonOwned(&editor_, true);
        frame_.setTopLeftPosition(100, 100);
        frame_.addToDesktop(); // with its size: the window manager may be late to answer another one
        frame_.setVisible(true);
    }
    // Waits until the editor's window is visible or not; false when it has not come true on any machine.
    bool becomesVisible(bool visible) {
        const double end = juce::Time::getMillisecondCounterHiRes() + 10000;
        while (editor_.window().isVisible() != visible) {
            if (juce::Time::getMillisecondCounterHiRes() > end) return false;
            if (!juce::dispatchNextMessageOnSystemQueue(true)) juce::Thread::sleep(1);
        }
        return true;
    }
    // On a machine that gives less than sixty turns a second a second is longer.
    void pump(double seconds) {
        const double end = juce::Time::getMillisecondCounterHiRes() + 1000 * seconds;
        for (double turns = 0; juce::Time::getMillisecondCounterHiRes() < end || turns < 60 * seconds; ++turns) {
            if (!juce::dispatchNextMessageOnSystemQueue(true)) juce::Thread::sleep(1);
        }
    }

    SlantwiseProcessor processor_;
    SlantwiseEditor editor_{processor_};
    juce::DocumentWindow frame_{"on screen", juce::Colours::black, juce::DocumentWindow::closeButton, false};
};

TEST_F(OnARealScreen, TheWindowIsHiddenWhileItIsMinimised) {
    pump(0.5);
    ASSERT_TRUE(becomesVisible(true));
    pump(1);
    EXPECT_TRUE(editor_.window().isVisible()) << "nothing hides it by itself";
    frame_.setMinimised(true);
    EXPECT_TRUE(becomesVisible(false));
    frame_.setMinimised(false);
    EXPECT_TRUE(becomesVisible(true));
}

// The toolkit reads events while it waits for an answer of the server, and sleeps on them. At rest a refresh, which
// would find them, is a second away: the pointer moves right after one, so that only a machine that stands still for so
// long lets the next one come first. An event that is left waiting is found by the refresh every time.
TEST_F(OnARealScreen, AnEventThatIsReadWithAnAnswerIsNotLeftWaitingForTheNext) {
    slantwise_tests::XScreen screen;
    const auto corner = editor_.localPointToGlobal(juce::Point<int>(10, 200));
    screen.movePointer(corner.x, corner.y);
    pump(0.5);
    ASSERT_TRUE(becomesVisible(true));
    pump(2); // all is quiet
    int events = 0, refreshes = 0;
    const juce::EventWatch watch([&](const juce::ComponentPeer& peer) { events += &peer == editor_.getPeer(); });
    const juce::VBlankAttachment refresh(&editor_, [&] { ++refreshes; });
    const auto pumpUntil = [](const auto& condition) {
        while (!condition()) {
            if (!juce::dispatchNextMessageOnSystemQueue(true)) juce::Thread::sleep(1);
        }
    };
    constexpr int moves = 5;
    int foundAtOnce = 0;
    for (int i = 1; i <= moves; ++i) {
        if (i > 1) pump(1.5); // the pointer's move is answered with refreshes; quiet again
        refreshes = 0;
        pumpUntil([&] { return refreshes > 0; });
        events = refreshes = 0;
        screen.movePointer(corner.x + i, corner.y);
        juce::isSuperKeyDown(*editor_.getPeer()); // asks the server, whose answer comes behind the event
        pumpUntil([&] { return events > 0 || refreshes > 0; });
        foundAtOnce += refreshes == 0;
        pumpUntil([&] { return events > 0; });
    }
    EXPECT_GT(foundAtOnce, moves / 2) << "the next refresh would find it";
}

TEST_F(OnARealScreen, TheWindowIsHiddenWithTheOneAroundIt) {
    pump(0.5);
    ASSERT_TRUE(becomesVisible(true));
    frame_.setVisible(false);
    EXPECT_TRUE(becomesVisible(false));
    frame_.setVisible(true);
    EXPECT_TRUE(becomesVisible(true));
}

// Most of what an open editor costs while nothing moves.
TEST_F(OnARealScreen, AtRestTheWindowRefreshesOnceASecond) {
    slantwise_tests::XScreen().movePointer(0, 0);
    int refreshes = 0;
    const juce::VBlankAttachment count(&editor_, [&refreshes] { ++refreshes; });
    pump(5); // opens, and comes to rest
    refreshes = 0;
    pump(4);
    EXPECT_LE(refreshes, 4 + 2);
    EXPECT_GE(refreshes, 1) << "a window around it may be hidden without a word";
}

TEST_F(OnARealScreen, WhatIsUncoveredAtRestDoesNotWaitForTheSlowRefresh) {
    slantwise_tests::XScreen screen;
    screen.movePointer(0, 0);
    pump(4);
    const auto corner = editor_.localPointToGlobal(juce::Point<int>());
    const auto picture = [&] { return screen.capture(corner.x, corner.y, editor_.getWidth(), editor_.getHeight()); };
    const slantwise_tests::Picture whole = picture();
    int refreshes = 0;
    const juce::VBlankAttachment count(&editor_, [&refreshes] { ++refreshes; });
    for (int i = 0; i < 3; ++i) {
        {
            slantwise_tests::XScreen another;
            another.showAnotherWindow(corner.x + 20, corner.y + 20, 150, 100);
            pump(2.5); // at rest again
            ASSERT_GT(picture().differingPixels(whole), 1000U) << "it is covered";
        }
        refreshes = 0;
        const double end = juce::Time::getMillisecondCounterHiRes() + 10000;
        while (picture().differingPixels(whole) > 0 && juce::Time::getMillisecondCounterHiRes() < end)
            juce::dispatchNextMessageOnSystemQueue(true);
        EXPECT_EQ(picture().differingPixels(whole), 0U);
        pump(0.5);
        EXPECT_GT(refreshes, 5) << "at the display's rate, as more may be uncovered";
    }
}

TEST_F(OnARealScreen, SlotsPresetAndLayoutOfARestoredStateReachTheOpenEditor) {
    SlantwiseProcessor saved;
    const std::string settings = "1;2;3", name = "Of another version";
    const auto keep = [&saved](AudioUnitPropertyID id, const auto& value) {
        ASSERT_EQ(AudioUnitSetProperty(&saved.unit(), id, kAudioUnitScope_Global, 0, &value, sizeof value), noErr);
    };
    keep(kQVMProperty_ABState, QVMABRecord{0, 0, &settings});
    keep(kQVMProperty_PresetName, &name);
    keep(kQVMProperty_InterfaceState, std::uint32_t{1});
    juce::MemoryBlock state;
    saved.getStateInformation(state);
    pump(0.5);
    EXPECT_EQ(editor_.view().ui().abState(), 0U);
    processor_.setStateInformation(state.getData(), static_cast<int>(state.getSize()));
    pump(1);
    EXPECT_EQ(editor_.view().ui().abState(), 1U);
    EXPECT_EQ(editor_.view().ui().currentPreset(), QVMPresetCount) << "it is none";
    EXPECT_EQ(editor_.getWidth(), 680);
}

} // namespace
} // namespace QVM_NAMESPACE
