#include "editor/session/SettingsClipboard.h"

#include "description/Blanks.h"
#include "description/ParameterIDs.h"
#include "editor/session/MakerSite.h"
#include "platform/system/Log.h"
#include "platform/system/Workspace.h"
#include "settings/SettingsAddress.h"

#include <optional>
#include <variant>

namespace QVM_NAMESPACE {

SettingsClipboard::SettingsClipboard(const QVMConfig& config, EditorValues& values, SessionSurface& surface)
    : config_(config), values_(values), surface_(surface) {}

std::string SettingsClipboard::baseAddress() const {
    return settingsBaseAddress(makerSite, *config_.metadata);
}

std::string SettingsClipboard::address() const {
    std::vector<SettingsEntry> entries;
    for (const ShownValue& shown : surface_.shownValues()) {
        const QVMParameter& parameter = *config_.parameterForPid(shown.pid);
        // What is shared does not switch anything off.
        if (shown.pid == pidMasterOnOff || shown.value == parameter.initialValue) continue;
        entries.push_back({settingsKeyFor(parameter), shown.value});
    }
    return writeSettingsAddress(baseAddress(), entries);
}

bool SettingsClipboard::apply(const std::string& text) {
    const auto result = readSettingsAddress(text, config_);
    if (const auto* refusal = std::get_if<SettingsRefusal>(&result)) {
        refuse(refusal->text());
        return false;
    }
    const auto& address = std::get<SettingsAddress>(result);
    for (const ShownValue& shown : surface_.shownValues()) {
        const QVMParameter& parameter = *config_.parameterForPid(shown.pid);
        const SettingsEntry* entry = address.entryFor(parameter.minimalName);
        const bool isLeftAlone = entry && !entry->value;
        if (!isLeftAlone) values_.send(shown.pid, parameter.initialValue);
    }
    for (const SettingsEntry& entry : address.entries) {
        const QVMParameter* parameter = config_.parameterForCodename(entry.key);
        if (entry.value) values_.send(parameter->pid, settingsValueFor(*parameter, *entry.value));
    }
    return true;
}

void SettingsClipboard::copy() const {
    Workspace::current().setClipboardString(address());
}

bool SettingsClipboard::paste() {
    const std::optional<std::string> text = Workspace::current().clipboardString();
    if (text) return apply(*text);
    refuse("there is no text in the clipboard");
    return false;
}

bool SettingsClipboard::canPaste() const {
    const std::optional<std::string> text = Workspace::current().clipboardString();
    return text && withoutBlanks(*text).starts_with(productPage(*config_.metadata));
}

void SettingsClipboard::refuse(const std::string& why) {
    logLine("settings address refused: " + why);
    surface_.settingsWereRefused(why);
}

} // namespace QVM_NAMESPACE
