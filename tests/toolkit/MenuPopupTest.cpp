#include "toolkit/MenuPopup.h"

#include "toolkit/WindowInput.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::IsEmpty;
using Mods = juce::ModifierKeys;
using MenuPopupTest = WindowInput;

TEST_F(MenuPopupTest, MenuIsShownInsideTheWindowAndClosesWithIt) {
    const FakeDisplay display;
    view->menu = std::make_unique<Menu>(Menu{"Tilt", {{"Reset", true, false, nullptr, {}}}});
    press({10, 20}, Mods::rightButtonModifier);
    release({10, 20});
    EXPECT_EQ(openMenus(), 1);
    desktop.reset();
    component.reset();
    runPostedMessages();
    EXPECT_FALSE(juce::PopupMenu::dismissAllActiveMenus());
    component = std::make_unique<WindowComponent>(WindowComponent::Embedding::inHost);
    desktop = std::make_unique<FakeDesktopWindow>(*component);
}

TEST_F(MenuPopupTest, ChosenItemOfTheMenuRuns) {
    const FakeDisplay display;
    int runs = 0;
    view->menu = std::make_unique<Menu>(Menu{"", {{"Reset", true, false, [&] { ++runs; }, {}}}});
    press({10, 20}, Mods::rightButtonModifier);
    release({10, 20});
    auto* menu = component->getChildComponent(component->getNumChildComponents() - 1);
    ASSERT_NE(menu, nullptr);
    menu->keyPressed(juce::KeyPress(juce::KeyPress::downKey));
    menu->keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    runPostedMessages();
    EXPECT_EQ(runs, 1);
}

// The ways to press beside an open menu, by the button.
class MenuPopupPressTest : public MenuPopupTest, public ::testing::WithParamInterface<int> {};

TEST_P(MenuPopupPressTest, PressBesideAMenuClosesItAndDoesNoMore) {
    const FakeDisplay display;
    int runs = 0;
    const MenuItem row{"Reset", true, false, [&] { ++runs; }, {}};
    view->menu = std::make_unique<Menu>(Menu{"", {row, {"More", true, false, nullptr, {row}}}});
    component->window().popUpMenu(std::move(view->menu), {90, 70});
    ASSERT_EQ(openMenus(), 1);
    view->menu = std::make_unique<Menu>(Menu{"", {row}}); // a right press would open another one
    take();
    press({2, 2}, GetParam());
    press({8, 2}, GetParam());
    release({8, 2});
    runPostedMessages();
    EXPECT_EQ(openMenus(), 0);
    EXPECT_THAT(view->events, IsEmpty());
    EXPECT_THAT(take(), ::testing::Not(::testing::Contains("v menu")));
    EXPECT_EQ(runs, 0);

    press({8, 2});
    release({8, 2});
    EXPECT_EQ(view->events.size(), 2u) << "the next one is a press as any";
}

INSTANTIATE_TEST_SUITE_P(Buttons, MenuPopupPressTest,
                         ::testing::Values(int(Mods::leftButtonModifier), int(Mods::rightButtonModifier)));

TEST_F(MenuPopupTest, MenuWithoutRowsIsNone) {
    const FakeDisplay display;
    component->window().popUpMenu(std::make_unique<Menu>(), {10, 20});
    runPostedMessages();
    press({10, 20});
    release({10, 20});
    EXPECT_EQ(view->events.size(), 2u);
}

TEST_F(MenuPopupTest, MenuOfTheKeyboardHasItsFirstRowMarkedThatCanBeChosen) {
    const FakeDisplay display;
    std::string chosen;
    const auto row = [&](const char* title, bool isEnabled) {
        return MenuItem{title, isEnabled, false, [&chosen, title] { chosen = title; }, {}};
    };
    view->menu =
        std::make_unique<Menu>(Menu{"Tilt", {row("Reset", false), row("Read", true), row("Copy", true)}, true});
    press({10, 20}, Mods::rightButtonModifier);
    release({10, 20});
    auto* menu = component->getChildComponent(component->getNumChildComponents() - 1);
    ASSERT_NE(menu, nullptr);
    menu->keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    runPostedMessages();
    EXPECT_EQ(chosen, "Read");
}

// A list of values whose row of an index is the present one, opened at a point: the rows as they stand, the title
// first.
class MenuPopupListTest : public MenuPopupTest {
protected:
    std::vector<juce::Rectangle<int>> rowsWithChecked(std::size_t index, Point at) {
        component->setSize(300, 200);
        Menu menu{"Loudness", {}};
        menu.standsOnChecked = true;
        for (const char* title : {"Auto", "Norm", "Treble", "Bass"})
            menu.items.push_back({title, true, menu.items.size() == index, nullptr, {}});
        component->window().popUpMenu(std::make_unique<Menu>(std::move(menu)), at);
        const juce::Component* shown = component->getChildComponent(component->getNumChildComponents() - 1);
        std::vector<juce::Rectangle<int>> rows;
        for (const juce::Component* row : shown->getChildren())
            rows.push_back(row->getBounds() + shown->getPosition());
        room = shown->getBounds();
        juce::PopupMenu::dismissAllActiveMenus();
        runPostedMessages();
        return rows;
    }
    juce::Rectangle<int> room; // where the menu was
};

TEST_F(MenuPopupListTest, PresentChoiceStandsUnderThePointer) {
    const FakeDisplay display;
    for (const std::size_t index : {0u, 1u, 3u}) {
        const auto rows = rowsWithChecked(index, {60, 110});
        ASSERT_EQ(rows.size(), 5U);
        EXPECT_EQ(rows[index + 1].getCentreY(), 110) << index;
        EXPECT_EQ(rows[index + 1].getX(), 60);
    }
}

TEST_F(MenuPopupListTest, MenuStaysInTheWindowAndClearOfThePointerWhereThereIsNoRoom) {
    const FakeDisplay display;
    for (const auto& [at, index] : {std::pair(Point{150, 180}, 0u), {Point{60, 20}, 3u}, {Point{299, 199}, 1u}}) {
        rowsWithChecked(index, at);
        EXPECT_TRUE(component->getLocalBounds().reduced(4).contains(room)) << at.x;
        EXPECT_FALSE(room.contains(static_cast<int>(at.x), static_cast<int>(at.y))) << at.x;
    }
}

TEST_F(MenuPopupListTest, WhatIsBehindAMenuIsSeenAtItsCorners) {
    const FakeDisplay display;
    component->window().popUpMenu(std::make_unique<Menu>(Menu{"", {{"Reset", true, false, nullptr, {}}}}), {10, 20});
    const juce::Component* shown = component->getChildComponent(component->getNumChildComponents() - 1);
    EXPECT_FALSE(shown->isOpaque());
    juce::PopupMenu::dismissAllActiveMenus();
    runPostedMessages();
}

} // namespace
} // namespace QVM_NAMESPACE
