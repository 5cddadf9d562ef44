// Settings of the product for the reference of the response.
#pragma once

#include "ReferenceResponse.h"
#include "description/Description.h"

namespace QVM_NAMESPACE {

inline reference::Settings initialSettings() {
    reference::Settings settings{};
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        settings[pid] = GetParameter(pid)->initialValue;
    return settings;
}

// A factory preset, which must exist, over the initial values.
inline reference::Settings presetSettings(std::uint32_t index) {
    reference::Settings settings = initialSettings();
    const std::vector<float> values = PresetIndexToPresetValues(index).value();
    std::size_t next = 0;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        if (!GetParameter(pid)->presetWildcard) settings[pid] = values.at(next++);
    }
    return settings;
}

} // namespace QVM_NAMESPACE
