// Keys as an adapter makes them of what a user presses, with the characters that they type.
#pragma once

#include "platform/system/Utf8.h"
#include "platform/view/Event.h"

#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

inline Event pressedKey(char32_t character, std::uint16_t code = 0, std::uint32_t modifiers = 0) {
    Event event;
    event.type = EventType::keyDown;
    if (character != 0) event.charactersIgnoringModifiers = std::u32string(1, character);
    event.keyCode = code;
    event.modifierFlags = modifiers;
    return event;
}

inline Event pressedReturn() {
    return pressedKey(U'\r', Key::codeReturn);
}

inline Event pressedEscape() {
    return pressedKey(0x1B, Key::codeEscape);
}

inline Event pressedBackspace() {
    return pressedKey(0x7F, Key::codeDelete);
}

inline Event pressedArrow(char32_t arrow, std::uint32_t modifiers = 0) {
    return pressedKey(arrow, 0, modifiers | EventModifier::numericPad);
}

// One event a character. A letter comes small where the modifiers do not count.
inline std::vector<Event> typedKeys(std::string_view text) {
    std::vector<Event> keys;
    for (const char32_t character : charactersOfUtf8(text)) {
        const bool isCapital = character >= U'A' && character <= U'Z';
        Event key = pressedKey(isCapital ? character - U'A' + U'a' : character, character == U' ' ? Key::codeSpace : 0,
                               isCapital ? EventModifier::shift : 0);
        key.characters = std::u32string(1, character);
        keys.push_back(key);
    }
    return keys;
}

} // namespace QVM_NAMESPACE
