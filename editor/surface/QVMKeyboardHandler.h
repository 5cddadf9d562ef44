// Drives the editor from the keyboard: steps and types values, and walks the focus. Undo and settings are the
// session's; what of them a key or a menu may ask for is passed on.
//
// The editor hands it key events; what it does not handle is the host's. Main thread only.
#pragma once

#include "editor/session/EditorSession.h"
#include "platform/view/Event.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace QVM_NAMESPACE {

class QVMConfig;
class QVMGenericUI;
class QVMParameterControl;

class QVMKeyboardHandler {
public:
    // The session is borrowed and outlives the handler.
    explicit QVMKeyboardHandler(EditorSession& session);

    // Both are borrowed and outlive the handler, which belongs to the editor.
    void setConfig(const QVMConfig* config) { config_ = config; }
    void setUi(QVMGenericUI* ui) { ui_ = ui; }

    // The plain keys of a focused control; true when handled.
    bool handleKeyDownEvent(const Event& event);
    // Arrow keys, and keys with Command; true when handled.
    bool handlePerformKeyEquivalent(const Event& event);
    // The keys that mean something while no control has the focus: Tab begins the walk, Escape closes the drawers.
    bool handleUnfocusedKeyEvent(const Event& event);

    // The number being typed. Each tells whether it did anything.
    bool appendToNumberBuffer(char32_t character);
    bool deleteLastCharacterInNumberBuffer();
    // Toggles a switch; gives any other control what was typed.
    bool sendCompletedNumberBuffer();
    // Forgets what was typed, here and where the focused control shows it: what is seen is what Return applies.
    bool resetNumberBuffer();
    bool clearNumberBuffer() { return resetNumberBuffer(); }
    const std::string& numberBuffer() const { return numberBuffer_; }

    // Focus walk along the description's tab order; -1 is backwards.
    bool tabToNextControlWithEvent(const Event& event);
    bool tabToNextControlWithDirection(int direction);
    // The next control that can be used, or null. There is none while processing is off.
    QVMParameterControl* adjacentParameterControlDirection(QVMParameterControl* focused, int direction) const;
    // Forgets what was typed and takes the focus away; where there is none, closes the drawers.
    bool escapeFocusedControl();
    bool keyboardShortcutAttemptTap();

    // All settings as one address (SettingsClipboard).
    std::string currentParametersURLEncoded() const { return session_.settings().address(); }
    std::string baseURLForPluginVersion() const { return session_.settings().baseAddress(); }
    bool applyURLEncodedPreset(const std::string& text) { return session_.settings().apply(text); }
    bool keyboardShortcutHandleCopy();
    bool keyboardShortcutHandlePaste() { return session_.settings().paste(); }

    // The history (EditorHistory). Keys that ask for it are always consumed.
    bool keyboardShortcutUndo();
    bool keyboardShortcutRedo();
    bool applyUndoRedoStackValues(const std::optional<QVMSnapshot>& snapshot);
    QVMUndoRedoStack& undoRedoStack() { return session_.history().stack(); }

    // For the editor's buttons and menus; no key is bound to them. Each tells whether there was anything to do.
    bool keyboardShortcutToggleAdvancedDrawer();
    bool keyboardShortcutTogglePresetDrawer();
    bool keyboardShortcutToggleTheme();
    bool keyboardShortcutTogglePower();
    bool keyboardShortcutRefreshInitialParameterValues();
    bool keyboardShortcutHideControls();
    bool keyboardShortcutFreakout();
    bool keyboardShortcutResizeWindow();
    // This product works on no files.
    bool keyboardShortcutLoadFile() { return false; }
    bool keyboardShortcutLoadListedFile() { return false; }

private:
    using Shortcut = std::function<bool()>;
    QVMParameterControl* focused() const;
    void showNumberBuffer();

    EditorSession& session_;
    const QVMConfig* config_ = nullptr;
    QVMGenericUI* ui_ = nullptr;
    std::string numberBuffer_;
    std::map<char32_t, Shortcut> cmdShortcutMap_; // deliberately empty in this product
};

} // namespace QVM_NAMESPACE
