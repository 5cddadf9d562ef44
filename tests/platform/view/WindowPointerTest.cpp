// The pointer without a press: hover, scrolling, tooltips and cursors.
#include "platform/view/Window.h"

#include "platform/view/WindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;

using WindowPointerTest = WindowFixture;

TEST_F(WindowPointerTest, ReleaseOfAPressThatNobodyTookTellsWhereThePointerIs) {
    EXPECT_FALSE(send(EventType::mouseUp, {60, 50}));
    EXPECT_THAT(take(), ElementsAre("root entered", "b entered"));
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

TEST_F(WindowPointerTest, ViewsMayBeDestroyedWhileThePointerEnters) {
    root->also = [this](const std::string& word) {
        if (word == "entered") a->removeFromSuperview();
    };
    send(EventType::mouseMoved, {10, 10});
    EXPECT_THAT(take(), ElementsAre("root entered", "a willLeaveWindow", "inner willLeaveWindow", "inner outOfWindow",
                                    "a outOfWindow", "root moved"));
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

TEST_F(WindowPointerTest, NewHostShowsAnArrowUntilItIsToldOtherwise) {
    a->setCursor(Cursor::pointingHand);
    send(EventType::mouseMoved, {10, 10});
    RecordingHost other;
    window->setHost(&other);
    EXPECT_THAT(other.cursors, ElementsAre(Cursor::pointingHand));
    window->setHost(nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
