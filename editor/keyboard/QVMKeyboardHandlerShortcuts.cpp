// What buttons, menus and shortcuts ask for, passed on to whoever does it.
#include "controls/QVMParameterControl.h"
#include "description/ParameterIDs.h"
#include "editor/keyboard/KeyboardSurface.h"
#include "editor/keyboard/QVMKeyboardHandler.h"

namespace QVM_NAMESPACE {

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
    surface_.toggleDoubleWide();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutTogglePresetDrawer() {
    return surface_.togglePresetsDrawer();
}

bool QVMKeyboardHandler::keyboardShortcutToggleTheme() {
    surface_.toggleUITheme();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutTogglePower() {
    QVMParameterControl* power = surface_.parameterControlWithPid(pidMasterOnOff);
    return power && power->toggleBooleanControl();
}

bool QVMKeyboardHandler::keyboardShortcutRefreshInitialParameterValues() {
    surface_.resetInitialValues();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutResizeWindow() {
    surface_.toggleFrame();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutHideControls() {
    surface_.hideAllControls();
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutFreakout() {
    surface_.freakout();
    return true;
}

} // namespace QVM_NAMESPACE
