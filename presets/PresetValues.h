// What a preset of the user's sets. No state: any thread.
#pragma once

#include "presets/PresetText.h"

#include <vector>

namespace QVM_NAMESPACE {

// One value for each of PresetPids(), as the user sees it. What the preset does not name is at its initial value; no
// number leaves its parameter as it is.
std::vector<float> presetValues(const UserPreset& preset, const QVMConfig& config);

} // namespace QVM_NAMESPACE
