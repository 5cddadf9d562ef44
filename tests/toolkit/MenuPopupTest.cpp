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
    juce::Component* const menu = juce::Component::getCurrentlyModalComponent();
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

// A menu that comes up around the pointer, which rests.
class MenuPopupRestTest : public MenuPopupTest {
protected:
    void openAroundThePointer() {
        component->setSize(300, 200);
        desktop->setSize(300, 200);
        move(resting.toFloat());
        const auto row = [this](const char* title, bool isEnabled) {
            return MenuItem{title, isEnabled, false, [this, title] { chosen = title; }, {}};
        };
        Menu menu{"Tilt", {row("Reset", false), row("Read", true), row("Copy", true), row("Paste", true)}};
        component->window().popUpMenu(std::make_unique<Menu>(std::move(menu)), {60, 40});
        for (juce::Component* child : component->getChildren())
            if (child->getName().contains("menu")) shown = child;
        ASSERT_TRUE(shown && shown->getBounds().contains(resting));
    }
    bool menuSeesThePointerAt(juce::Point<int> pointer) const {
        return shown->reallyContains(shown->getLocalPoint(component.get(), pointer), true);
    }
    // The keys, and Return.
    std::string chosenBy(std::initializer_list<int> keys) {
        openAroundThePointer();
        for (const int key : keys)
            shown->keyPressed(juce::KeyPress(key));
        shown->keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
        runPostedMessages();
        return chosen;
    }

    const juce::Point<int> resting{100, 90};
    juce::Component* shown = nullptr;
    std::string chosen;
};

TEST_F(MenuPopupRestTest, FirstArrowGoesToTheFirstRowThatCanBeChosenOrToTheLast) {
    const FakeDisplay display;
    const int down = juce::KeyPress::downKey, up = juce::KeyPress::upKey;
    EXPECT_EQ(chosenBy({down}), "Read");
    EXPECT_EQ(chosenBy({down, down}), "Copy");
    EXPECT_EQ(chosenBy({up}), "Paste");
    EXPECT_EQ(chosenBy({up, up}), "Copy");
}

TEST_F(MenuPopupRestTest, DoesNotSeeThePointerThatRestsOnARowBeforeItMoves) {
    const FakeDisplay display;
    openAroundThePointer();
    EXPECT_FALSE(menuSeesThePointerAt(resting));
    EXPECT_TRUE(menuSeesThePointerAt(resting.translated(4, 0)));
    juce::PopupMenu::dismissAllActiveMenus();
    runPostedMessages();
}

TEST_F(MenuPopupRestTest, TheRowThatAnArrowMarksIsInSightInAMenuThatIsTooLong) {
    const FakeDisplay display;
    component->setSize(300, 200);
    desktop->setSize(300, 200);
    Menu menu{"Tilt", std::vector<MenuItem>(30, MenuItem{"Row", true, false, [] {}, {}})};
    component->window().popUpMenu(std::make_unique<Menu>(std::move(menu)), {60, 40});
    juce::Component* const modal = juce::Component::getCurrentlyModalComponent();
    ASSERT_TRUE(modal);
    for (const int key : {juce::KeyPress::upKey, juce::KeyPress::upKey, juce::KeyPress::downKey,
                          juce::KeyPress::downKey, juce::KeyPress::downKey}) {
        desktop->peer().handleKeyPress(key, 0);
        int marked = 0;
        const juce::Array<juce::Component*> rows = modal->getChildren();
        for (juce::Component* const row : rows) {
            auto* const handler = row->getAccessibilityHandler();
            if (!handler || !handler->hasFocus(false)) continue;
            ++marked;
            const bool isEnd = row == rows.getFirst() || row == rows.getLast();
            const int arrow = isEnd ? 0 : 24;
            EXPECT_TRUE(modal->getLocalBounds().reduced(0, arrow).contains(row->getBounds()))
                << row->getBounds().toString();
        }
        EXPECT_EQ(marked, 1);
    }
    juce::PopupMenu::dismissAllActiveMenus();
    runPostedMessages();
}

TEST_F(MenuPopupRestTest, LeavesNothingOverTheWindow) {
    const FakeDisplay display;
    openAroundThePointer();
    EXPECT_NE(component->getComponentAt(resting), component.get());
    juce::PopupMenu::dismissAllActiveMenus();
    runPostedMessages();
    EXPECT_EQ(component->getComponentAt(resting), component.get());
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
        const juce::Component* shown = juce::Component::getCurrentlyModalComponent();
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
    EXPECT_FALSE(juce::Component::getCurrentlyModalComponent()->isOpaque());
    juce::PopupMenu::dismissAllActiveMenus();
    runPostedMessages();
}

} // namespace
} // namespace QVM_NAMESPACE
