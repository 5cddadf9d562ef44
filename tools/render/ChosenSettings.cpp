#include "tools/render/ChosenSettings.h"

#include "description/Description.h"
#include "description/NumberText.h"
#include "description/ValueMapping.h"
#include "program/NearestName.h"
#include "settings/SettingsAddress.h"
#include "unit/QVM0015_AudioUnit.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace QVM_NAMESPACE {
namespace render {

std::string ChosenSettings::choosePreset(const std::string& nameOrNumber) {
    const auto& names = GetPresets()->stringValues;
    const auto count = static_cast<int>(names.size());
    if (const std::optional<int> number = WholeNumberFromText<int>(nameOrNumber)) {
        if (*number < 1 || *number > count) {
            return "--preset takes a name or a number from 1 to " + std::to_string(count) + ", not \"" + nameOrNumber +
                   "\"";
        }
        presetIndex = *number - 1;
        return {};
    }
    const auto found = std::find(names.begin(), names.end(), nameOrNumber);
    if (found == names.end()) return unknownName("preset", nameOrNumber, names);
    presetIndex = static_cast<int>(found - names.begin());
    return {};
}

std::string ChosenSettings::chooseAddress(const std::string& text) {
    const bool isCutDown = withoutBlanks(text).starts_with("/?");
    const std::string whole =
        isCutDown ? settingsBaseAddress("https://localhost", *GetMetadata()) + std::string(withoutBlanks(text)) : text;
    const auto read = readSettingsAddress(whole, *QVMConfig::inlinedConfig());
    if (const auto* refusal = std::get_if<SettingsRefusal>(&read))
        return "cannot read the settings: " + refusal->text();
    address = whole;
    return {};
}

void ChosenSettings::applyTo(QVM0015_AudioUnit& unit) const {
    if (presetIndex) unit.choosePreset(*presetIndex);
    if (address.empty()) return;
    const auto config = QVMConfig::inlinedConfig();
    const auto read = readSettingsAddress(address, *config);
    const auto* accepted = std::get_if<SettingsAddress>(&read);
    if (!accepted) return;
    for (const SettingsEntry& entry : accepted->entries) {
        if (!entry.value) continue; // as it is
        const QVMParameter& parameter = *config->parameterForCodename(entry.key);
        const float shown = settingsValueFor(parameter, *entry.value);
        unit.setParameter(parameter.pid, kAudioUnitScope_Global, 0, ShownValueToHostValue(parameter.pid, shown), 0);
    }
}

std::string presetList() {
    std::ostringstream list;
    for (int number = 1; const std::string& name : GetPresets()->stringValues)
        list << std::setw(2) << number++ << "  " << name << '\n';
    return list.str();
}

} // namespace render
} // namespace QVM_NAMESPACE
