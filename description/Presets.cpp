#include "description/Presets.h"

#include "description/tables/ParameterTable.h"
#include "description/tables/PresetTable.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

std::span<const std::uint32_t> PresetPids() {
    static const std::vector<std::uint32_t> pids = [] {
        std::vector<std::uint32_t> listed;
        for (const tables::ParameterRow& parameter : tables::kParameters)
            if (!parameter.presetWildcard) listed.push_back(parameter.pid);
        return listed;
    }();
    return pids;
}

std::optional<std::vector<float>> PresetIndexToPresetValues(std::int64_t index) {
    const auto presets = tables::Presets();
    if (index < 0 || index >= static_cast<std::int64_t>(presets.size())) return std::nullopt;

    std::array<float, QVMParameterCount> byPid{};
    for (const tables::ParameterRow& parameter : tables::kParameters)
        byPid[parameter.pid] = parameter.initialValue;
    const auto& row = presets[static_cast<std::size_t>(index)];
    for (std::size_t i = 0; i < row.values.size(); ++i)
        byPid[tables::kPresetPids[i]] = row.values[i];

    std::vector<float> values;
    for (const std::uint32_t pid : PresetPids())
        values.push_back(byPid[pid]);
    return values;
}

std::vector<QVMPresetValue> ValuesThatPresetSets(std::span<const float> presetValues) {
    const std::span<const std::uint32_t> pids = PresetPids();
    std::vector<QVMPresetValue> set;
    for (std::size_t i = 0; i < std::min(pids.size(), presetValues.size()); ++i)
        if (!std::isnan(presetValues[i])) set.push_back({pids[i], presetValues[i]});
    return set;
}

const QVMPresetStructure& GetPresetStructure() {
    static const QVMPresetStructure structure = [] {
        QVMPresetStructure built;
        std::uint32_t index = 0;
        for (const tables::PresetRow& row : tables::Presets()) {
            if (built.sections.empty() || built.sections.back().section != row.section) {
                built.sections.push_back({std::string(row.section), {}});
            }
            QVMPresetEntry entry{std::string(row.name), index++, std::nullopt, {}};
            if (!row.note.empty()) entry.note = std::string(row.note);
            built.sections.back().presets.push_back(std::move(entry));
        }
        return built;
    }();
    return structure;
}

} // namespace QVM_NAMESPACE
