// The menu that the keyboard opens: the way to the buttons for who has no pointer.
#include "controls/QVMSymbolButton.h"
#include "editor/EditorLayout.h"
#include "editor/QVMGenericUI.h"
#include "editor/QVMKeyboardHandler.h"
#include "editor/QVMPresetBar.h"
#include "editor/QVMPresetsDrawer.h"
#include "platform/Menu.h"
#include "platform/Window.h"
#include "theme/QVMUITheme.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr std::uint32_t masterSwitchPid = 0;

enum class Tick : unsigned char { none, set };

MenuItem item(std::string title, std::function<void()> action, Tick tick = Tick::none) {
    MenuItem made;
    made.title = std::move(title);
    made.action = std::move(action);
    made.checked = tick == Tick::set;
    return made;
}

MenuItem enabledIf(bool enabled, MenuItem made) {
    made.enabled = enabled;
    return made;
}

Tick tickIf(bool isSet) {
    return isSet ? Tick::set : Tick::none;
}

// The key itself, or Shift and F10, which does the same on every desktop.
bool isMenuKey(const Event& event) {
    if (event.has(EventModifier::command) || event.has(EventModifier::option)) return false;
    return event.keyCode == Key::codeMenu || (event.keyCode == Key::codeF10 && event.has(EventModifier::shift));
}

} // namespace

bool QVMGenericUI::popUpMenuForKey(const Event& event) {
    if (!isMenuKey(event) || !window()) return false;
    const View& about = focusedControl_ ? static_cast<const View&>(*focusedControl_) : *this;
    const Rect frame = about.convertToWindow(about.bounds());
    window()->popUpMenu(menuForKeyboard(), {frame.minX(), focusedControl_ ? frame.maxY() : frame.minY()});
    return true;
}

std::unique_ptr<Menu> QVMGenericUI::menuForKeyboard() {
    auto menu = contextMenu(focusedControl_);
    menu->selectsFirst = true;
    MenuItem buttons;
    buttons.title = "Editor";
    buttons.submenu = buttonItems();
    menu->items.push_back(MenuItem::separator());
    menu->items.push_back(std::move(buttons));
    return menu;
}

std::vector<MenuItem> QVMGenericUI::buttonItems() {
    using Keyboard = QVMKeyboardHandler;
    const QVMUndoRedoStack& history = keyboard_->undoRedoStack();
    const std::string here = abState_ == 0 ? "A" : "B", there = abState_ == 0 ? "B" : "A";
    const bool isOn = getMemoizedPValueDirectly(masterSwitchPid) != 0;
    const bool isDark = &QVMUITheme::theme() == &QVMUITheme::dark();
    const auto frame = [this](std::int32_t altFrame) { return tickIf(altFrame_ == altFrame); };
    return {
        enabledIf(altFrame_ != QVMAltFrameCompact, // which has no room for the list
                  item("Presets", onKeyboard(&Keyboard::keyboardShortcutTogglePresetDrawer),
                       tickIf(presetDrawer_ && presetDrawer_->visible()))),
        enabledIf(history.canUndo(), item("Undo", onKeyboard(&Keyboard::keyboardShortcutUndo))),
        enabledIf(history.canRedo(), item("Redo", onKeyboard(&Keyboard::keyboardShortcutRedo))),
        MenuItem::separator(),
        item("Go to " + there, onEditor(&QVMGenericUI::flipAB)),
        item("Copy " + here + " to " + there, onEditor(&QVMGenericUI::copyAB)),
        MenuItem::separator(),
        item("Power", onKeyboard(&Keyboard::keyboardShortcutTogglePower), tickIf(isOn)),
        item("Advanced controls", onKeyboard(&Keyboard::keyboardShortcutToggleAdvancedDrawer),
             frame(QVMAltFrameDoubleWide)),
        item("Small window", onKeyboard(&Keyboard::keyboardShortcutResizeWindow), frame(QVMAltFrameCompact)),
        item("Dark theme", onKeyboard(&Keyboard::keyboardShortcutToggleTheme), tickIf(isDark)),
        MenuItem::separator(),
        item("Reset meter", onEditor(&QVMGenericUI::meterTapped)),
        item("Open all settings in browser", onEditor(&QVMGenericUI::presetSaveTapped)),
    };
}

void QVMGenericUI::flipAB() {
    if (presetBar_) presetBar_->ab().toggleBooleanControl();
}

void QVMGenericUI::copyAB() {
    if (presetBar_) presetBar_->ab().handleTap(presetBar_->ab().arrow());
}

std::function<void()> QVMGenericUI::onKeyboard(bool (QVMKeyboardHandler::*action)()) {
    return [this, action, alive = std::weak_ptr<const bool>(alive_)] {
        if (!alive.expired()) (keyboard_.get()->*action)();
    };
}

} // namespace QVM_NAMESPACE
