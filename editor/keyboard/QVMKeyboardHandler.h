// Drives the editor from the keyboard: steps the focused value, types a number into it, and walks the focus.
//
// The editor hands it key events; what it does not handle is the host's. It owns nothing but the number being typed:
// undo and settings are the session's, and are passed on to it. Main thread only.
#pragma once

#include "editor/keyboard/NumberBuffer.h"
#include "editor/session/EditorSession.h"
#include "platform/view/Event.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace QVM_NAMESPACE {

class EditorFocus;
class FocusableControl;
class KeyboardSurface;
class QVMParameterControl;

class QVMKeyboardHandler {
public:
    // All are borrowed and outlive the handler.
    QVMKeyboardHandler(EditorSession& session, EditorFocus& focus, KeyboardSurface& surface);

    // The plain keys of a focused control; true when handled.
    bool handleKeyDownEvent(const Event& event);
    // Arrow keys, and keys with Command; true when handled.
    bool handlePerformKeyEquivalent(const Event& event);
    // The keys that mean something while no control has the focus: Tab begins the walk, Escape closes the drawers.
    bool handleUnfocusedKeyEvent(const Event& event);

    // The number being typed, which shows on the focused control. Each tells whether it did anything.
    bool appendToNumberBuffer(char32_t character);
    bool deleteLastCharacterInNumberBuffer();
    // Toggles a switch; gives any other control what was typed.
    bool sendCompletedNumberBuffer();
    bool resetNumberBuffer();
    bool clearNumberBuffer() { return resetNumberBuffer(); }
    const std::string& numberBuffer() const { return numberBuffer_.text(); }

    // The walk of the focus (EditorFocus); -1 is backwards. What was typed is sent first.
    bool tabToNextControlWithEvent(const Event& event);
    bool tabToNextControlWithDirection(int direction);
    QVMParameterControl* adjacentParameterControlDirection(FocusableControl* focused, int direction) const;
    // Forgets what was typed and takes the focus away; where there is none, closes the drawers.
    bool escapeFocusedControl();
    bool keyboardShortcutAttemptTap();

    // Takes an address with settings (SettingsClipboard); whether anything was applied.
    bool applyURLEncodedPreset(const std::string& text) { return session_.settings().apply(text); }

    // For the editor's buttons and menus; no key is bound to them. Each tells whether there was anything to do, but the
    // first two, which are the history's (EditorHistory), always say yes.
    bool keyboardShortcutUndo();
    bool keyboardShortcutRedo();
    bool keyboardShortcutToggleAdvancedDrawer();
    bool keyboardShortcutTogglePresetDrawer();
    bool keyboardShortcutToggleTheme();
    bool keyboardShortcutTogglePower();
    bool keyboardShortcutResizeWindow();

    // Named by the contract and not used in this product: what it has of these is asked of the session itself
    // (SettingsClipboard, EditorHistory), and it has no controls to hide and works on no files.
    std::string currentParametersURLEncoded() const { return session_.settings().address(); }
    std::string baseURLForPluginVersion() const { return session_.settings().baseAddress(); }
    bool keyboardShortcutHandleCopy();
    bool keyboardShortcutHandlePaste() { return session_.settings().paste(); }
    bool applyUndoRedoStackValues(const std::optional<QVMSnapshot>& snapshot);
    QVMUndoRedoStack& undoRedoStack() { return session_.history().stack(); }
    bool keyboardShortcutRefreshInitialParameterValues();
    bool keyboardShortcutHideControls();
    bool keyboardShortcutFreakout();
    bool keyboardShortcutLoadFile() { return false; }
    bool keyboardShortcutLoadListedFile() { return false; }

private:
    using Shortcut = std::function<bool()>;

    FocusableControl* focused() const;
    bool handleKeyCode(const Event& event);
    void showNumberBuffer();

    EditorSession& session_;
    EditorFocus& focus_;
    KeyboardSurface& surface_;
    NumberBuffer numberBuffer_;
    std::map<char32_t, Shortcut> cmdShortcutMap_; // keys with Command: the editor's size
};

} // namespace QVM_NAMESPACE
