// What the glass does to the windows of menus; that a row under the pointer is then not marked is seen in MenuPopup.
#include "toolkit/MenuGlass.h"

#include "toolkit/FakePeer.h"

#include <gtest/gtest.h>

#include <memory>

namespace QVM_NAMESPACE {
namespace {

class MenuGlassTest : public ::testing::Test {
protected:
    MenuGlassTest() {
        ground.setSize(100, 80);
        desktop = std::make_unique<FakeDesktopWindow>(ground);
        mouse({50, 40}, 0);
        glass.cover(ground, MenuGlass::Until::moved);
        menu.setAlwaysOnTop(true); // as the toolkit's are
        submenu.setAlwaysOnTop(true);
        ground.addAndMakeVisible(menu);
        menu.setBounds(10, 10, 80, 60);
    }
    ~MenuGlassTest() override {
        mouse({-10, -10}, 0); // the pointer outlives the window
        desktop.reset();
        runPostedMessages();
    }
    void mouse(juce::Point<float> at, int button) {
        pointer = at.toInt();
        desktop->peer().mouse(at, button, now += 10);
    }
    void press(juce::Point<float> at) { mouse(at, juce::ModifierKeys::rightButtonModifier); }
    void release(juce::Point<float> at) { mouse(at, 0); }
    // A menu that comes up while the button is held.
    void openByPress(MenuGlass::Until until) {
        press({50, 40});
        glass.cover(ground, until);
    }
    bool seesThePointer(juce::Component& window) {
        return window.reallyContains(window.getLocalPoint(&ground, pointer), true);
    }

    juce::Point<int> pointer;
    juce::int64 now = 1000;
    juce::Component ground, menu, submenu;
    std::unique_ptr<FakeDesktopWindow> desktop;
    MenuGlass glass;
};

TEST_F(MenuGlassTest, APointerThatRestsIsInNoMenuAlsoOneThatOpensLater) {
    EXPECT_FALSE(seesThePointer(menu));
    ground.addAndMakeVisible(submenu);
    submenu.setBounds(40, 30, 50, 40);
    EXPECT_FALSE(seesThePointer(submenu));
    mouse({51, 40}, 0); // a hand that rests on a table
    EXPECT_FALSE(seesThePointer(submenu));
}

TEST_F(MenuGlassTest, APointerThatMovesIsSeenFromThenOn) {
    EXPECT_FALSE(seesThePointer(menu));
    mouse({54, 40}, 0);
    EXPECT_TRUE(seesThePointer(menu));
    mouse({50, 40}, 0);
    EXPECT_TRUE(seesThePointer(menu)) << "also where it rested";
}

TEST_F(MenuGlassTest, APressIsSeenForAMove) {
    EXPECT_FALSE(seesThePointer(menu));
    mouse({50, 40}, juce::ModifierKeys::leftButtonModifier);
    EXPECT_TRUE(seesThePointer(menu));
    mouse({50, 40}, 0);
}

TEST_F(MenuGlassTest, ThePressThatOpensAMenuIsNotSeenNorItsRelease) {
    openByPress(MenuGlass::Until::moved);
    EXPECT_FALSE(seesThePointer(menu));
    press({52, 41}); // no hand is quite still
    EXPECT_FALSE(seesThePointer(menu));
    release({52, 41});
    EXPECT_FALSE(seesThePointer(menu)) << "it would be a choice";
}

TEST_F(MenuGlassTest, ThePressAfterTheOneThatOpenedAMenuIsSeenWhereItWas) {
    openByPress(MenuGlass::Until::moved);
    EXPECT_FALSE(seesThePointer(menu));
    release({50, 40});
    EXPECT_FALSE(seesThePointer(menu));
    press({50, 40});
    EXPECT_TRUE(seesThePointer(menu));
}

TEST_F(MenuGlassTest, APointerThatIsDrawnToARowWithTheButtonHeldIsSeen) {
    openByPress(MenuGlass::Until::moved);
    EXPECT_FALSE(seesThePointer(menu));
    press({60, 40});
    EXPECT_TRUE(seesThePointer(menu));
}

TEST_F(MenuGlassTest, AReleaseIsSeenWhereThePresentChoiceStandsUnderThePointer) {
    openByPress(MenuGlass::Until::released);
    EXPECT_FALSE(seesThePointer(menu));
    release({50, 40});
    EXPECT_TRUE(seesThePointer(menu));
}

TEST_F(MenuGlassTest, ANewMenuIsANewBeginning) {
    mouse({54, 40}, 0);
    EXPECT_FALSE(seesThePointer(menu)) << "where it rests is where it is seen first";
    mouse({60, 40}, 0);
    EXPECT_TRUE(seesThePointer(menu));
    glass.lift();
    glass.cover(ground, MenuGlass::Until::moved);
    EXPECT_FALSE(seesThePointer(menu));
}

TEST_F(MenuGlassTest, LeavesNothingBehind) {
    glass.lift();
    EXPECT_EQ(ground.getNumChildComponents(), 1);
    glass.lift(); // again, as it may be
    EXPECT_TRUE(seesThePointer(menu));
}

} // namespace
} // namespace QVM_NAMESPACE
