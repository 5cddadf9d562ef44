#include "editor/surface/QVMKeyboardHandler.h"

#include "controls/QVMParameterControl.h"
#include "editor/surface/QVMGenericUI.h"

#include <array>
#include <string_view>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr std::u32string_view numberCharacters = U",.0123456789";

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

QVMKeyboardHandler::QVMKeyboardHandler(EditorSession& session) : session_(session) {}

bool QVMKeyboardHandler::handleKeyDownEvent(const Event& event) {
    QVMParameterControl* control = focused();
    // Keys with Command are shortcuts, here or in the host, and never typed.
    if (!control || event.has(EventModifier::command)) return false;
    const char32_t ch = characterOf(event);
    if (ch == U'-' && numberBuffer_.empty()) return appendToNumberBuffer(ch);
    if (ch == U'k') return appendToNumberBuffer(ch);
    const bool canTap = control->parameter() && !control->parameter()->tap.empty();
    if (canTap && (ch == U'j' || ch == U'f')) return keyboardShortcutAttemptTap();
    if (ch != 0 && numberCharacters.find(ch) != std::u32string_view::npos) return appendToNumberBuffer(ch);
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
    if (event.has(EventModifier::numericPad)) {
        QVMParameterControl* control = focused();
        return control && isArrow(ch) && control->incrementWithArrowGranularity(ch, granularityOf(event));
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

bool QVMKeyboardHandler::keyboardShortcutAttemptTap() {
    QVMParameterControl* control = focused();
    return control && control->tap();
}

bool QVMKeyboardHandler::keyboardShortcutHandleCopy() {
    session_.settings().copy();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutUndo() {
    session_.history().undo();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutRedo() {
    session_.history().redo();
    return true;
}

bool QVMKeyboardHandler::applyUndoRedoStackValues(const std::optional<QVMSnapshot>& snapshot) {
    session_.history().apply(snapshot);
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutToggleAdvancedDrawer() {
    ui_->toggleDoubleWide();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutTogglePresetDrawer() {
    return ui_->togglePresetsDrawer();
}

bool QVMKeyboardHandler::keyboardShortcutToggleTheme() {
    ui_->toggleUITheme();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutTogglePower() {
    QVMParameterControl* power = ui_->parameterControlWithPid(0);
    return power && power->toggleBooleanControl();
}

bool QVMKeyboardHandler::keyboardShortcutRefreshInitialParameterValues() {
    ui_->resetInitialValues();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutHideControls() {
    ui_->hideAllControls();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutFreakout() {
    ui_->freakout();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutResizeWindow() {
    ui_->toggleFrame();
    return true;
}

QVMParameterControl* QVMKeyboardHandler::focused() const {
    return ui_ ? ui_->focusedControl() : nullptr;
}

} // namespace QVM_NAMESPACE
