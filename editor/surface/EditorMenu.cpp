#include "editor/surface/EditorMenu.h"

#include "controls/QVMSymbolButton.h"
#include "description/ParameterIDs.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/session/MakerSite.h"
#include "editor/session/ModesWithoutControl.h"
#include "editor/surface/DesktopRequests.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/EditorMenuItem.h"
#include "editor/surface/KeysDrawer.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "editor/surface/SizeMenu.h"
#include "editor/surface/SpectrumMenu.h"
#include "editor/surface/UserPresetItems.h"
#include "theme/QVMUITheme.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr std::uint32_t defaultPreset = 0;

void addControlItems(Menu& menu, QVMGenericUI& ui, QVMParameterControl& control) {
    const QVMParameter& parameter = *control.parameter();
    const float value = control.floatValue();
    const auto tell = [&](void (QVMFloatControl::*action)()) {
        return onEditor(ui, [&control, action](QVMGenericUI&) { (control.primaryControl()->*action)(); });
    };
    menu.title = parameter.name;
    menu.items.push_back(menuItem("Reset " + parameter.name + " to default",
                                  tell(&QVMFloatControl::contextMenuResetInitialValue),
                                  value != parameter.initialValue));
    menu.items.push_back(
        menuItem("Read about " + parameter.name, tell(&QVMFloatControl::contextMenuRequestedDocumentation)));
    if (value >= 0 && value < static_cast<float>(parameter.staticConversions.size()))
        menu.items.push_back(menuItem(parameter.staticConversions[static_cast<std::size_t>(value)].text,
                                      tell(&QVMFloatControl::contextMenuDoStaticConversion)));
    menu.items.push_back(MenuItem::separator());
}

// A submenu of the values, the present one ticked.
MenuItem modeItem(QVMGenericUI& ui, const QVMParameter& mode) {
    std::vector<MenuItem> values;
    for (std::size_t i = 0; i < mode.stringValues.size(); ++i) {
        const float value = mode.minValue + static_cast<float>(i);
        const auto choose = [value, pid = mode.pid](QVMGenericUI& editor) {
            editor.chooseValueForParameter(value, pid);
        };
        values.push_back(ticked(ui.getMemoizedPValueDirectly(mode.pid) == value,
                                menuItem(mode.stringValues[i], onEditor(ui, choose))));
    }
    return submenu(mode.name, std::move(values));
}

void addSettingsItems(Menu& menu, QVMGenericUI& ui) {
    const auto paste = [](QVMGenericUI& editor) { editor.session().settings().paste(); };
    const auto reset = [](QVMGenericUI& editor) {
        editor.lastSavedPresetWasKeyed(defaultPreset);
        editor.presetUpdated();
    };
    menu.items.push_back(menuItem("Copy all settings as URL to Clipboard", onEditor(ui, copySettings)));
    menu.items.push_back(
        menuItem("Paste all settings from Clipboard", onEditor(ui, paste), ui.session().settings().canPaste()));
    menu.items.push_back(menuItem("Reset all settings to default", onEditor(ui, reset)));
}

// An item that does what the keyboard handler has an operation for.
MenuItem operation(QVMGenericUI& ui, std::string title, bool (QVMKeyboardHandler::*action)(), bool enabled = true) {
    return menuItem(std::move(title), onEditor(ui, [action](QVMGenericUI& editor) { (editor.keyboard().*action)(); }),
                    enabled);
}

