// Presses: who holds the pointer, and how each of them ends.
#include "platform/view/Window.h"

#include "platform/runloop/NotificationCenter.h"
#include "platform/view/WindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using WindowPressTest = WindowFixture;

TEST_F(WindowPressTest, PressIsCapturedUntilTheRelease) {
    send(EventType::mouseMoved, {60, 50});
    take();
    EXPECT_TRUE(send(EventType::mouseDown, {60, 50}));
    EXPECT_EQ(window->mouseCapture(), b);
    send(EventType::mouseDragged, {10, 50});
    send(EventType::mouseDragged, {-500, 900});
    send(EventType::mouseUp, {-500, 900});
    EXPECT_THAT(take(), ElementsAre("b down", "b dragged", "b dragged", "b up", "b exited", "root exited"));
    EXPECT_EQ(window->mouseCapture(), nullptr);
    EXPECT_FALSE(send(EventType::mouseDragged, {10, 50}));
    EXPECT_FALSE(send(EventType::mouseUp, {10, 50}));
}

TEST_F(WindowPressTest, NothingIsEnteredOrLeftWhileAViewHasThePointer) {
    send(EventType::mouseDown, {60, 50});
    take();
    EXPECT_FALSE(send(EventType::mouseMoved, {10, 50}));
    EXPECT_FALSE(send(EventType::mouseExited, {10, 50}));
    EXPECT_THAT(take(), IsEmpty());
    send(EventType::mouseUp, {10, 50});
    EXPECT_THAT(take(), ElementsAre("b up", "b exited", "a entered"));
}

TEST_F(WindowPressTest, PressIsNoClickOnceItWasDraggedAndTheNextOneIs) {
    send(EventType::mouseDown, {60, 50});
    EXPECT_TRUE(window->press().isClick());
    send(EventType::mouseDragged, {70, 50});
    send(EventType::mouseDragged, {60, 50});
    send(EventType::mouseUp, {60, 50});
    EXPECT_FALSE(window->press().isClick());
    send(EventType::mouseDown, {60, 50});
    EXPECT_TRUE(window->press().isClick());
    send(EventType::mouseUp, {70, 50});
    EXPECT_FALSE(window->press().isClick()) << "only its release told of the way";
}

