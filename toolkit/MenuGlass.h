// Keeps a pointer that rests out of a menu that was opened by a key, and out of the menus that open from it.
//
// They come up wherever there is room. The toolkit would mark the row that happens to stand under the pointer, and the
// next arrow key would go on from there. From its first move on, and from a press, the pointer is seen.
#pragma once

#include "BuildNamespace.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>

namespace QVM_NAMESPACE {

// Main thread. Paints nothing.
class MenuGlass final : public juce::Component, private juce::ComponentListener {
public:
    ~MenuGlass() override { lift(); }

    // Over all that the component has and will get, until the pointer is used.
    void cover(juce::Component& component);
    void lift();

    // The toolkit asks where the pointer is, again and again: where it was at first is where it rests.
    bool hitTest(int x, int y) override;

private:
    void componentChildrenChanged(juce::Component&) override { toFront(false); } // each menu puts itself on top

    std::optional<juce::Point<int>> rest_;
    bool isClear_ = false;
};

} // namespace QVM_NAMESPACE
