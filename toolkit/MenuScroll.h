// Keeps the row in sight that the arrow keys mark: the toolkit marks it also where a menu that is too long for its room
// would have to be scrolled. Where the pointer rests at an end of the menu the toolkit scrolls it back.
#pragma once

#include "BuildNamespace.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

// Main thread. What it follows is let go of before that goes.
class MenuScroll final : private juce::ComponentListener, private juce::KeyListener {
public:
    MenuScroll() = default;
    ~MenuScroll() override { stop(); }
    MenuScroll(const MenuScroll&) = delete;
    MenuScroll& operator=(const MenuScroll&) = delete;

    // The menus that are children of `component` and will be.
    void follow(juce::Component& component);
    void stop();

private:
    void componentChildrenChanged(juce::Component& component) override;
    bool keyPressed(const juce::KeyPress& key, juce::Component* menu) override;

    juce::Component* followed_ = nullptr;
};

} // namespace QVM_NAMESPACE
