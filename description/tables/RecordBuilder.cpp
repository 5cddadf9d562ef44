#include "description/tables/RecordBuilder.h"

#include "description/NumberText.h"
#include "description/Presets.h"
#include "description/tables/ClumpTable.h"
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

void FillIdentity(QVMParameter& parameter, const ParameterRow& row) {
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
    parameter.granularity = row.steps.normal;
    parameter.fineGranularity = row.steps.fine;
    parameter.coarseGranularity = row.steps.coarse;
    parameter.coarseGranularityOptions = Numbers(row.coarseGranularityOptions);
    parameter.formatString = row.decimals == 0 ? "%1.0f" : "%0." + std::to_string(row.decimals) + "f";
    parameter.logarithmic = row.logarithmic();
    parameter.hidden = row.hidden;
    parameter.presetWildcard = row.presetWildcard;
}

void FillControl(QVMParameter& parameter, const ParameterRow& row) {
    parameter.controlType = row.controlType;
    parameter.controlStyle = row.controlStyle;
    parameter.controlScale = row.controlScale;
    parameter.scope = row.scope;
    parameter.labelDisplay = row.labelDisplay;
    parameter.cueSymbolDisplay = row.cueSymbolDisplay;
    parameter.horizontal = row.horizontal;
    parameter.isDisplaced = row.isDisplaced;
    parameter.includeCrementers = row.includeCrementers;
    parameter.color = ColorFromHexText(row.color);
    parameter.label = row.labelArtwork ? ImageText(*row.labelArtwork) : std::string(row.label);
    parameter.labelString = row.labelString;
    parameter.frame = row.frame;
    parameter.labelFrame = row.labelFrame;
    parameter.controlFrame = row.controlFrame;
    parameter.numberOnlyPixelConstants = Numbers(row.numberOnlyPixelConstants);
}

void FillValues(QVMParameter& parameter, const ParameterRow& row) {
    parameter.stringValues = Strings(row.stringValues);
    for (const Exception& exception : row.exceptions)
        parameter.substituteStringsForValues.emplace(FixedText(exception.value, 1), exception.text);
    parameter.tickmarks = Numbers(row.tickmarks);
    parameter.minorTickmarks = Numbers(row.minorTickmarks);
    parameter.displayTickmarks = Numbers(row.displayTickmarks);
    parameter.cueSymbols = Strings(row.cueSymbols);
    parameter.cueSymbolPositions = Numbers(row.cueSymbolPositions);
    parameter.cueSymbolValues = Numbers(row.cueSymbolValues);
    for (const Dimming& dimming : row.dims)
        parameter.dims.emplace(dimming.value, Strings(dimming.codesafeNames));
}

// One end of a range: it keeps an octave from its partner, and from where the partner would have no octave left.
void FillRange(QVMParameter& parameter, const ParameterRow& row) {
    const bool low = row.end == RangeEnd::low;
    const char* const partner = kParameters[*row.partner].codesafeName;
    std::vector<QVMRangeSettings::Entry> entries;
    entries.emplace_back(low ? "low" : "high", true);
    entries.emplace_back("func", std::string(low ? "max" : "min"));
    entries.emplace_back("with-name", parameter.name);
    entries.emplace_back("factor", low ? kOctave : 1 / kOctave);
    entries.emplace_back("limit", low ? row.maxValue / kOctave : row.minValue * kOctave);
    if (low) entries.emplace_back("high-has-label", false);
    entries.emplace_back("with-enum", "QVM" QVM_PRODUCT_CODE "Param_" + std::string(partner));
    parameter.range = QVMRangeSettings(std::move(entries));
    if (!low) parameter.rangeWith = partner;
}

} // namespace

std::string ImageText(const char* base64) {
    return "base64," + std::string(base64);
}

void FillParameter(QVMParameter& parameter, std::uint32_t pid) {
    const ParameterRow& row = kParameters[pid];
    FillIdentity(parameter, row);
    FillControl(parameter, row);
    FillValues(parameter, row);
    if (row.partner) FillRange(parameter, row);
    parameter.automatesSmoothly = true;
    parameter.coarseGranularityShouldPreround = true;
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
