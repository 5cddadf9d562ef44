#include "toolkit/ToolkitMenu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;

Menu sample(std::function<void()> action) {
    Menu menu{"Tilt", {}};
    menu.items = {{"Reset é", true, false, std::move(action), {}},
                  MenuItem::separator(),
                  {"Paste", false, true, nullptr, {}},
                  {"More", true, false, nullptr, {{"Deep", true, false, nullptr, {}}}}};
    return menu;
}

std::vector<std::string> linesOf(const juce::PopupMenu& menu) {
    std::vector<std::string> lines;
    for (juce::PopupMenu::MenuItemIterator i(menu, true); i.next();) {
        const juce::PopupMenu::Item& item = i.getItem();
        std::string line = item.isSeparator ? "-" : item.text.toStdString();
        if (item.isSectionHeader) line += " heading";
        if (!item.isEnabled && !item.isSeparator && !item.isSectionHeader) line += " disabled";
        if (item.isTicked) line += " ticked";
        lines.push_back(line);
    }
    return lines;
}

void choose(const juce::PopupMenu& menu, const juce::String& text) {
    for (juce::PopupMenu::MenuItemIterator i(menu, true); i.next();) {
        if (i.getItem().text == text) i.getItem().action();
    }
}

TEST(ToolkitMenu, ShowsWhatTheMenuSays) {
    juce::Component owner;
    EXPECT_THAT(linesOf(toToolkit(sample(nullptr), {&owner})),
                ElementsAre("Tilt heading", "Reset é", "-", "Paste disabled ticked", "More", "Deep"));
    EXPECT_THAT(linesOf(toToolkit(Menu{"", {{"Only", true, false, nullptr, {}}}}, {&owner})), ElementsAre("Only"));
}

TEST(ToolkitMenu, ChosenItemRunsItsAction) {
    juce::Component owner;
    int runs = 0;
    const juce::PopupMenu menu = toToolkit(sample([&] { ++runs; }), {&owner});
    choose(menu, juce::String::fromUTF8("Reset é"));
    EXPECT_EQ(runs, 1);
    choose(menu, "Deep"); // no action: nothing happens
}

TEST(ToolkitMenu, ActionOfAClosedEditorIsNotRun) {
    auto owner = std::make_unique<juce::Component>();
    int runs = 0;
    const juce::PopupMenu menu = toToolkit(sample([&] { ++runs; }), {owner.get()});
    owner.reset();
    choose(menu, juce::String::fromUTF8("Reset é"));
    EXPECT_EQ(runs, 0);
}

TEST(ToolkitMenu, WhatIsToFollowAnActionFollowsItIfTheOwnerIsStillThere) {
    auto owner = std::make_unique<juce::Component>();
    std::vector<std::string> calls;
    const juce::PopupMenu menu =
        toToolkit(sample([&] { calls.push_back("action"); }), {owner.get()}, [&] { calls.push_back("afterwards"); });
    choose(menu, juce::String::fromUTF8("Reset é"));
    choose(menu, "Deep");
    EXPECT_THAT(calls, ElementsAre("action", "afterwards", "afterwards"));
    owner.reset();
    choose(menu, juce::String::fromUTF8("Reset é"));
    EXPECT_EQ(calls.size(), 3U);
}

} // namespace
} // namespace QVM_NAMESPACE
