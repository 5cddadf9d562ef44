// Right presses and control clicks: which view gives a menu.
#include "platform/view/Window.h"

#include "platform/view/Menu.h"
#include "platform/view/WindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using WindowMenuTest = WindowFixture;

TEST_F(WindowMenuTest, RightPressAsksUpTheTreeForAMenu) {
    send(EventType::mouseMoved, {10, 10});
    take();
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    EXPECT_TRUE(send(EventType::rightMouseDown, {10, 10}));
    EXPECT_THAT(take(), ElementsAre("inner menu", "a menu", "root menu"));
    EXPECT_THAT(host.menus, ElementsAre("root's"));
    EXPECT_EQ(host.menuPoint, (Point{10, 10}));
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowMenuTest, FirstViewThatAnswersGivesTheMenu) {
    a->menu = std::make_unique<Menu>(Menu{"a's", {}});
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    send(EventType::rightMouseDown, {10, 10});
    EXPECT_THAT(host.menus, ElementsAre("a's"));
}

TEST_F(WindowMenuTest, RightPressWithoutAMenuIsAnEvent) {
    send(EventType::mouseMoved, {60, 50});
    take();
    EXPECT_TRUE(send(EventType::rightMouseDown, {60, 50}));
    EXPECT_THAT(take(), ElementsAre("b menu", "root menu", "b rightDown"));
    EXPECT_THAT(host.menus, IsEmpty());
}

TEST_F(WindowMenuTest, RightPressInMidDragIsIgnored) {
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    send(EventType::mouseDown, {60, 50});
    send(EventType::rightMouseDown, {60, 50});
    EXPECT_THAT(host.menus, IsEmpty());
    EXPECT_EQ(window->mouseCapture(), b);
}

TEST_F(WindowMenuTest, ControlClickIsARightClick) {
    root->menu = std::make_unique<Menu>(Menu{"root's", {}});
    send(EventType::mouseMoved, {60, 50});
    take();
    send(EventType::mouseDown, {60, 50}, EventModifier::control);
    EXPECT_THAT(take(), ElementsAre("b menu", "root menu"));
    EXPECT_THAT(host.menus, ElementsAre("root's"));
    EXPECT_EQ(window->mouseCapture(), nullptr);
}

TEST_F(WindowMenuTest, ControlClickWithoutAMenuIsAPress) {
    send(EventType::mouseDown, {60, 50}, EventModifier::control);
    EXPECT_EQ(window->mouseCapture(), b);
    EXPECT_EQ(record.back(), "b down");
}

TEST_F(WindowMenuTest, ControlClickWithOptionOrCommandIsAPress) {
    for (const auto more : {EventModifier::option, EventModifier::command}) {
        root->menu = std::make_unique<Menu>(Menu{"root's", {}});
        send(EventType::mouseDown, {60, 50}, EventModifier::control | more);
        send(EventType::mouseUp, {60, 50}, EventModifier::control | more);
    }
    EXPECT_THAT(host.menus, IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
