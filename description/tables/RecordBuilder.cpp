#include "description/tables/RecordBuilder.h"

#include "description/Presets.h"
#include "description/tables/ClumpTable.h"
#include "description/tables/ParameterExtrasTable.h"
#include "description/tables/ParameterLayoutTable.h"
#include "description/tables/ParameterTable.h"
#include "description/tables/PresetTable.h"

namespace QVM_NAMESPACE {
namespace tables {

namespace {

std::vector<std::string> Strings(std::span<const std::string_view> texts) {
    return {texts.begin(), texts.end()};
}

template <typename Number>
std::vector<Number> Numbers(std::span<const Number> numbers) {
    return {numbers.begin(), numbers.end()};
}

// The row of a sparse table for a pid, or null.
template <typename Row>
const Row* RowFor(std::span<const Row> rows, std::uint32_t pid) {
    for (const Row& row : rows) {
        if (row.pid == pid) return &row;
    }
    return nullptr;
}

void FillIdentity(QVMParameter& parameter, const ParameterIdentity& row) {
    parameter.pid = row.pid;
    parameter.name = row.name;
    parameter.codesafeName = row.codesafeName;
    parameter.minimalName = row.minimalName;
    parameter.clumpName = Clumps()[row.cid].codesafeName;
    parameter.unit = row.unit;
    parameter.unitSymbol = row.unitSymbol;
    parameter.minValue = row.minValue;
    parameter.maxValue = row.maxValue;
    parameter.initialValue = row.initialValue;
}

void FillControl(QVMParameter& parameter, const ParameterControlRow& row) {
    parameter.granularity = row.granularity;
    parameter.fineGranularity = row.fineGranularity;
    parameter.coarseGranularity = row.coarseGranularity;
    parameter.formatString = row.formatString;
    parameter.logarithmic = row.logarithmic;
    parameter.controlType = row.controlType;
    parameter.controlStyle = row.controlStyle;
    parameter.labelDisplay = row.labelDisplay;
    parameter.cueSymbolDisplay = row.cueSymbolDisplay;
    parameter.horizontal = row.horizontal;
    parameter.isDisplaced = row.isDisplaced;
    parameter.includeCrementers = row.includeCrementers;
    parameter.color = ColorFromHexText(row.color);
}

void FillExtras(QVMParameter& parameter, const ParameterExtras& row) {
    parameter.label = row.labelArtwork ? ImageText(*row.labelArtwork) : std::string(row.label);
    parameter.labelString = row.labelString;
    parameter.stringValues = Strings(row.stringValues);
    for (const Substitution& substitution : row.substitutions) {
        parameter.substituteStringsForValues.emplace(substitution.number, substitution.text);
    }
    parameter.coarseGranularityOptions = Numbers(row.coarseGranularityOptions);
    parameter.tickmarks = Numbers(row.tickmarks);
    parameter.minorTickmarks = Numbers(row.minorTickmarks);
    parameter.displayTickmarks = Numbers(row.displayTickmarks);
    parameter.cueSymbols = Strings(row.cueSymbols);
    parameter.cueSymbolPositions = Numbers(row.cueSymbolPositions);
    parameter.cueSymbolValues = Numbers(row.cueSymbolValues);
    for (const Dimming& dimming : row.dims)
        parameter.dims.emplace(dimming.value, Strings(dimming.codesafeNames));
    parameter.scope = row.scope;
    parameter.hidden = row.hidden;
    parameter.presetWildcard = row.presetWildcard;
    parameter.controlScale = row.controlScale;
}

void FillRange(QVMParameter& parameter, const RangeRow& row) {
    const bool low = row.end == RangeEnd::low;
    std::vector<QVMRangeSettings::Entry> entries;
    entries.emplace_back(low ? "low" : "high", true);
    entries.emplace_back("func", std::string(low ? "max" : "min"));
    entries.emplace_back("with-name", parameter.name);
    entries.emplace_back("factor", row.factor);
    entries.emplace_back("limit", row.limit);
    if (low) entries.emplace_back("high-has-label", false);
    entries.emplace_back("with-enum", "QVM" QVM_PRODUCT_CODE "Param_" + std::string(row.partner));
    parameter.range = QVMRangeSettings(std::move(entries));
    if (!low) parameter.rangeWith = row.partner;
}

void FillLayout(QVMParameter& parameter, const ParameterLayout& row) {
    parameter.frame = row.frame;
    parameter.labelFrame = row.labelFrame;
    parameter.controlFrame = row.controlFrame;
    parameter.numberOnlyPixelConstants = Numbers(row.numberOnlyPixelConstants);
}

} // namespace

std::string ImageText(const char* base64) {
    return "base64," + std::string(base64);
}

void FillParameter(QVMParameter& parameter, std::uint32_t pid) {
    FillIdentity(parameter, ParameterIdentities()[pid]);
    FillControl(parameter, ParameterControls()[pid]);
    parameter.automatesSmoothly = true;
    parameter.coarseGranularityShouldPreround = true;
    parameter.controlScale = 1;
    if (const auto* row = RowFor(ParameterExtrasRows(), pid)) FillExtras(parameter, *row);
    if (const auto* row = RowFor(RangeRows(), pid)) FillRange(parameter, *row);
    if (const auto* row = RowFor(ParameterLayouts(), pid)) FillLayout(parameter, *row);
}

void FillClump(QVMClump& clump, std::uint32_t cid) {
    const ClumpRow& row = Clumps()[cid];
    clump.cid = row.cid;
    clump.name = row.name;
    clump.codesafeName = row.codesafeName;
    clump.label = row.headingArtwork ? ImageText(*row.headingArtwork) : std::string(row.labelString);
    clump.labelString = row.labelString;
    clump.clumpType = row.clumpType;
    clump.showInteriorBorders = true;
    clump.frame = row.frame;
    clump.labelFrame = row.labelFrame;
    for (const TaggedLabelRow& label : row.taggedLabels) {
        clump.taggedLabels.emplace(label.text, QVMTaggedLabel{label.frame, label.alignment});
    }
    for (const SketchRow& sketch : row.sketches) {
        clump.sketches.push_back(
            {std::string(sketch.name), std::string(sketch.parameter), ColorFromHexText(sketch.color)});
    }
}

void FillPresets(QVMParameter& presets) {
    presets.name = "Presets";
    presets.codesafeName = "Presets";
    presets.label = "Presets";
    presets.labelString = "Presets";
    presets.minimalName = "p";
    presets.unit = QVMUnitIndexed;
    presets.controlType = QVMControlTypePresets;
    presets.maxValue = static_cast<float>(QVMPresetCount - 1);
    presets.granularity = 1;
    presets.fineGranularity = 1;
    presets.coarseGranularity = 1;
    presets.controlScale = 1;
    presets.formatString = "%1.0f";
    presets.includeCrementers = true;
    presets.horizontal = true;
    presets.labelDisplay = 2;
    presets.automatesSmoothly = true;
    presets.coarseGranularityShouldPreround = true;
    presets.color = ColorFromHexText("#333333");
    presets.numberOnlyPixelConstants = {120, 120, 120};
    for (const PresetRow& row : Presets())
        presets.stringValues.emplace_back(row.name);
}

} // namespace tables
} // namespace QVM_NAMESPACE
