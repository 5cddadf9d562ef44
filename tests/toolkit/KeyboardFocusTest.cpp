#include "toolkit/KeyboardFocus.h"

#include "platform/runloop/VirtualTime.h"
#include "platform/view/RecordingView.h"
#include "toolkit/FakePeer.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using Embedding = KeyboardFocus::Embedding;

// A component with the keyboard of a window whose view wants keys.
class KeyboardFocusTest : public ::testing::Test {
protected:
    KeyboardFocusTest() {
        component.setSize(100, 80);
        component.setWantsKeyboardFocus(true);
        desktop = std::make_unique<FakeDesktopWindow>(component);
        view = &window.setContentView(std::make_unique<RecordingView>("v", record, Rect{0, 0, 100, 80}));
        window.makeFirstResponder(view);
    }
    bool hasFocus() const { return component.hasKeyboardFocus(true); }

    VirtualTime time{100};
    Record record;
    juce::Component component;
    std::unique_ptr<FakeDesktopWindow> desktop;
    Window window;
    RecordingView* view = nullptr;
    XConnection connection;
    KeyboardFocus inHost{component, window, connection, Embedding::inHost};
    KeyboardFocus ownWindow{component, window, connection, Embedding::ownWindow};
};

TEST_F(KeyboardFocusTest, IsTakenAtOnceWhileNoPressGoesOn) {
    inHost.take();
    EXPECT_TRUE(hasFocus());
    EXPECT_TRUE(window.isKeyWindow());
}

TEST_F(KeyboardFocusTest, InAHostItIsTakenWhenThePressHasEnded) {
    inHost.setPressed(true);
    inHost.take();
    inHost.settle();
    EXPECT_FALSE(hasFocus());
    inHost.setPressed(false);
    inHost.settle();
    EXPECT_TRUE(hasFocus());
}

TEST_F(KeyboardFocusTest, InAWindowOfItsOwnItIsTakenInMidPress) {
    ownWindow.setPressed(true);
    ownWindow.take();
    EXPECT_TRUE(hasFocus());
}

TEST_F(KeyboardFocusTest, IsNotTakenForAPressThatLeavesNothingToType) {
    inHost.setPressed(true);
    inHost.take();
    inHost.setPressed(false);
    view->keysAreWanted = false;
    inHost.settle();
    EXPECT_FALSE(hasFocus());
}

TEST_F(KeyboardFocusTest, LossThatLastsResignsTheKeyWindow) {
    inHost.take();
    desktop->peer().focused = false;
    component.giveAwayKeyboardFocus();
    inHost.wasLost();
    time.advance(0.04);
    EXPECT_TRUE(window.isKeyWindow());
    time.advance(0.02);
    EXPECT_FALSE(window.isKeyWindow());
}

TEST_F(KeyboardFocusTest, LossThatIsMadeUpForAtOnceIsNone) {
    inHost.take();
    inHost.wasLost();
    inHost.wasGained();
    time.advance(1);
    EXPECT_TRUE(window.isKeyWindow());
}

TEST_F(KeyboardFocusTest, FocusThatNobodyAskedForMakesAWindowOfItsOwnKeyAndNoOther) {
    inHost.wasGained();
    EXPECT_FALSE(window.isKeyWindow());
    ownWindow.wasGained();
    EXPECT_TRUE(window.isKeyWindow());
}

TEST_F(KeyboardFocusTest, KnowsOfAnOpenMenu) {
    inHost.setMenuOpen(true);
    EXPECT_TRUE(inHost.hasMenu());
    inHost.setMenuOpen(false);
    EXPECT_FALSE(inHost.hasMenu());
}

TEST_F(KeyboardFocusTest, ComponentOutsideOfAnyWindowHasNoNativeOne) {
    desktop.reset();
    EXPECT_EQ(nativeWindowOf(component), 0u);
    inHost.take();
    EXPECT_FALSE(window.isKeyWindow());
}

} // namespace
} // namespace QVM_NAMESPACE
