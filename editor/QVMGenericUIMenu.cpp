// The context menu, and what it and the side column open in the browser.
#include "editor/MakerSite.h"
#include "editor/QVMGenericUI.h"
#include "editor/QVMKeyboardHandler.h"
#include "platform/Menu.h"
#include "platform/Workspace.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

MenuItem item(std::string title, std::function<void()> action, bool enabled = true) {
    MenuItem made;
    made.title = std::move(title);
    made.action = std::move(action);
    made.enabled = enabled;
    return made;
}

} // namespace

std::unique_ptr<Menu> QVMGenericUI::menuForEvent(const Event& event) {
    if (event.has(EventModifier::option) || event.has(EventModifier::command)) return nullptr;
    return contextMenu(controlAtWindowPoint(event.locationInWindow));
}

std::unique_ptr<Menu> QVMGenericUI::contextMenu(const QVMParameterControl* control) {
    lastRightClickedPid_.reset();
    auto menu = std::make_unique<Menu>();
    menu->title = config_->metadata->pluginName;
    if (control && control->parameter() && control->primaryControl()) addControlItems(*menu, *control);
    addSettingsItems(*menu);
    return menu;
}

void QVMGenericUI::addControlItems(Menu& menu, const QVMParameterControl& control) {
    const QVMParameter& parameter = *control.parameter();
    const std::uint32_t pid = parameter.pid;
    lastRightClickedPid_ = pid;
    menu.title = parameter.name;
    const auto reset = [](QVMParameterControl& it) { it.primaryControl()->contextMenuResetInitialValue(); };
    const auto read = [](QVMParameterControl& it) { it.primaryControl()->contextMenuRequestedDocumentation(); };
    const auto convert = [](QVMParameterControl& it) { it.primaryControl()->contextMenuDoStaticConversion(); };
    menu.items.push_back(item("Reset " + parameter.name + " to default", onControl(pid, reset),
                              control.floatValue() != parameter.initialValue));
    menu.items.push_back(item("Read about " + parameter.name, onControl(pid, read)));
    const float value = control.floatValue();
    if (value >= 0 && value < static_cast<float>(parameter.staticConversions.size()))
        menu.items.push_back(
            item(parameter.staticConversions[static_cast<std::size_t>(value)].text, onControl(pid, convert)));
    menu.items.push_back(MenuItem::separator());
}

void QVMGenericUI::addSettingsItems(Menu& menu) {
    const QVMMetadata& metadata = *config_->metadata;
    const std::string page = productPage(metadata);
    menu.items.push_back(item("Copy all settings as URL to Clipboard", onEditor(&QVMGenericUI::copySettings)));
    menu.items.push_back(item("Paste all settings from Clipboard", onEditor(&QVMGenericUI::pasteSettings),
                              keyboard_->canPasteSettings()));
    menu.items.push_back(item("Reset all settings to default", onEditor(&QVMGenericUI::resetAllSettings)));
    menu.items.push_back(MenuItem::separator());
    menu.items.push_back(item(std::string(makerName) + " " + metadata.pluginName + ", " + metadata.version,
                              [page] { Workspace::current().openUrl(page); }));
}

std::function<void()> QVMGenericUI::onControl(std::uint32_t pid, void (*action)(QVMParameterControl&)) const {
    return [this, pid, action, alive = std::weak_ptr<const bool>(alive_)] {
        if (alive.expired()) return;
        if (QVMParameterControl* control = parameterControlWithPid(pid)) action(*control);
    };
}

std::function<void()> QVMGenericUI::onEditor(void (QVMGenericUI::*action)()) {
    return [this, action, alive = std::weak_ptr<const bool>(alive_)] {
        if (!alive.expired()) (this->*action)();
    };
}

void QVMGenericUI::copySettings() {
    keyboard_->keyboardShortcutHandleCopy();
}

void QVMGenericUI::pasteSettings() {
    keyboard_->keyboardShortcutHandlePaste();
}

void QVMGenericUI::resetAllSettings() {
    constexpr std::uint32_t defaultPreset = 0;
    lastSavedPresetWasKeyed(defaultPreset);
    presetUpdated();
}

void QVMGenericUI::presetSaveTapped() {
    const std::string address = keyboard_->currentParametersURLEncoded();
    Workspace::current().openUrl(address);
    Workspace::current().setClipboardString(address);
}

void QVMGenericUI::openManualWithExtension(const std::string& extension) {
    Workspace::current().openUrl(keyboard_->baseURLForPluginVersion() + "/manual/" + extension);
}

// The manual has an anchor for each parameter.
void QVMGenericUI::parameterControlHasRequestedDocumentation(QVMParameterControl& control) {
    openManualWithExtension("#" + control.parameter()->codesafeName);
}

} // namespace QVM_NAMESPACE
