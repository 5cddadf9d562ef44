#include "toolkit/EventMapping.h"

#include "platform/runloop/RunLoop.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double wheelUnitsPerNotch = 50.0 / 256; // what the toolkit reports for one notch
constexpr double pointsPerWheelUnit = 512;        // what it divides a smooth device's points by

constexpr int firstNamedCode = 0x10000000; // codes of keys that have no character

struct NamedKey {
    int toolkitCode;
    char32_t character;
    std::uint16_t keyCode;
    std::uint32_t flags;
};

// Made at each call: the toolkit's codes are no constants.
std::array<NamedKey, 14> namedKeys() {
    using K = juce::KeyPress;
    return {{{K::upKey, Key::up, 126, EventModifier::numericPad},
             {K::downKey, Key::down, 125, EventModifier::numericPad},
             {K::leftKey, Key::left, 123, EventModifier::numericPad},
             {K::rightKey, Key::right, 124, EventModifier::numericPad},
             {K::returnKey, U'\r', Key::codeReturn, 0},
             {K::tabKey, U'\t', Key::codeTab, 0},
             {K::spaceKey, U' ', Key::codeSpace, 0},
             {U'`', U'`', Key::codeGrave, 0},
             {K::backspaceKey, U'\x7F', Key::codeDelete, 0},
             {K::deleteKey, Key::forwardDelete, Key::codeDelete, 0},
             {K::homeKey, Key::home, Key::codeHome, 0},
             {K::endKey, Key::end, Key::codeEnd, 0},
             {K::escapeKey, U'\x1B', Key::codeEscape, 0},
             {K::F10Key, U'\0', Key::codeF10, 0}}};
}

// Keys of the keypad that the toolkit tells from the others.
char32_t keypadCharacter(int code) {
    using K = juce::KeyPress;
    if (code >= K::numberPad0 && code <= K::numberPad9) return U'0' + static_cast<char32_t>(code - K::numberPad0);
    if (code == K::numberPadDecimalPoint) return U'.';
    if (code == K::numberPadSeparator) return U',';
    if (code == K::numberPadSubtract) return U'-';
    if (code == K::numberPadAdd) return U'+';
    if (code == K::numberPadMultiply) return U'*';
    if (code == K::numberPadDivide) return U'/';
    return 0;
}

// What the key types into a text. With Ctrl or Alt it is a command.
std::u32string typedBy(const juce::KeyPress& key) {
    const auto typed = static_cast<char32_t>(key.getTextCharacter());
    const juce::ModifierKeys mods = key.getModifiers();
    if (mods.isCtrlDown() || mods.isAltDown() || typed < U' ' || (typed >= 0x7F && typed < 0xA0)) return {};
    return {typed};
}

// The character that the key types with no modifier but Shift, letters always small.
char32_t plainCharacter(const juce::KeyPress& key) {
    juce::juce_wchar character = key.getTextCharacter();
    const bool isTyped = character >= ' ' && character != 0x7F;
    if (!isTyped) character = key.getKeyCode() < firstNamedCode ? static_cast<juce::juce_wchar>(key.getKeyCode()) : 0;
    return static_cast<char32_t>(juce::CharacterFunctions::toLowerCase(character));
}

} // namespace

std::uint32_t modifierFlagsFrom(juce::ModifierKeys mods, SuperKey super) {
    return (mods.isCtrlDown() ? EventModifier::command : 0) | (mods.isAltDown() ? EventModifier::option : 0) |
           (mods.isShiftDown() ? EventModifier::shift : 0) | (super == SuperKey::down ? EventModifier::control : 0);
}

Event mouseEventFrom(const juce::MouseEvent& event, EventType type, SuperKey super) {
    Event out;
    out.type = type;
    out.locationInWindow = {event.position.x, event.position.y};
    out.modifierFlags = modifierFlagsFrom(event.mods, super);
    const bool isClick =
        type == EventType::mouseDown || type == EventType::mouseUp || type == EventType::rightMouseDown;
    out.clickCount = isClick ? event.getNumberOfClicks() : 0;
    out.timestamp = RunLoop::main().now();
    return out;
}

Event scrollEventFrom(const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel, SuperKey super) {
    Event out = mouseEventFrom(event, EventType::scrollWheel, super);
    const double unit = wheel.isSmooth ? pointsPerWheelUnit : 1 / wheelUnitsPerNotch;
    out.scrollingDeltaX = wheel.deltaX * unit;
    out.scrollingDeltaY = wheel.deltaY * unit;
    out.hasPreciseScrollingDeltas = wheel.isSmooth;
    out.isDirectionInvertedFromDevice = wheel.isReversed;
    out.phase = wheel.isSmooth ? EventPhase::changed : EventPhase::none;
    return out;
}

Event keyEventFrom(const juce::KeyPress& key, SuperKey super) {
    Event out;
    out.type = EventType::keyDown;
    out.timestamp = RunLoop::main().now();
    out.modifierFlags = modifierFlagsFrom(key.getModifiers(), super);
    const auto keys = namedKeys();
    const auto named =
        std::find_if(keys.begin(), keys.end(), [&key](const NamedKey& k) { return key.isKeyCode(k.toolkitCode); });
    char32_t character = plainCharacter(key);
    if (named != keys.end()) {
        character = named->character;
        out.keyCode = named->keyCode;
        out.modifierFlags |= named->flags;
    } else if (const char32_t keypad = keypadCharacter(key.getKeyCode())) {
        character = keypad;
        out.modifierFlags |= EventModifier::numericPad;
    }
    if (character != 0) out.charactersIgnoringModifiers = {character};
    out.characters = typedBy(key);
    return out;
}

Event menuKeyEvent() {
    Event out;
    out.type = EventType::keyDown;
    out.timestamp = RunLoop::main().now();
    out.modifierFlags = modifierFlagsFrom(juce::ModifierKeys::currentModifiers, SuperKey::up);
    out.keyCode = Key::codeMenu;
    return out;
}

juce::MouseCursor toToolkit(Cursor cursor) {
    using Toolkit = juce::MouseCursor;
    switch (cursor) {
    case Cursor::pointingHand:
        return Toolkit::PointingHandCursor;
    case Cursor::resizeUpDown:
        return Toolkit::UpDownResizeCursor;
    case Cursor::resizeLeftRight:
        return Toolkit::LeftRightResizeCursor;
    case Cursor::resizeDiagonal:
        return Toolkit::BottomRightCornerResizeCursor;
    case Cursor::openHand:
    case Cursor::closedHand:
        return Toolkit::DraggingHandCursor;
    case Cursor::none:
        return Toolkit::NoCursor;
    case Cursor::arrow:
        break;
    }
    return Toolkit::NormalCursor;
}

} // namespace QVM_NAMESPACE