std::vector<MenuItem> buttonItems(QVMGenericUI& ui) {
    using Keyboard = QVMKeyboardHandler;
    const QVMUndoRedoStack& history = ui.session().history().stack();
    const std::string here = ui.abState() == 0 ? "A" : "B", there = ui.abState() == 0 ? "B" : "A";
    const QVMPresetsDrawer* const presets = ui.presetDrawer();
    const auto flip = [](QVMGenericUI& editor) {
        if (editor.presetBar()) editor.presetBar()->ab().toggleBooleanControl();
    };
    const auto copy = [](QVMGenericUI& editor) {
        if (editor.presetBar()) editor.presetBar()->ab().handleTap(editor.presetBar()->ab().arrow());
    };
    std::vector<MenuItem> items;
    const auto add = [&items](MenuItem made) { items.push_back(std::move(made)); };
    // The small window has no room for a drawer.
    const bool hasDrawers = ui.altFrame() != QVMAltFrameCompact;
    if (hasDrawers)
        add(ticked(presets && presets->visible(),
                   operation(ui, "Presets", &Keyboard::keyboardShortcutTogglePresetDrawer)));
    add(operation(ui, "Undo", &Keyboard::keyboardShortcutUndo, history.canUndo()));
    add(operation(ui, "Redo", &Keyboard::keyboardShortcutRedo, history.canRedo()));
    add(MenuItem::separator());
    add(menuItem("Go to " + there, onEditor(ui, flip)));
    add(menuItem("Copy " + here + " to " + there, onEditor(ui, copy)));
    add(MenuItem::separator());
    add(ticked(ui.getMemoizedPValueDirectly(pidMasterOnOff) != 0,
               operation(ui, "Power", &Keyboard::keyboardShortcutTogglePower)));
    if (hasDrawers)
        add(ticked(ui.altFrame() == QVMAltFrameDoubleWide,
                   operation(ui, "Advanced controls", &Keyboard::keyboardShortcutToggleAdvancedDrawer)));
    add(ticked(!hasDrawers, operation(ui, "Small window", &Keyboard::keyboardShortcutResizeWindow)));
    add(ticked(QVMUITheme::isDark(), operation(ui, "Dark theme", &Keyboard::keyboardShortcutToggleTheme)));
    add(MenuItem::separator());
    add(ticked(!ui.sketches().areHidden(),
               menuItem("Curve and meter", onEditor(ui, &QVMGenericUI::toggleSketchVisibility))));
    ui.config().enumerateParametersWithBlock([&](QVMParameter& parameter, QVMClump&) {
        if (isModeWithoutControl(parameter)) add(modeItem(ui, parameter));
    });
    add(menuItem("Reset meter", onEditor(ui, &QVMGenericUI::meterTapped)));
    add(menuItem("Open all settings in browser", onEditor(ui, &QVMGenericUI::presetSaveTapped)));
    if (hasDrawers) add(ticked(areKeysShown(ui), menuItem("Keys and gestures", onEditor(ui, toggleKeysDrawer))));
    return items;
}

} // namespace

std::unique_ptr<Menu> makeEditorMenu(QVMGenericUI& ui, QVMParameterControl* control, const QVMClump* clump) {
    const QVMMetadata& metadata = *ui.config().metadata;
    auto menu = std::make_unique<Menu>();
    menu->title = metadata.pluginName;
    if (control) addControlItems(*menu, ui, *control);
    const std::vector<const QVMParameter*> modes = modesWithoutControl(clump);
    for (const QVMParameter* mode : modes)
        menu->items.push_back(modeItem(ui, *mode));
    if (!modes.empty()) menu->items.push_back(MenuItem::separator());
    addSettingsItems(*menu, ui);
    if (const auto presets = userPresetItems(ui); !presets.empty()) {
        menu->items.push_back(MenuItem::separator());
        menu->items.insert(menu->items.end(), presets.begin(), presets.end());
    }
    menu->items.push_back(MenuItem::separator());
    for (MenuItem& size : sizeItems(ui))
        menu->items.push_back(std::move(size));
    for (MenuItem& spectrum : spectrumItems(ui))
        menu->items.push_back(std::move(spectrum));
    menu->items.push_back(MenuItem::separator());
    menu->items.push_back(
        menuItem(std::string(makerName) + " " + metadata.pluginName + ", " + metadata.version,
                 onEditor(ui, [page = productPage(metadata)](QVMGenericUI& editor) { openPage(editor, page); })));
    menu->items.push_back(MenuItem::separator());
    menu->items.push_back(submenu("Editor", buttonItems(ui)));
    return menu;
}

} // namespace QVM_NAMESPACE
