// Shows a window's menus inside the component that shows the window.
#pragma once

#include "platform/view/Menu.h"
#include "toolkit/KeyboardFocus.h"
#include "toolkit/MenuGlass.h"
#include "toolkit/MenuScroll.h"
#include "toolkit/RefreshPace.h"
#include "toolkit/ToolkitRuntime.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

// Main thread.
class MenuPopup {
public:
    // All are borrowed and outlive it. `keys` is told of a menu that opens or closes, and knows whether one is open.
    MenuPopup(juce::Component& component, KeyboardFocus& keys, RefreshPace& pace, ToolkitRuntime& runtime)
        : component_(component), keys_(keys), pace_(pace), runtime_(runtime) {}

    // At a point of the component; returns at once. None without a display, nor where there is nothing to choose.
    void popUp(const Menu& menu, Point at);
    // Before the component goes: one that is open closes and chooses nothing.
    void dismiss();

private:
    juce::Component& component_;
    KeyboardFocus& keys_;
    RefreshPace& pace_;
    ToolkitRuntime& runtime_;
    MenuGlass glass_;
    MenuScroll scroll_;
};

} // namespace QVM_NAMESPACE
