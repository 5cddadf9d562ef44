// The keys and gestures of the editor: the one source for the list that it shows of them and for what tooltips say.
#pragma once

#include "BuildNamespace.h"

#include <span>

namespace QVM_NAMESPACE {
namespace tables {

enum class GestureDevice { mouse, keyboard };

// What a gesture is of use on; values combine.
enum GestureSubject : unsigned {
    onNothing = 0,
    onSlider = 1,
    onNumber = 2,
    onChoice = 4, // one of several values by name
    onSwitch = 8,
    onBand = 16,   // what two handles share
    onButton = 32, // what is no parameter
};

struct GestureRow {
    GestureDevice device;
    const char* call;       // the keys, or what the pointer does
    const char* does;       // for the list
    const char* brief = ""; // for a tooltip, where it is worth the room
    unsigned subjects = onNothing;
};

// In the order in which they are shown: the mouse's, then the keyboard's.
std::span<const GestureRow> Gestures();

} // namespace tables
} // namespace QVM_NAMESPACE
