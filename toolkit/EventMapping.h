// The toolkit's events in the terms of the platform. The toolkit does not report the Super key with its events, so
// whether that one is held comes beside them. Main thread.
#pragma once

#include "platform/view/Event.h"
#include "platform/view/View.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdint>

namespace QVM_NAMESPACE {

enum class SuperKey : unsigned char { up, down };

// Ctrl is Command, Alt is Option, Shift is Shift and Super is Control.
std::uint32_t modifierFlagsFrom(juce::ModifierKeys mods, SuperKey super);

// `type` says what the toolkit's callback was. The location is the event's, in the component's coordinates.
Event mouseEventFrom(const juce::MouseEvent& event, EventType type, SuperKey super);
// A notch of a wheel is one line; a smooth device gives points. Positive is up and left, as the toolkit has it.
Event scrollEventFrom(const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel, SuperKey super);
Event keyEventFrom(const juce::KeyPress& key, SuperKey super);
// A press of the key that opens a context menu, for which the toolkit has no name.
Event menuKeyEvent();

juce::MouseCursor toToolkit(Cursor cursor);

} // namespace QVM_NAMESPACE
