#include "toolkit/RefreshPace.h"

#include "platform/runloop/VirtualTime.h"
#include "toolkit/FakePeer.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

// A component with another one inside, in a window that refreshes only by hand.
class RefreshPaceTest : public testing::Test {
protected:
    RefreshPaceTest() {
        component.setSize(100, 80);
        component.addAndMakeVisible(child);
        child.setBounds(10, 10, 20, 20);
        window.emplace(component);
        runPostedMessages();
    }
    ~RefreshPaceTest() override {
        window.reset();
        runPostedMessages();
    }
    // Refreshes at the display's rate for so long.
    void pass(double seconds) {
        for (int i = 0; i < seconds * 60; ++i) {
            time.advance(1.0 / 60);
            pace.didRefresh();
        }
    }

    VirtualTime time{100};
    struct Filled final : juce::Component {
        explicit Filled(juce::Colour c) : colour(c) {}
        void paint(juce::Graphics& g) override { g.fillAll(colour); }
        juce::Colour colour;
    } component{juce::Colours::red}, child{juce::Colours::blue};
    RefreshPace pace{component};
    std::optional<FakeDesktopWindow> window;
};

TEST_F(RefreshPaceTest, RestsASecondAfterTheLastActivity) {
    pace.keepAwake();
    pass(0.9);
    EXPECT_FALSE(pace.isResting());
    pace.keepAwake();
    pass(0.9);
    EXPECT_FALSE(pace.isResting());
    pass(0.2);
    EXPECT_TRUE(pace.isResting());
    pace.keepAwake();
    EXPECT_FALSE(pace.isResting());
}

TEST_F(RefreshPaceTest, WhatTheToolkitMarksEndsTheRest) {
    for (const auto& mark : {std::function<void()>([this] { component.repaint(); }),
                             std::function<void()>([this] { component.repaint(1, 2, 3, 4); }),
                             std::function<void()>([this] { child.repaint(); }),
                             std::function<void()>([this] { child.setVisible(!child.isVisible()); })}) {
        pass(2);
        runPostedMessages();
        ASSERT_TRUE(pace.isResting());
        window->peer().repaints.clear();
        mark();
        EXPECT_TRUE(pace.isResting()) << "the toolkit is amid its components";
        runPostedMessages();
        EXPECT_FALSE(pace.isResting());
        EXPECT_FALSE(window->peer().repaints.empty());
    }
}

TEST_F(RefreshPaceTest, AFrameOfItsOwnDoesNotEndTheRest) {
    pass(2);
    {
        const RefreshPace::ScopedFrame ours(pace);
        component.repaint(1, 2, 3, 4);
    }
    runPostedMessages();
    EXPECT_TRUE(pace.isResting());
    EXPECT_EQ(window->peer().repaints.back(), juce::Rectangle<int>(1, 2, 3, 4));
}

TEST_F(RefreshPaceTest, TheComponentIsPaintedAsEver) {
    const juce::Image picture = window->peer().paintAll();
    EXPECT_EQ(picture.getPixelAt(5, 5), juce::Colours::red);
    EXPECT_EQ(picture.getPixelAt(15, 15), juce::Colours::blue);
}

} // namespace
} // namespace QVM_NAMESPACE
