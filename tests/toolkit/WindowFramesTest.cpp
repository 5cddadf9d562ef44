// When a window paints, and how much of it.
#include "toolkit/WindowFrames.h"

#include "platform/layer/GLLayer.h"
#include "platform/layer/Transaction.h"
#include "toolkit/WindowPainting.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Box = juce::Rectangle<int>;

using WindowFramesTest = WindowPainting;

TEST_F(WindowFramesTest, ChangeRepaintsExactlyWhatItDamaged) {
    settle();
    square->look().setBackgroundColor(blue);
    peer().vBlank();
    EXPECT_THAT(peer().repaints, ElementsAre(Box(20, 30, 10, 10)));
    square->setPosition({26, 35}); // by one
    peer().vBlank();
    ASSERT_EQ(peer().repaints.size(), 2u);
    EXPECT_EQ(peer().repaints[1], Box(20, 30, 11, 10));
}

TEST_F(WindowFramesTest, IdleWindowRepaintsNothing) {
    settle();
    for (int i = 0; i < 10; ++i) {
        time.advance(1.0 / 60);
        peer().vBlank();
        runPostedMessages();
    }
    EXPECT_THAT(peer().repaints, IsEmpty());
    EXPECT_EQ(peer().flushes, 0);
}

TEST_F(WindowFramesTest, ChangeIsShownAsSoonAsTheEventsAtHandAreDealtWith) {
    settle();
    square->look().setBackgroundColor(blue);
    EXPECT_THAT(peer().repaints, IsEmpty()); // not in place
    runPostedMessages();
    EXPECT_THAT(peer().repaints, ElementsAre(Box(20, 30, 10, 10)));
    EXPECT_EQ(peer().flushes, 1);
}

TEST_F(WindowFramesTest, BurstOfChangesIsOneFrame) {
    settle();
    for (int i = 0; i < 5; ++i)
        square->look().setBackgroundColor({0, 0, 0.1f * static_cast<float>(i), 1});
    runPostedMessages();
    EXPECT_EQ(peer().repaints.size(), 1u);
    square->look().setBackgroundColor(blue); // at once again: waits for the display
    runPostedMessages();
    EXPECT_EQ(peer().repaints.size(), 1u);
    peer().vBlank();
    EXPECT_EQ(peer().repaints.size(), 2u);
}

TEST_F(WindowFramesTest, AnimationGetsAFrameWithEachRefreshUntilItsEnd) {
    settle();
    {
        const auto gliding = Transaction::animated(0.1);
        square->setPosition({75, 35});
    }
    int frames = 0;
    for (int i = 0; i < 30; ++i) {
        time.advance(1.0 / 60);
        peer().repaints.clear();
        peer().vBlank();
        frames += peer().repaints.empty() ? 0 : 1;
    }
    EXPECT_GE(frames, 5);
    EXPECT_LE(frames, 9);
    EXPECT_EQ(square->presentation().position.x, 75);
}

// Each picture of it takes a tenth of a second.
class SlowLayer final : public GLLayer {
public:
    explicit SlowLayer(VirtualTime& time) : time_(time) {}

protected:
    void draw(DrawingSurface& surface) const override {
        surface.drawLineStrip(std::vector<Vertex>{{0, 0}, {10, 10}}, {}, red);
        time_.advance(0.1);
    }

private:
    VirtualTime& time_;
};

TEST_F(WindowFramesTest, AfterALongFrameItRestsSoThatInputIsSeen) {
    const auto slow = std::make_shared<SlowLayer>(time);
    slow->setFrame({50, 10, 10, 10});
    component->window().contentView()->layer()->tree().add(slow);
    settle();
    const auto drawsAfter = [&](double seconds) {
        peer().repaints.clear();
        time.advance(seconds);
        slow->look().setNeedsDisplay();
        runPostedMessages();
        peer().vBlank();
        return !peer().repaints.empty();
    };
    EXPECT_TRUE(drawsAfter(0));
    EXPECT_FALSE(drawsAfter(0.03)) << "it drew for a tenth of a second";
    EXPECT_FALSE(drawsAfter(0.01));
    EXPECT_TRUE(drawsAfter(0.02));
    slow->setHidden(true);
    time.advance(0.06);
    peer().vBlank();
    for (int i = 0; i < 3; ++i) {
        square->look().setBackgroundColor(i % 2 == 0 ? blue : red);
        EXPECT_TRUE(drawsAfter(1.0 / 60)) << "quick frames come with each refresh";
    }
}

TEST_F(WindowFramesTest, HiddenWindowDrawsNothingUntilItIsShown) {
    settle();
    const auto lookAround = [this] { // several times a second
        time.advance(0.25);
        peer().vBlank();
    };
    peer().minimised = true;
    lookAround();
    square->look().setBackgroundColor(blue);
    peer().vBlank();
    runPostedMessages();
    EXPECT_THAT(peer().repaints, IsEmpty());
    peer().minimised = false;
    lookAround();
    EXPECT_EQ(peer().repaints.size(), 1u);
}

TEST_F(WindowFramesTest, AnimatedDrawingIsShownWithoutTheWindowsRefresh) {
    settle();
    for (int i = 0; i < 20; ++i) { // a display link's frames, each with a change
        time.advance(1.0 / 60);
        square->look().setBackgroundColor(i % 2 == 0 ? blue : red);
        runPostedMessages();
    }
    EXPECT_EQ(peer().repaints.size(), 20u);
    EXPECT_EQ(peer().flushes, 20);
}

TEST_F(WindowFramesTest, ChangeThatComesTooSoonIsShownWithoutTheWindowsRefresh) {
    settle();
    square->look().setBackgroundColor(blue);
    runPostedMessages();
    time.advance(0.004);
    square->look().setBackgroundColor(red);
    runPostedMessages();
    EXPECT_EQ(peer().flushes, 1) << "quicker than any display";
    time.advance(0.008);
    EXPECT_EQ(peer().flushes, 2);
}

} // namespace
} // namespace QVM_NAMESPACE