TEST_F(WindowPressTest, PressThatIsCancelledIsOverAndNothingIsDraggedAnyMore) {
    send(EventType::mouseDown, {60, 50});
    send(EventType::mouseDragged, {70, 90});
    take();
    window->cancelPress();
    EXPECT_THAT(take(), ElementsAre("b cancelled"));
    EXPECT_EQ(b->cancelledAt, (Point{70, 90}));
    EXPECT_EQ(window->mouseCapture(), nullptr);
    EXPECT_FALSE(send(EventType::mouseDragged, {80, 90}));
    EXPECT_FALSE(send(EventType::mouseUp, {80, 90}));
    window->cancelPress();
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(WindowPressTest, PressIsCancelledByAnEventThatSaysSo) {
    send(EventType::mouseDown, {60, 50});
    send(EventType::mouseDragged, {70, 90});
    take();
    EXPECT_TRUE(send(EventType::mouseCancelled, {10, 10}));
    EXPECT_THAT(take(), ElementsAre("b cancelled"));
    EXPECT_EQ(b->cancelledAt, (Point{70, 90})) << "where it was last seen";
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowPressTest, PressIsCancelledWhenTheWindowIsHidden) {
    send(EventType::mouseDown, {60, 50});
    take();
    window->setVisible(false);
    EXPECT_THAT(take(), ElementsAre("b cancelled"));
    window->setVisible(true);
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(WindowPressTest, PressIsCancelledWhenTheWindowResignsTheKeyboardAndNotWhenItGetsIt) {
    send(EventType::mouseDown, {60, 50});
    take();
    window->setKeyWindow(true);
    EXPECT_THAT(take(), IsEmpty());
    window->setKeyWindow(false);
    EXPECT_THAT(take(), ElementsAre("b cancelled"));
}

TEST_F(WindowPressTest, PressWhoseReleaseNeverCameIsCancelledByTheNext) {
    send(EventType::mouseDown, {60, 50});
    take();
    send(EventType::mouseDown, {10, 50});
    EXPECT_THAT(take(), ElementsAre("b cancelled", "b exited", "a entered", "a down"));
}

TEST_F(WindowPressTest, WindowMayGoWithThePressThatIsCancelled) {
    b->also = [this](const std::string& word) {
        if (word == "cancelled") window.reset();
    };
    send(EventType::mouseDown, {60, 50});
    window->setVisible(false);
    EXPECT_EQ(window, nullptr);
}

class WindowPressEnd : public WindowPressTest {
protected:
    ObservationToken observation =
        NotificationCenter::defaultCenter().observe(Window::didEndPressNotification, window.get(), [this](const auto&) {
            record.push_back(window->mouseCapture() ? "still held" : "press over");
        });
};

TEST_F(WindowPressEnd, IsToldAfterTheViewWasAndBeforeAnythingElse) {
    send(EventType::mouseDown, {60, 50});
    send(EventType::mouseDragged, {10, 50});
    take();
    send(EventType::mouseUp, {10, 50});
    EXPECT_THAT(take(), ElementsAre("b up", "press over", "b exited", "a entered"));
    send(EventType::mouseDown, {10, 50});
    take();
    window->cancelPress();
    EXPECT_THAT(take(), ElementsAre("a cancelled", "press over"));
}

TEST_F(WindowPressEnd, IsToldOnceForEachPressAndNeverWithoutOne) {
    send(EventType::mouseUp, {60, 50});
    window->cancelPress();
    send(EventType::mouseDown, {200, 50}); // outside
    send(EventType::mouseUp, {200, 50});
    send(EventType::mouseMoved, {60, 50});
    take();
    send(EventType::mouseDown, {60, 50});
    send(EventType::mouseDown, {60, 50}); // the release never came
    EXPECT_THAT(take(), ElementsAre("b down", "b cancelled", "press over", "b down"));
    send(EventType::mouseUp, {60, 50});
    window->setVisible(false);
    window->setKeyWindow(true);
    window->setKeyWindow(false);
    EXPECT_THAT(take(), ElementsAre("b up", "press over"));
}

TEST_F(WindowPressEnd, IsToldWhenThePressedViewLeaves) {
    send(EventType::mouseDown, {10, 10});
    take();
    b->removeFromSuperview();
    EXPECT_THAT(take(), ElementsAre("b willLeaveWindow", "b outOfWindow")) << "another view";
    a->removeFromSuperview(); // the pressed one is in it
    EXPECT_EQ(take().front(), "press over");
    send(EventType::mouseDown, {10, 10});
    take();
    window->takeContentView();
    EXPECT_EQ(take().front(), "press over");
}

TEST_F(WindowPressEnd, IsNotToldWhileTheViewHasBegunAnother) {
    b->also = [this](const std::string& word) {
        if (word == "up") send(EventType::mouseDown, {10, 50});
    };
    send(EventType::mouseDown, {60, 50});
    take();
    send(EventType::mouseUp, {60, 50});
    EXPECT_THAT(take(), ElementsAre("b up", "b exited", "a entered", "a down"));
    send(EventType::mouseUp, {10, 50});
    EXPECT_THAT(take(), ElementsAre("a up", "press over"));
}

TEST_F(WindowPressTest, PressOutsideOfTheContentIsNobodys) {
    EXPECT_FALSE(send(EventType::mouseDown, {200, 50}));
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowPressTest, UnhandledPressGoesUpTheTree) {
    inner->passesOn = a->passesOn = true;
    send(EventType::mouseMoved, {10, 10});
    take();
    send(EventType::mouseDown, {10, 10});
    EXPECT_THAT(take(), ElementsAre("inner down", "a down", "root down"));
}

TEST_F(WindowPressTest, ViewMayBeDestroyedByItsOwnPress) {
    b->also = [this](const std::string& word) {
        if (word == "down") b->removeFromSuperview();
    };
    EXPECT_TRUE(send(EventType::mouseDown, {60, 50}));
    EXPECT_FALSE(send(EventType::mouseDragged, {61, 50}));
    EXPECT_FALSE(send(EventType::mouseUp, {61, 50}));
}

TEST_F(WindowPressTest, WindowMayBeDestroyedByTheRelease) {
    send(EventType::mouseDown, {60, 50});
    b->also = [this](const std::string& word) {
        if (word == "up") window.reset();
    };
    window->sendEvent(mouse(EventType::mouseUp, {60, 50}));
    EXPECT_EQ(window, nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
