// Keeps a pointer that rests out of a menu, and out of the menus that open from it.
//
// They come up wherever there is room. The toolkit would mark the row that happens to stand under the pointer, open the
// menu behind it, go on from it with the next arrow key, and take the release of the button that opened the menu for a
// choice. From its first move on, and from the next press, the pointer is seen: who draws it to a row with the button
// still held, and lets go there, has chosen.
#pragma once

#include "BuildNamespace.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>

namespace QVM_NAMESPACE {

// Main thread. Paints nothing.
class MenuGlass final : public juce::Component, private juce::ComponentListener {
public:
    // What a pointer is seen from on: its move, or already the release of the button that opened the menu.
    enum class Until { moved, released };

    ~MenuGlass() override { lift(); }

    // Over all that the component has and will get, until the pointer is used.
    void cover(juce::Component& component, Until until);
    void lift();

    // The toolkit asks where the pointer is, again and again: where it was at first is where it rests.
    bool hitTest(int x, int y) override;

private:
    void componentChildrenChanged(juce::Component&) override { toFront(false); } // each menu puts itself on top

    Until until_ = Until::moved;
    std::optional<juce::Point<int>> rest_;
    bool isFirstPress_ = false; // the one that opened the menu is still held
    bool isClear_ = false;
};

} // namespace QVM_NAMESPACE
