// What happened, in the terms the controls use. The toolkit adapter fills these in; tests make them by hand.
#pragma once

#include "geometry/Geometry.h"

#include <cstdint>
#include <string>

namespace QVM_NAMESPACE {

enum class EventType : std::uint8_t {
    mouseDown,
    mouseDragged,
    mouseUp,
    mouseCancelled, // made by the window: a press that will have no release here
    rightMouseDown,
    mouseMoved,
    mouseExited,
    scrollWheel,
    keyDown,
    keyUp,
    flagsChanged
};

// Modifier flags. The adapter maps Ctrl to command, Alt to option, Shift to shift and Super to control.
namespace EventModifier {
inline constexpr std::uint32_t shift = 1u << 17;
inline constexpr std::uint32_t control = 1u << 18;
inline constexpr std::uint32_t option = 1u << 19;
inline constexpr std::uint32_t command = 1u << 20;
inline constexpr std::uint32_t numericPad = 1u << 21; // set for the arrow keys and the keypad
} // namespace EventModifier

// Scroll phases are bits, as the gesture rules read them.
namespace EventPhase {
inline constexpr std::uint32_t none = 0, began = 1, changed = 4, ended = 8, mayBegin = 32;
} // namespace EventPhase

// Characters that function keys report, and the virtual key codes that the key tables name.
namespace Key {
inline constexpr char32_t up = 0xF700, down = 0xF701, left = 0xF702, right = 0xF703;
inline constexpr char32_t forwardDelete = 0xF728, home = 0xF729, end = 0xF72B;
inline constexpr std::uint16_t codeReturn = 36, codeTab = 48, codeSpace = 49, codeGrave = 50, codeDelete = 51,
                               codeEscape = 53, codeEnter = 76, codeF10 = 109, codeMenu = 110, codeHome = 115,
                               codeEnd = 119;
} // namespace Key

struct Event {
    EventType type = EventType::mouseMoved;
    Point locationInWindow;          // points, origin at the window's top left, y down
    std::uint32_t modifierFlags = 0; // EventModifier bits
    int clickCount = 0;
    double timestamp = 0; // seconds on the run loop's clock

    double scrollingDeltaX = 0, scrollingDeltaY = 0; // points when precise, else lines
    bool hasPreciseScrollingDeltas = false;
    bool isDirectionInvertedFromDevice = false;
    std::uint32_t phase = EventPhase::none;

    std::u32string charactersIgnoringModifiers; // one character for the keys that the key tables name
    std::u32string characters; // what the key types into a text, capitals and all; empty where it types nothing
    std::uint16_t keyCode = 0;
    bool isARepeat = false;

    bool has(std::uint32_t modifier) const { return (modifierFlags & modifier) != 0; }
};

} // namespace QVM_NAMESPACE
