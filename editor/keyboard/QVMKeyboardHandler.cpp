#include "editor/keyboard/QVMKeyboardHandler.h"

#include "editor/keyboard/EditorFocus.h"
#include "editor/keyboard/KeyboardSurface.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

char32_t characterOf(const Event& event) {
    return event.charactersIgnoringModifiers.empty() ? U'\0' : event.charactersIgnoringModifiers.front();
}

std::int32_t granularityOf(const Event& event) {
    if (event.has(EventModifier::shift)) return QVMGranularityCoarse;
    return event.has(EventModifier::command) ? QVMGranularityFine : QVMGranularityNormal;
}

bool isArrow(char32_t character) {
    return character == Key::up || character == Key::down || character == Key::left || character == Key::right;
}

} // namespace

QVMKeyboardHandler::QVMKeyboardHandler(EditorSession& session, EditorFocus& focus, KeyboardSurface& surface)
    : session_(session), focus_(focus), surface_(surface) {
    const std::pair<char32_t, int> sizes[] = {{U'+', 1}, {U'=', 1}, {U'-', -1}, {U'0', 0}}; // "=" is "+" with no Shift
    for (const auto& [key, direction] : sizes) {
        cmdShortcutMap_[key] = [this, direction = direction] {
            if (focused()) surface_.stepScale(direction);
            return focused() != nullptr;
        };
    }
}

bool QVMKeyboardHandler::handleKeyDownEvent(const Event& event) {
    FocusableControl* control = focused();
    // Keys with Command are shortcuts, here or in the host, and never typed.
    if (!control || event.has(EventModifier::command)) return false;
    const char32_t ch = characterOf(event);
    if (control->hasTap() && (ch == U'j' || ch == U'f')) return keyboardShortcutAttemptTap();
    return numberBuffer_.takes(ch) ? appendToNumberBuffer(ch) : handleKeyCode(event);
}

bool QVMKeyboardHandler::handleKeyCode(const Event& event) {
    switch (event.keyCode) {
    case Key::codeTab:
        return tabToNextControlWithEvent(event);
    case Key::codeGrave:
        return tabToNextControlWithDirection(-1);
    case Key::codeDelete:
        return deleteLastCharacterInNumberBuffer();
    case Key::codeEscape:
        return escapeFocusedControl();
    case Key::codeReturn:
    case Key::codeEnter:
        return sendCompletedNumberBuffer();
    default:
        return false;
    }
}

bool QVMKeyboardHandler::handlePerformKeyEquivalent(const Event& event) {
    const char32_t ch = characterOf(event);
    const bool isArrowKey = isArrow(ch);
    if (event.has(EventModifier::numericPad) && (isArrowKey || !event.has(EventModifier::command))) {
        FocusableControl* control = focused();
        return control && isArrowKey && control->incrementWithArrowGranularity(ch, granularityOf(event));
    }
    if (!event.has(EventModifier::command) || event.has(EventModifier::control)) return false;
    const auto shortcut = cmdShortcutMap_.find(ch);
    return shortcut != cmdShortcutMap_.end() && shortcut->second();
}

bool QVMKeyboardHandler::handleUnfocusedKeyEvent(const Event& event) {
    if (focused() || event.has(EventModifier::command)) return false;
    switch (event.keyCode) {
    case Key::codeTab:
        return tabToNextControlWithEvent(event) && focused();
    case Key::codeEscape:
        return escapeFocusedControl();
    default:
        return false;
    }
}

bool QVMKeyboardHandler::appendToNumberBuffer(char32_t character) {
    if (!numberBuffer_.append(character)) return false;
    showNumberBuffer();
    return true;
}

bool QVMKeyboardHandler::deleteLastCharacterInNumberBuffer() {
    if (!numberBuffer_.deleteLast()) return false;
    showNumberBuffer();
    return true;
}

bool QVMKeyboardHandler::sendCompletedNumberBuffer() {
    FocusableControl* control = focused();
    if (!control) return false;
    // The toggle counts as an interaction, which empties the buffer; what was typed stays typed.
    const std::string typed = numberBuffer_.text();
    if (control->toggleBooleanControl()) {
        numberBuffer_.set(typed);
        return true;
    }
    if (!typed.empty()) control->setStringValue(typed);
    resetNumberBuffer(); // an empty field closes too
    return !typed.empty();
}

bool QVMKeyboardHandler::resetNumberBuffer() {
    numberBuffer_.clear();
    if (FocusableControl* control = focused()) control->clearTransientStringValue();
    return true;
}

void QVMKeyboardHandler::showNumberBuffer() {
    if (FocusableControl* control = focused()) control->setTransientStringValue(numberBuffer_.text());
}

bool QVMKeyboardHandler::tabToNextControlWithEvent(const Event& event) {
    return tabToNextControlWithDirection(event.has(EventModifier::shift) ? -1 : 1);
}

bool QVMKeyboardHandler::tabToNextControlWithDirection(int direction) {
    FocusableControl* control = focused();
    if (control && control->acceptsTransientStringBuffers()) sendCompletedNumberBuffer();
    focus_.bring(adjacentParameterControlDirection(control, direction));
    focus_.reveal();
    resetNumberBuffer();
    return true;
}

QVMParameterControl* QVMKeyboardHandler::adjacentParameterControlDirection(FocusableControl* control,
                                                                           int direction) const {
    return focus_.adjacent(control, direction);
}

bool QVMKeyboardHandler::escapeFocusedControl() {
    resetNumberBuffer();
    if (!focused()) return surface_.hideAllDrawers();
    focus_.bring(nullptr);
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutAttemptTap() {
    FocusableControl* control = focused();
    return control && control->tap();
}

FocusableControl* QVMKeyboardHandler::focused() const {
    return focus_.focused();
}

} // namespace QVM_NAMESPACE
