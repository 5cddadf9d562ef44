// A menu of the platform as one of the toolkit.
#pragma once

#include "platform/Menu.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

// An item's action runs when it is chosen, on the main thread, unless `owner` is gone by then.
juce::PopupMenu toToolkit(const Menu& menu, const juce::Component::SafePointer<juce::Component>& owner);

} // namespace QVM_NAMESPACE
