#include "description/NumberText.h"
#include "description/tables/ParameterTable.h"
#include "tools/inspect/RecordJson.h"

namespace QVM_NAMESPACE {
namespace inspect {

namespace {

// A list of fields that join one object.
using Fields = std::vector<std::pair<std::string, Json>>;

Json RangeJson(const QVMRangeSettings& range) {
    Json json;
    for (const auto& [key, value] : range.entries()) {
        if (const float* number = std::get_if<float>(&value)) {
            json[key] = NumberJson(*number);
        } else if (const bool* flag = std::get_if<bool>(&value)) {
            json[key] = *flag;
        } else {
            json[key] = std::get<std::string>(value);
        }
    }
    return json;
}

Json HierarchyJson(const std::vector<QVMHierarchyItem>& items) {
    Json json = Json::array();
    for (const QVMHierarchyItem& item : items) {
        json.push_back({{"name", item.name}, {"children", HierarchyJson(item.children)}});
    }
    return json;
}

Json LayoutRulesJson(const std::vector<QVMChannelLayoutRule>& rules) {
    Json json = Json::array();
    for (const QVMChannelLayoutRule& rule : rules) {
        json.push_back({{"map", rule.map ? Json(*rule.map) : Json()},
                        {"disabled", rule.disabled},
                        {"immutable", rule.immutable ? NumberJson(*rule.immutable) : Json()}});
    }
    return json;
}

Json ConversionsJson(const std::vector<QVMStaticConversion>& conversions) {
    Json json = Json::array();
    for (const QVMStaticConversion& conversion : conversions)
        json.push_back({{"text", conversion.text}});
    return json;
}

Json DimsJson(const std::map<float, std::vector<std::string>>& dims) {
    Json json;
    for (const auto& [value, names] : dims)
        json[ShortestText(value)] = names;
    return json;
}

Fields IdentityFields(const QVMParameter& parameter) {
    const tables::ParameterRow* const row = tables::ParameterRowFor(parameter.pid);
    return {
        {"pid", parameter.pid},
        {"name", parameter.name},
        {"codesafeName", parameter.codesafeName},
        {"minimalName", parameter.minimalName},
        {"purpose", row ? Json(row->purpose) : Json()},
        {"label", parameter.label},
        {"labelString", parameter.labelString},
        {"clumpName", parameter.clumpName},
        {"clump", parameter.clump ? Json(parameter.clump->codesafeName) : Json()},
        {"chanIn", parameter.chanIn},
        {"chanOut", parameter.chanOut},
        {"C_codename", parameter.C_codename()},
    };
}

Fields BehaviourFields(const QVMParameter& parameter) {
    return {
        {"minValue", NumberJson(parameter.minValue)},
        {"maxValue", NumberJson(parameter.maxValue)},
        {"initialValue", NumberJson(parameter.initialValue)},
        {"unit", parameter.unit},
        {"unitSymbol", parameter.unitSymbol},
        {"logarithmic", parameter.logarithmic},
        {"automatesSmoothly", parameter.automatesSmoothly},
        {"presetWildcard", parameter.presetWildcard},
        {"hidden", parameter.hidden},
        {"meteringOnly", parameter.meteringOnly},
        {"granularity", NumberJson(parameter.granularity)},
        {"fineGranularity", NumberJson(parameter.fineGranularity)},
        {"coarseGranularity", NumberJson(parameter.coarseGranularity)},
        {"coarseGranularityOptions", NumbersJson(parameter.coarseGranularityOptions)},
        {"coarseGranularityShouldPreround", parameter.coarseGranularityShouldPreround},
        {"channelRestrictions", MapJson(parameter.channelRestrictions)},
        {"staticConversions", ConversionsJson(parameter.staticConversions)},
    };
}

Fields ControlFields(const QVMParameter& parameter) {
    return {
        {"controlType", parameter.controlType},
        {"controlStyle", parameter.controlStyle},
        {"controlScale", NumberJson(parameter.controlScale)},
        {"controlFocusShape", parameter.controlFocusShape},
        {"scope", parameter.scope},
        {"labelDisplay", parameter.labelDisplay},
        {"isDisplaced", parameter.isDisplaced},
        {"horizontal", parameter.horizontal},
        {"highlightInsetX", NumberJson(parameter.highlightInsetX)},
        {"includeCrementers", parameter.includeCrementers},
        {"formatString", parameter.formatString},
        {"stringValues", parameter.stringValues},
        {"substituteStringsForValues", MapJson(parameter.substituteStringsForValues)},
        {"textEntryNumbers", parameter.textEntryNumbers ? Json(*parameter.textEntryNumbers) : Json()},
        {"hierarchy", HierarchyJson(parameter.hierarchy)},
        {"flatHierarchy", parameter.flatHierarchy},
        {"tickmarks", NumbersJson(parameter.tickmarks)},
        {"minorTickmarks", NumbersJson(parameter.minorTickmarks)},
        {"displayTickmarks", NumbersJson(parameter.displayTickmarks)},
        {"cueSymbols", parameter.cueSymbols},
        {"cueSymbolPositions", NumbersJson(parameter.cueSymbolPositions)},
        {"cueSymbolValues", NumbersJson(parameter.cueSymbolValues)},
        {"cueSymbolDisplay", parameter.cueSymbolDisplay},
        {"numberOnlyPixelConstants", parameter.numberOnlyPixelConstants},
        {"color", HexTextFromColor(parameter.color)},
    };
}

Fields RelationFields(const QVMParameter& parameter) {
    return {
        {"channelLayoutRules", LayoutRulesJson(parameter.channelLayoutRules)},
        {"dims", DimsJson(parameter.dims)},
        {"disables", parameter.disables},
        {"hides", parameter.hides},
        {"tap", parameter.tap},
        {"rangeWith", parameter.rangeWith},
        {"range", RangeJson(parameter.range)},
        {"links", parameter.links},
        {"frame", RectJson(parameter.frame)},
        {"labelFrame", RectJson(parameter.labelFrame)},
        {"controlFrame", RectJson(parameter.controlFrame)},
    };
}

} // namespace

Json ParameterJson(const QVMParameter& parameter) {
    Json json = Json::object();
    for (const auto& fields :
         {IdentityFields(parameter), BehaviourFields(parameter), ControlFields(parameter), RelationFields(parameter)}) {
        for (const auto& [key, value] : fields)
            json[key] = value;
    }
    return json;
}

} // namespace inspect
} // namespace QVM_NAMESPACE
