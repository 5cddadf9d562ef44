#include "description/Presets.h"

#include "description/tables/ParameterTable.h"
#include "description/tables/PresetTable.h"

#include <array>

namespace QVM_NAMESPACE {

std::optional<std::vector<float>> PresetIndexToPresetValues(std::int64_t index) {
    const auto presets = tables::Presets();
    if (index < 0 || index >= static_cast<std::int64_t>(presets.size())) return std::nullopt;

    std::array<float, QVMParameterCount> byPid{};
    for (const tables::ParameterRow& parameter : tables::Parameters())
        byPid[parameter.pid] = parameter.initialValue;
    const auto& row = presets[static_cast<std::size_t>(index)];
    for (std::size_t i = 0; i < row.values.size(); ++i)
        byPid[tables::kPresetPids[i]] = row.values[i];

    std::vector<float> values;
    for (const tables::ParameterRow& parameter : tables::Parameters())
        if (!parameter.presetWildcard) values.push_back(byPid[parameter.pid]);
    return values;
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
