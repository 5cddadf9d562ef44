#include "unit/UnitSettings.h"

#include "description/Description.h"

#include <algorithm>

namespace QVM_NAMESPACE {

UnitSettings::UnitSettings(const SavedSettings& initial) {
    restore(initial);
}

SavedSettings UnitSettings::saved() const {
    const std::lock_guard lock(mutex_);
    return {*presentName(), abState_, *abSettings_, uiState_};
}

void UnitSettings::restore(const SavedSettings& settings) {
    const std::lock_guard lock(mutex_);
    namePreset(settings.presetName);
    abState_ = settings.abState;
    abSettings_ = std::make_shared<std::string>(settings.abSettings);
    uiState_ = settings.uiState;
    restoreCount_.fetch_add(1, std::memory_order_release);
}

void UnitSettings::namePreset(const std::string& name) {
    const std::vector<std::string>& names = GetPresets()->stringValues;
    const auto found = std::find(names.begin(), names.end(), name);
    presetName_ = std::make_shared<std::string>(name);
    preset_.store({found == names.end() ? -1 : static_cast<std::int32_t>(found - names.begin()), 0},
                  std::memory_order_relaxed);
}

UnitSettings::Text UnitSettings::presentName() const {
    const PresetNumber preset = preset_.load(std::memory_order_relaxed);
    if (preset.isNamedByIt == 0) return presetName_;
    return std::make_shared<std::string>(GetPresets()->stringValues[static_cast<std::size_t>(preset.index)]);
}

void UnitSettings::choosePreset(std::int32_t index) {
    preset_.store({index, 1}, std::memory_order_relaxed);
}

const std::string* UnitSettings::presetName() {
    const std::lock_guard lock(mutex_);
    handedOutPresetName_ = presentName();
    return handedOutPresetName_.get();
}

QVMABRecord UnitSettings::abRecord() {
    const std::lock_guard lock(mutex_);
    handedOutABSettings_ = abSettings_;
    return {abState_, 0, handedOutABSettings_.get()};
}

std::uint32_t UnitSettings::uiState() const {
    const std::lock_guard lock(mutex_);
    return uiState_;
}

std::string UnitSettings::bufferPath() const {
    const std::lock_guard lock(mutex_);
    return bufferPath_;
}

bool UnitSettings::interfacePreference() const {
    const std::lock_guard lock(mutex_);
    return interfacePreference_;
}

OSStatus UnitSettings::setPresetName(const std::string* name) {
    if (!fits(name)) return kAudioUnitErr_InvalidPropertyValue;
    const std::lock_guard lock(mutex_);
    namePreset(*name);
    return noErr;
}

OSStatus UnitSettings::setABRecord(const QVMABRecord& record) {
    if (record.settings && !fits(record.settings)) return kAudioUnitErr_InvalidPropertyValue;
    const std::lock_guard lock(mutex_);
    abState_ = record.state;
    abSettings_ = std::make_shared<std::string>(record.settings ? *record.settings : std::string());
    return noErr;
}

OSStatus UnitSettings::setBufferPath(const std::string* path) {
    if (!fits(path)) return kAudioUnitErr_InvalidPropertyValue;
    const std::lock_guard lock(mutex_);
    bufferPath_ = *path;
    return noErr;
}

void UnitSettings::setUIState(std::uint32_t state) {
    const std::lock_guard lock(mutex_);
    uiState_ = state;
}

void UnitSettings::setInterfacePreference(bool value) {
    const std::lock_guard lock(mutex_);
    interfacePreference_ = value;
}

} // namespace QVM_NAMESPACE
