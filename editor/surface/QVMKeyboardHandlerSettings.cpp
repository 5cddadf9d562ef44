// Settings to the clipboard and back.
#include "controls/QVMParameterControl.h"
#include "editor/session/MakerSite.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMKeyboardHandler.h"
#include "platform/system/Log.h"
#include "platform/system/Workspace.h"
#include "settings/SettingsAddress.h"

namespace QVM_NAMESPACE {

namespace {

constexpr std::uint32_t masterSwitchPid = 0; // what is shared does not switch anything off

} // namespace

std::string QVMKeyboardHandler::baseURLForPluginVersion() const {
    return settingsBaseAddress(makerSite, *config_->metadata);
}

std::string QVMKeyboardHandler::currentParametersURLEncoded() const {
    std::vector<SettingsEntry> entries;
    for (const QVMParameterControl* control : ui_->parameterControls()) {
        const QVMParameter& parameter = *control->parameter();
        if (parameter.pid == masterSwitchPid || control->floatValue() == parameter.initialValue) continue;
        entries.push_back({settingsKeyFor(parameter), control->floatValue()});
    }
    return writeSettingsAddress(baseURLForPluginVersion(), entries);
}

void QVMKeyboardHandler::refuseSettings(const std::string& why) {
    logLine("settings address refused: " + why);
    ui_->showNotice("Not pasted", why);
}

bool QVMKeyboardHandler::applyURLEncodedPreset(const std::string& text) {
    const auto result = readSettingsAddress(text, *config_);
    if (const auto* refusal = std::get_if<SettingsRefusal>(&result)) {
        refuseSettings(refusal->text());
        return false;
    }
    const auto& address = std::get<SettingsAddress>(result);
    for (const QVMParameterControl* control : ui_->parameterControls()) {
        const QVMParameter& parameter = *control->parameter();
        const SettingsEntry* entry = address.entryFor(parameter.minimalName);
        const bool isLeftAlone = entry && !entry->value;
        if (!isLeftAlone) ui_->notifyParameterUpdatedTo(parameter.pid, parameter.initialValue);
    }
    for (const SettingsEntry& entry : address.entries) {
        const QVMParameter* parameter = config_->parameterForCodename(entry.key);
        if (entry.value) ui_->notifyParameterUpdatedTo(parameter->pid, settingsValueFor(*parameter, *entry.value));
    }
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutHandleCopy() {
    Workspace::current().setClipboardString(currentParametersURLEncoded());
    return true;
}

bool QVMKeyboardHandler::keyboardShortcutHandlePaste() {
    const std::optional<std::string> text = Workspace::current().clipboardString();
    if (text) return applyURLEncodedPreset(*text);
    refuseSettings("there is no text in the clipboard");
    return false;
}

bool QVMKeyboardHandler::canPasteSettings() const {
    const std::optional<std::string> text = Workspace::current().clipboardString();
    return text && withoutBlanks(*text).starts_with(productPage(*config_->metadata));
}

} // namespace QVM_NAMESPACE
