#include "tools/inspect/RecordJson.h"

#include "description/Presets.h"

#include <array>
#include <charconv>

namespace QVM_NAMESPACE {
namespace inspect {

namespace {

Json PointJson(const QVMPoint& point) {
    return Json::array({point.x, point.y});
}

Json EdgesJson(const std::vector<std::vector<QVMLineSegment>>& groups) {
    Json all = Json::array();
    for (const auto& group : groups) {
        Json segments = Json::array();
        for (const QVMLineSegment& segment : group) {
            segments.push_back(Json::array({PointJson(segment.from), PointJson(segment.to)}));
        }
        all.push_back(std::move(segments));
    }
    return all;
}

std::string_view AlignmentName(QVMLabelAlignment alignment) {
    switch (alignment) {
    case QVMLabelAlignment::left:
        return "left";
    case QVMLabelAlignment::center:
        return "center";
    case QVMLabelAlignment::right:
        return "right";
    }
    return {};
}

Json TaggedLabelsJson(const std::map<std::string, QVMTaggedLabel>& labels) {
    Json json;
    for (const auto& [text, label] : labels) {
        json[text] = {{"frame", RectJson(label.frame)}, {"alignment", AlignmentName(label.alignment)}};
    }
    return json;
}

Json SketchesJson(const std::vector<QVMClumpSketch>& sketches) {
    Json json = Json::array();
    for (const QVMClumpSketch& sketch : sketches) {
        json.push_back(
            {{"name", sketch.name}, {"parameter", sketch.parameter}, {"color", HexTextFromColor(sketch.color)}});
    }
    return json;
}

Json ConstraintsJson(const QVMLayoutConstraints& constraints) {
    Json json;
    if (constraints.frame) json["frame"] = RectJson(*constraints.frame);
    if (constraints.z) json["z"] = *constraints.z;
    return json;
}

} // namespace

Json NumberJson(float number) {
    std::array<char, 64> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    double shortest = 0;
    std::from_chars(digits.data(), end, shortest);
    return shortest;
}

Json NumbersJson(const std::vector<float>& numbers) {
    Json json = Json::array();
    for (const float number : numbers)
        json.push_back(NumberJson(number));
    return json;
}

Json RectJson(const QVMRect& rect) {
    return Json::array({rect.x, rect.y, rect.width, rect.height});
}

Json ClumpJson(const QVMClump& clump) {
    Json pids = Json::array();
    for (const QVMParameter* parameter : clump.parameters)
        pids.push_back(parameter->pid);
    return {
        {"cid", clump.cid},
        {"name", clump.name},
        {"codesafeName", clump.codesafeName},
        {"label", clump.label},
        {"labelString", clump.labelString},
        {"clumpType", clump.clumpType},
        {"parameters", std::move(pids)},
        {"inset", MapJson(clump.inset)},
        {"showInteriorBorders", clump.showInteriorBorders},
        {"layoutConstraints", ConstraintsJson(clump.layoutConstraints)},
        {"taggedLabels", TaggedLabelsJson(clump.taggedLabels)},
        {"frame", RectJson(clump.frame)},
        {"labelFrame", RectJson(clump.labelFrame)},
        {"edges", clump.edges},
        {"sketches", SketchesJson(clump.sketches)},
    };
}

Json MetadataJson(const QVMMetadata& metadata) {
    Json numericMeter;
    if (metadata.numericMeter) numericMeter["tooltip"] = metadata.numericMeter->tooltip;
    const QVMSketchSettings& sketch = metadata.sketch;
    return {
        {"catalog", metadata.catalog},
        {"pluginName", metadata.pluginName},
        {"pluginPackageName", metadata.pluginPackageName},
        {"pluginURLSlug", metadata.pluginURLSlug},
        {"version", metadata.version},
        {"versionHex", metadata.versionHex},
        {"versionInteger", metadata.versionInteger},
        {"sha", metadata.sha},
        {"commits", metadata.commits},
        {"logo", metadata.logo},
        {"width", NumberJson(metadata.width)},
        {"height", NumberJson(metadata.height)},
        {"color", HexTextFromColor(metadata.color)},
        {"hasAdvancedControls", metadata.hasAdvancedControls},
        {"hasGenericHQMode", metadata.hasGenericHQMode},
        {"genericHQParameter", metadata.genericHQParameter},
        {"canSidechain", metadata.canSidechain},
        {"numericMeter", std::move(numericMeter)},
        {"sketch",
         {{"parameterSketch", sketch.parameterSketch},
          {"color", HexTextFromColor(sketch.color)},
          {"inset", Json::array({sketch.inset.width, sketch.inset.height})}}},
        {"parameterOrder", metadata.parameterOrder},
        {"tabOrder", metadata.tabOrder},
        {"advBanner", metadata.advBanner},
        {"juniors", MapJson(metadata.juniors)},
        {"layoutEdges", EdgesJson(metadata.layoutEdges)},
    };
}

Json PresetsJson() {
    Json json = Json::array();
    for (const QVMPresetSection& section : GetPresetStructure().sections) {
        for (const QVMPresetEntry& preset : section.presets) {
            json.push_back({
                {"index", preset.presetID},
                {"name", preset.name},
                {"section", section.section},
                {"note", preset.note ? Json(*preset.note) : Json()},
                {"values", NumbersJson(*PresetIndexToPresetValues(preset.presetID))},
            });
        }
    }
    return json;
}

} // namespace inspect
} // namespace QVM_NAMESPACE
