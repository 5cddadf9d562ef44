#include "description/tables/GestureTable.h"

#include <array>

namespace QVM_NAMESPACE {
namespace tables {

namespace {

constexpr auto mouse = GestureDevice::mouse, keyboard = GestureDevice::keyboard;
constexpr unsigned onValue = onSlider | onNumber, onParameter = onValue | onChoice | onSwitch;

// clang-format off
constexpr std::array gestures = {
    GestureRow{mouse, "Drag", "moves a handle; changes a number, up and down", "Drag up or down", onNumber},
    GestureRow{mouse, "Drag between handles", "moves both ends of a range", "Drag moves both ends", onBand},
    GestureRow{mouse, "Ctrl + drag", "fine, in the smallest steps", "Ctrl fine", onValue},
    GestureRow{mouse, "Shift + drag", "coarse, in large steps", "Shift coarse", onValue},
    GestureRow{mouse, "Click", "moves the handle there; flips a switch", "Click", onChoice | onSwitch},
    GestureRow{mouse, "Alt + click", "back to the initial value", "Alt-click resets", onParameter | onBand},
    GestureRow{mouse, "Double-click", "empties a value, to type another"},
    GestureRow{mouse, "Drag a corner", "small window: moves an end of tilt or filter"},
    GestureRow{mouse, "Right-click", "the menu: reset, read about it, copy and paste"},
    GestureRow{keyboard, "Tab, Shift + Tab", "to the next and the previous control"},
    GestureRow{keyboard, "Arrow keys", "one step, or the next value of a choice", "arrows", onParameter},
    GestureRow{keyboard, "Shift, Ctrl + arrow", "a coarse step, a fine step"},
    GestureRow{keyboard, "Digits", "a value, with a k at its end in thousands", "digits", onValue},
    GestureRow{keyboard, "Return", "takes what was typed; flips a switch", "Return", onValue | onSwitch},
    GestureRow{keyboard, "Escape", "lets go of the keyboard; closes a list"},
    GestureRow{keyboard, "Menu, Shift + F10", "the menu, and in it all that has a button", "Shift+F10", onButton},
    GestureRow{keyboard, "Ctrl with +, -, 0", "a larger, a smaller editor, and 100 %"},
    GestureRow{keyboard, "Home, End, letters", "list of presets: first, last, next by letter"},
    GestureRow{keyboard, "F1", "this list, in the stand-alone program"},
};
// clang-format on

} // namespace

std::span<const GestureRow> Gestures() {
    return gestures;
}

} // namespace tables
} // namespace QVM_NAMESPACE
