// The keyboard's focus and keys on their way through the toolkit to a view.
#include "toolkit/WindowComponent.h"

#include "toolkit/WindowInput.h"

namespace QVM_NAMESPACE {
namespace {

using WindowComponentKeysTest = WindowInput;

TEST_F(WindowComponentKeysTest, ClickAloneTakesNoFocus) {
    press({10, 20});
    release({10, 20});
    EXPECT_FALSE(component->hasKeyboardFocus(true));
    EXPECT_FALSE(component->window().isKeyWindow());
}

TEST_F(WindowComponentKeysTest, ViewThatWantsKeysGetsThem) {
    view->also = [this](const std::string& word) {
        if (word == "down") component->window().makeKey();
    };
    press({10, 20});
    release({10, 20});
    EXPECT_TRUE(component->hasKeyboardFocus(true));
    EXPECT_TRUE(component->window().isKeyWindow());
    component->window().makeFirstResponder(view);
    EXPECT_TRUE(peer().handleKeyPress('7', '7'));
    EXPECT_EQ(view->events.back().charactersIgnoringModifiers, U"7");
}

// Nothing else would ever tell of its release.
TEST_F(WindowComponentKeysTest, KeyThatNoHandPressedIsNotHeld) {
    component->window().makeKey();
    component->window().makeFirstResponder(view);
    EXPECT_TRUE(peer().handleKeyPress('7', '7'));
    EXPECT_FALSE(component->window().isKeyHeld());
}

TEST_F(WindowComponentKeysTest, FocusIsTakenAtTheEndOfAPressAndOnlyIfKeysAreWantedThen) {
    view->also = [this](const std::string& word) {
        if (word == "down") component->window().makeKey();
    };
    component->window().makeFirstResponder(view);
    view->handlesKeys = true;
    press({10, 20});
    EXPECT_FALSE(component->hasKeyboardFocus(true)) << "not yet known what for";
    release({10, 20});
    EXPECT_TRUE(component->hasKeyboardFocus(true));

    component->giveAwayKeyboardFocus();
    component->window().setKeyWindow(false);
    peer().focused = false;
    view->keysAreWanted = false;
    press({10, 20});
    release({10, 20});
    EXPECT_FALSE(component->hasKeyboardFocus(true));
    EXPECT_FALSE(component->window().isKeyWindow());
}

TEST_F(WindowComponentKeysTest, KeysThatNobodyHandlesAreTheHosts) {
    component->window().makeKey();
    EXPECT_FALSE(peer().handleKeyPress(juce::KeyPress::spaceKey, ' '));
    component->window().makeFirstResponder(view);
    view->handlesKeys = false;
    EXPECT_FALSE(peer().handleKeyPress(juce::KeyPress::spaceKey, ' '));
    view->handlesKeys = true;
    EXPECT_TRUE(peer().handleKeyPress(juce::KeyPress::spaceKey, ' '));
}

TEST_F(WindowComponentKeysTest, FocusThatComesBackAtOnceWasNeverLost) {
    component->window().makeKey();
    peer().focused = false;
    peer().handleFocusLoss();
    EXPECT_TRUE(component->window().isKeyWindow());
    peer().focused = true;
    peer().handleFocusGain();
    time.advance(1);
    EXPECT_TRUE(component->window().isKeyWindow());
}

TEST_F(WindowComponentKeysTest, LostFocusResignsTheKeyWindow) {
    component->window().makeKey();
    peer().focused = false;
    peer().handleFocusLoss();
    time.advance(1);
    EXPECT_FALSE(component->window().isKeyWindow());
}

} // namespace
} // namespace QVM_NAMESPACE
