// What the shield does to a menu's window; that the toolkit's menus then choose nothing is seen in a host, on a
// display.
#include "toolkit/MenuShield.h"

#include "platform/runloop/VirtualTime.h"
#include "toolkit/FakePeer.h"

#include <gtest/gtest.h>

#include <memory>

namespace QVM_NAMESPACE {
namespace {

class MenuShieldTest : public ::testing::Test {
protected:
    MenuShieldTest() {
        ground.setSize(100, 80);
        desktop = std::make_unique<FakeDesktopWindow>(ground);
        menu->setSize(90, 70);
        ground.addAndMakeVisible(*menu);
        mouse({50, 40}, 0);
    }
    ~MenuShieldTest() override {
        mouse({-10, -10}, 0); // the pointer outlives the window
        menu.reset();
        desktop.reset();
        runPostedMessages();
    }
    void mouse(juce::Point<float> at, int button) { desktop->peer().mouse(at, button, now += 10); }
    void press(juce::Point<float> at) { mouse(at, juce::ModifierKeys::rightButtonModifier); }
    void release(juce::Point<float> at) { mouse(at, 0); }
    bool seesThePointer() {
        time.advance(0.05);
        return menu->contains(juce::Point<float>(50, 40));
    }

    VirtualTime time{100};
    juce::int64 now = 1000;
    juce::Component ground;
    std::unique_ptr<FakeDesktopWindow> desktop;
    std::unique_ptr<juce::Component> menu = std::make_unique<juce::Component>();
    MenuShield shield;
};

TEST_F(MenuShieldTest, MenuDoesNotSeeThePointerWhileThePressThatOpenedItIsHeld) {
    press({50, 40});
    shield.protect(*menu);
    EXPECT_FALSE(seesThePointer());
    press({52, 41}); // no hand is quite still
    time.advance(1);
    EXPECT_FALSE(seesThePointer());
    release({52, 41});
    EXPECT_TRUE(seesThePointer());
}

TEST_F(MenuShieldTest, PointerThatIsDrawnToARowIsSeen) {
    press({50, 40});
    shield.protect(*menu);
    press({60, 40});
    EXPECT_TRUE(seesThePointer());
}

TEST_F(MenuShieldTest, MenuThatNoButtonOpenedSeesThePointerAtOnce) {
    shield.protect(*menu);
    EXPECT_TRUE(menu->contains(juce::Point<float>(50, 40)));
}

TEST_F(MenuShieldTest, RowsAreSeenAgainToo) {
    juce::Component row;
    row.setBounds(0, 0, 90, 70);
    menu->addAndMakeVisible(row);
    press({50, 40});
    shield.protect(*menu);
    EXPECT_EQ(ground.getComponentAt(50, 40), &ground);
    release({50, 40});
    time.advance(0.05);
    EXPECT_EQ(ground.getComponentAt(50, 40), &row);
}

TEST_F(MenuShieldTest, MenuMayGoWhileTheButtonIsHeld) {
    press({50, 40});
    shield.protect(*menu);
    menu.reset();
    time.advance(1);
    release({50, 40});
    time.advance(1);
}

TEST_F(MenuShieldTest, ShieldMayGoWhileTheButtonIsHeld) {
    press({50, 40});
    auto another = std::make_unique<MenuShield>();
    another->protect(*menu);
    another.reset();
    time.advance(1);
}

} // namespace
} // namespace QVM_NAMESPACE
