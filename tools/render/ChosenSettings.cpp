#include "tools/render/ChosenSettings.h"

#include "description/Blanks.h"
#include "description/Description.h"
#include "description/NumberText.h"
#include "description/Presets.h"
#include "description/ValueMapping.h"
#include "presets/PresetByName.h"
#include "presets/PresetValues.h"
#include "program/NearestName.h"
#include "program/Wording.h"
#include "settings/SettingsAddress.h"
#include "unit/QVM0015_AudioUnit.h"

#include <iomanip>
#include <sstream>
#include <utility>

namespace QVM_NAMESPACE {
namespace render {

namespace {

void setShownValue(QVM0015_AudioUnit& unit, std::uint32_t pid, float shown) {
    unit.setParameter(pid, kAudioUnitScope_Global, 0, ShownValueToHostValue(pid, shown), 0);
}

} // namespace

std::string ChosenSettings::choosePreset(const std::string& nameOrNumber) {
    const auto count = static_cast<int>(GetPresets()->stringValues.size());
    if (const std::optional<int> number = WholeNumberFromText<int>(nameOrNumber)) {
        if (*number < 1 || *number > count) {
            return takesNot("--preset", "a name or a number from 1 to " + std::to_string(count), nameOrNumber);
        }
        presetIndex = *number - 1;
        own.reset();
        return {};
    }
    PresetByName found = presetByName(nameOrNumber);
    if (!found.problem.empty()) return found.problem;
    if (!found.factoryIndex && !found.own) return unknownName("preset", nameOrNumber, presetNames());
    presetIndex = found.factoryIndex;
    own = std::move(found.own);
    return {};
}

std::string ChosenSettings::chooseAddress(const std::string& text) {
    const bool isCutDown = withoutBlanks(text).starts_with("/?");
    const std::string whole =
        isCutDown ? settingsBaseAddress("https://localhost", *GetMetadata()) + std::string(withoutBlanks(text)) : text;
    const auto read = readSettingsAddress(whole, *QVMConfig::inlinedConfig());
    if (const auto* refusal = std::get_if<SettingsRefusal>(&read)) return cannotRead("the settings", refusal->text());
    address = whole;
    return {};
}

std::string ChosenSettings::presetName() const {
    if (presetIndex) return GetPresets()->stringValues[static_cast<std::size_t>(*presetIndex)];
    return own ? own->name : std::string();
}

void ChosenSettings::applyTo(QVM0015_AudioUnit& unit) const {
    const auto config = QVMConfig::inlinedConfig();
    if (presetIndex) unit.choosePreset(*presetIndex);
    if (own) {
        for (const auto& [pid, value] : ValuesThatPresetSets(presetValues(*own, *config)))
            setShownValue(unit, pid, value);
    }
    if (address.empty()) return;
    const auto read = readSettingsAddress(address, *config);
    const auto* accepted = std::get_if<SettingsAddress>(&read);
    if (!accepted) return;
    for (const SettingsEntry& entry : accepted->entries) {
        if (!entry.value) continue; // as it is
        const QVMParameter& parameter = *config->parameterForCodename(entry.key);
        setShownValue(unit, parameter.pid, settingsValueFor(parameter, *entry.value));
    }
}

std::string presetList() {
    std::ostringstream list;
    for (int number = 1; const std::string& name : GetPresets()->stringValues)
        list << std::setw(2) << number++ << "  " << name << '\n';
    for (const UserPresetEntry& entry : ownPresets())
        list << "    " << entry.preset.name << (entry.problem.empty() ? "" : " (" + entry.problem + ")") << '\n';
    return list.str();
}

} // namespace render
} // namespace QVM_NAMESPACE
