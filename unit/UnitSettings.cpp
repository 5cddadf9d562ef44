#include "unit/UnitSettings.h"

namespace QVM_NAMESPACE {

UnitSettings::UnitSettings(const SavedSettings& initial) {
    restore(initial);
}

SavedSettings UnitSettings::saved() const {
    const std::lock_guard lock(mutex_);
    return {*presetName_, abState_, *abSettings_, uiState_};
}

void UnitSettings::restore(const SavedSettings& settings) {
    const std::lock_guard lock(mutex_);
    presetName_ = std::make_shared<std::string>(settings.presetName);
    abState_ = settings.abState;
    abSettings_ = std::make_shared<std::string>(settings.abSettings);
    uiState_ = settings.uiState;
}

const std::string* UnitSettings::presetName() {
    const std::lock_guard lock(mutex_);
    handedOutPresetName_ = presetName_;
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
    presetName_ = std::make_shared<std::string>(*name);
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
