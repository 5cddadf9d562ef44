#include "unit/UnitPresets.h"

#include "description/Description.h"
#include "description/Presets.h"

namespace QVM_NAMESPACE {

UnitPresets::UnitPresets() {
    for (std::int64_t index = 0; const auto preset = PresetIndexToPresetValues(index); ++index) {
        Values& values = presets_.emplace_back();
        for (const auto& [pid, value] : ValuesThatPresetSets(*preset))
            values[pid] = GetParameter(pid)->reverseCastValue(value);
    }
}

const UnitPresets::Values* UnitPresets::values(std::int32_t index) const {
    const auto at = static_cast<std::size_t>(index);
    return index >= 0 && at < presets_.size() ? &presets_[at] : nullptr;
}

} // namespace QVM_NAMESPACE
