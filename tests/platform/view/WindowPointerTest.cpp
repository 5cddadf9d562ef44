// The pointer: presses, hover, menus, tooltips and cursors.
#include "platform/view/Window.h"

#include "platform/runloop/NotificationCenter.h"
#include "platform/view/Menu.h"
#include "platform/view/WindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using WindowPointerTest = WindowFixture;

TEST_F(WindowPointerTest, PressIsCapturedUntilTheRelease) {
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

TEST_F(WindowPointerTest, NothingIsEnteredOrLeftWhileAViewHasThePointer) {
    send(EventType::mouseDown, {60, 50});
    take();
    EXPECT_FALSE(send(EventType::mouseMoved, {10, 50}));
    EXPECT_FALSE(send(EventType::mouseExited, {10, 50}));
    EXPECT_THAT(take(), IsEmpty());
    send(EventType::mouseUp, {10, 50});
    EXPECT_THAT(take(), ElementsAre("b up", "b exited", "a entered"));
}

TEST_F(WindowPointerTest, PressThatIsCancelledIsOverAndNothingIsDraggedAnyMore) {
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

TEST_F(WindowPointerTest, PressIsCancelledByAnEventThatSaysSo) {
    send(EventType::mouseDown, {60, 50});
    send(EventType::mouseDragged, {70, 90});
    take();
    EXPECT_TRUE(send(EventType::mouseCancelled, {10, 10}));
    EXPECT_THAT(take(), ElementsAre("b cancelled"));
    EXPECT_EQ(b->cancelledAt, (Point{70, 90})) << "where it was last seen";
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowPointerTest, PressIsCancelledWhenTheWindowIsHidden) {
    send(EventType::mouseDown, {60, 50});
    take();
    window->setVisible(false);
    EXPECT_THAT(take(), ElementsAre("b cancelled"));
    window->setVisible(true);
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(WindowPointerTest, PressIsCancelledWhenTheWindowResignsTheKeyboardAndNotWhenItGetsIt) {
    send(EventType::mouseDown, {60, 50});
    take();
    window->setKeyWindow(true);
    EXPECT_THAT(take(), IsEmpty());
    window->setKeyWindow(false);
    EXPECT_THAT(take(), ElementsAre("b cancelled"));
}

TEST_F(WindowPointerTest, PressWhoseReleaseNeverCameIsCancelledByTheNext) {
    send(EventType::mouseDown, {60, 50});
    take();
    send(EventType::mouseDown, {10, 50});
    EXPECT_THAT(take(), ElementsAre("b cancelled", "b exited", "a entered", "a down"));
}

TEST_F(WindowPointerTest, WindowMayGoWithThePressThatIsCancelled) {
    b->also = [this](const std::string& word) {
        if (word == "cancelled") window.reset();
    };
    send(EventType::mouseDown, {60, 50});
    window->setVisible(false);
    EXPECT_EQ(window, nullptr);
}

class WindowPressEnd : public WindowPointerTest {
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

TEST_F(WindowPointerTest, ReleaseOfAPressThatNobodyTookTellsWhereThePointerIs) {
    EXPECT_FALSE(send(EventType::mouseUp, {60, 50}));
    EXPECT_THAT(take(), ElementsAre("root entered", "b entered"));
}

TEST_F(WindowPointerTest, PressOutsideOfTheContentIsNobodys) {
    EXPECT_FALSE(send(EventType::mouseDown, {200, 50}));
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowPointerTest, UnhandledPressGoesUpTheTree) {
    inner->passesOn = a->passesOn = true;
    send(EventType::mouseMoved, {10, 10});
    take();
    send(EventType::mouseDown, {10, 10});
    EXPECT_THAT(take(), ElementsAre("inner down", "a down", "root down"));
}

TEST_F(WindowPointerTest, HoverIsToldToAncestorsToo) {
    send(EventType::mouseMoved, {10, 10});
    EXPECT_THAT(take(),
                ElementsAre("root entered", "a entered", "inner entered", "root moved", "a moved", "inner moved"));
    send(EventType::mouseMoved, {10, 50});
    EXPECT_THAT(take(), ElementsAre("inner exited", "root moved", "a moved"));
    send(EventType::mouseMoved, {60, 50});
    EXPECT_THAT(take(), ElementsAre("a exited", "b entered", "root moved", "b moved"));
    send(EventType::mouseExited, {-1, 50});
    EXPECT_THAT(take(), ElementsAre("b exited", "root exited"));
}

TEST_F(WindowPointerTest, ScrollGoesToTheViewUnderThePointer) {
    EXPECT_TRUE(send(EventType::scrollWheel, {60, 50}));
    EXPECT_THAT(take(), ElementsAre("b scroll"));
    EXPECT_FALSE(send(EventType::scrollWheel, {600, 50}));
}

TEST_F(WindowPointerTest, RightPressAsksUpTheTreeForAMenu) {
    send(EventType::mouseMoved, {10, 10});
    take();
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    EXPECT_TRUE(send(EventType::rightMouseDown, {10, 10}));
    EXPECT_THAT(take(), ElementsAre("inner menu", "a menu", "root menu"));
    EXPECT_THAT(host.menus, ElementsAre("root's"));
    EXPECT_EQ(host.menuPoint, (Point{10, 10}));
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowPointerTest, FirstViewThatAnswersGivesTheMenu) {
    a->menu = std::make_unique<Menu>(Menu{"a's", {}});
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    send(EventType::rightMouseDown, {10, 10});
    EXPECT_THAT(host.menus, ElementsAre("a's"));
}

TEST_F(WindowPointerTest, RightPressWithoutAMenuIsAnEvent) {
    send(EventType::mouseMoved, {60, 50});
    take();
    EXPECT_TRUE(send(EventType::rightMouseDown, {60, 50}));
    EXPECT_THAT(take(), ElementsAre("b menu", "root menu", "b rightDown"));
    EXPECT_THAT(host.menus, IsEmpty());
}

TEST_F(WindowPointerTest, RightPressInMidDragIsIgnored) {
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    send(EventType::mouseDown, {60, 50});
    send(EventType::rightMouseDown, {60, 50});
    EXPECT_THAT(host.menus, IsEmpty());
    EXPECT_EQ(window->mouseCapture(), b);
}

TEST_F(WindowPointerTest, ControlClickIsARightClick) {
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    send(EventType::mouseMoved, {60, 50});
    take();
    send(EventType::mouseDown, {60, 50}, EventModifier::control);
    EXPECT_THAT(take(), ElementsAre("b menu", "root menu"));
    EXPECT_THAT(host.menus, ElementsAre("root's"));
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowPointerTest, ControlClickWithoutAMenuIsAPress) {
    send(EventType::mouseDown, {60, 50}, EventModifier::control);
    EXPECT_EQ(window->mouseCapture(), b);
    EXPECT_EQ(record.back(), "b down");
}

TEST_F(WindowPointerTest, ControlClickWithOptionOrCommandIsAPress) {
    for (const auto more : {EventModifier::option, EventModifier::command}) {
        root->menu = std::make_unique<Menu>(Menu{"root's", {}});
        send(EventType::mouseDown, {60, 50}, EventModifier::control | more);
        send(EventType::mouseUp, {60, 50}, EventModifier::control | more);
    }
    EXPECT_THAT(host.menus, IsEmpty());
}

TEST_F(WindowPointerTest, ViewMayBeDestroyedByItsOwnPress) {
    b->also = [this](const std::string& word) {
        if (word == "down") b->removeFromSuperview();
    };
    EXPECT_TRUE(send(EventType::mouseDown, {60, 50}));
    EXPECT_FALSE(send(EventType::mouseDragged, {61, 50}));
    EXPECT_FALSE(send(EventType::mouseUp, {61, 50}));
}

TEST_F(WindowPointerTest, ViewsMayBeDestroyedWhileThePointerEnters) {
    root->also = [this](const std::string& word) {
        if (word == "entered") a->removeFromSuperview();
    };
    send(EventType::mouseMoved, {10, 10});
    EXPECT_THAT(take(), ElementsAre("root entered", "a willLeaveWindow", "inner willLeaveWindow", "inner outOfWindow",
                                    "a outOfWindow", "root moved"));
}

TEST_F(WindowPointerTest, WindowMayBeDestroyedByTheRelease) {
    send(EventType::mouseDown, {60, 50});
    b->also = [this](const std::string& word) {
        if (word == "up") window.reset();
    };
    window->sendEvent(mouse(EventType::mouseUp, {60, 50}));
    EXPECT_EQ(window, nullptr);
}

TEST_F(WindowPointerTest, ToolTipIsTheNearestAncestors) {
    a->setToolTip("A");
    EXPECT_EQ(window->toolTippedViewAt({10, 10}), a);
    inner->setToolTip("Inner");
    EXPECT_EQ(window->toolTippedViewAt({10, 10}), inner);
    EXPECT_EQ(window->toolTippedViewAt({60, 10}), nullptr);
    EXPECT_EQ(window->toolTippedViewAt({600, 10}), nullptr);
}

TEST_F(WindowPointerTest, CursorIsThatOfTheViewUnderThePointerOrOfWhatItLiesIn) {
    a->setCursor(Cursor::pointingHand);
    send(EventType::mouseMoved, {10, 10});
    send(EventType::mouseMoved, {60, 10});
    b->setCursor(Cursor::resizeUpDown);
    EXPECT_THAT(host.cursors, ElementsAre(Cursor::pointingHand, Cursor::arrow, Cursor::resizeUpDown));
}

TEST_F(WindowPointerTest, PushedCursorHidesTheViewsOwn) {
    a->setCursor(Cursor::pointingHand);
    send(EventType::mouseMoved, {10, 10});
    window->pushCursor(Cursor::closedHand);
    window->pushCursor(Cursor::none);
    send(EventType::mouseMoved, {60, 10});
    window->popCursor();
    window->popCursor();
    window->popCursor(); // one too many does no harm
    EXPECT_THAT(host.cursors,
                ElementsAre(Cursor::pointingHand, Cursor::closedHand, Cursor::none, Cursor::closedHand, Cursor::arrow));
}

} // namespace
} // namespace QVM_NAMESPACE
