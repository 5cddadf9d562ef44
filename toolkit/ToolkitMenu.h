// A menu of the platform as one of the toolkit.
#pragma once

#include "platform/view/Menu.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace QVM_NAMESPACE {

// An item's action runs when it is chosen, on the main thread, unless `owner` is gone by then; after it `afterwards`,
// unless the action did away with the owner.
juce::PopupMenu toToolkit(
    const Menu& menu, const juce::Component::SafePointer<juce::Component>& owner,
    const std::function<void()>& afterwards = [] {});

} // namespace QVM_NAMESPACE
