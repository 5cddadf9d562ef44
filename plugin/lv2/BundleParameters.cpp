// The parameters in an LV2 bundle's text.
#include "description/Description.h"
#include "description/NumberText.h"
#include "description/QVMClump.h"
#include "description/tables/ParameterTable.h"
#include "plugin/HostRange.h"
#include "plugin/lv2/BundleText.h"
#include "plugin/lv2/Properties.h"
#include "plugin/lv2/TurtleText.h"

#include <algorithm>
#include <functional>
#include <map>

namespace QVM_NAMESPACE {

namespace {

// The format allows a short name this much.
constexpr std::size_t shortNameLength = 16;

std::string groupName(const QVMClump& clump) {
    return clump.codesafeName + "Group";
}

// Without the word that the group says already, where the whole name is too long; otherwise none.
std::string shortName(const QVMParameter& parameter) {
    if (parameter.name.size() <= shortNameLength) return {};
    const std::string behind = parameter.name.substr(parameter.name.find(' ') + 1);
    return behind.size() <= shortNameLength ? behind : parameter.minimalName;
}

std::string unitText(const QVMParameter& parameter) {
    switch (parameter.unit) {
    case QVMUnitHertz:
        return "units:hz";
    case QVMUnitPercent:
        return "units:pc";
    case QVMUnitDecibels:
        return "units:db";
    case QVMUnitDecibelsPerOctave:
        return "[ a units:Unit ; rdfs:label \"decibels per octave\" ; units:symbol \"dB/Oct\" ; "
               "units:render \"%f dB/Oct\" ]";
    default:
        return {};
    }
}

std::string portPropertyText(const QVMParameter& parameter) {
    const int steps = HostRange(parameter).steps;
    if (steps == 2) return "lv2:enumeration , lv2:integer , lv2:toggled";
    if (steps > 2) return "lv2:enumeration , lv2:integer";
    return parameter.logarithmic ? "pprops:logarithmic" : "";
}

std::map<float, std::string> namedValues(const QVMParameter& parameter) {
    const HostRange range(parameter);
    std::map<float, std::string> names;
    for (int step = 0; step < range.steps; ++step) {
        const float value = range.minimum + static_cast<float>(step);
        names[value] = parameter.stringValues.empty() ? (step == 0 ? "Off" : "On") : hostTextForValue(parameter, value);
    }
    for (const auto& [value, name] : parameter.substituteStringsForValues)
        if (const auto number = NumberAtStart<float>(value)) names[number->value] = name;
    return names;
}

std::string scalePointText(const QVMParameter& parameter) {
    std::string text;
    for (const auto& [value, name] : namedValues(parameter)) {
        text.append(text.empty() ? "" : " , ").append("[\n\t\trdfs:label ").append(turtleString(name));
        text.append(" ;\n\t\trdf:value ").append(propertyNumberText(parameter, value)).append("\n\t]");
    }
    return text;
}

std::string parameterText(const QVMParameter& parameter, const std::string& pluginUri) {
    const HostRange range(parameter);
    const auto number = [&](float value) { return propertyNumberText(parameter, value); };
    const float initial = isWholeProperty(parameter) ? parameter.initialValue
                                                     : std::clamp(parameter.initialValue, range.minimum, range.maximum);
    // The words for groups, names and kinds of numbers are those of ports, and hosts look for them here as well.
    std::string text = "<" + pluginUri + ":" + propertyName(parameter) + ">\n\ta lv2:Parameter , lv2:Port";
    const auto say = [&text](const char* predicate, const std::string& object) {
        if (!object.empty()) text.append(" ;\n\t").append(predicate).append(" ").append(object);
    };
    say("rdfs:label", turtleString(parameter.name));
    say("lv2:name", turtleString(parameter.name));
    const std::string brief = shortName(parameter);
    if (!brief.empty()) say("lv2:shortName", turtleString(brief));
    say("lv2:symbol", turtleString(propertyName(parameter)));
    say("rdfs:comment", turtleString(tables::kParameters[parameter.pid].purpose));
    if (parameter.clump->clumpType != QVMClumpTypeMaster)
        say("pg:group", "<" + pluginUri + ":" + groupName(*parameter.clump) + ">");
    say("rdfs:range", isWholeProperty(parameter) ? "atom:Int" : "atom:Float");
    say("lv2:default", number(initial));
    say("lv2:minimum", number(range.minimum));
    say("lv2:maximum", number(range.maximum));
    say("lv2:portProperty", portPropertyText(parameter));
    say("units:unit", unitText(parameter));
    say("lv2:scalePoint", scalePointText(parameter));
    return text + " .\n\n";
}

} // namespace

std::string propertyNumberText(const QVMParameter& parameter, float value) {
    return isWholeProperty(parameter) ? std::to_string(static_cast<int>(value)) : turtleFloat(value);
}

std::string lv2ParametersText(const std::string& pluginUri) {
    std::string text, list;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        list += (pid == 0 ? "\n\t\t<" : " ,\n\t\t<") + pluginUri + ":" + propertyName(*GetParameter(pid)) + ">";
        text += parameterText(*GetParameter(pid), pluginUri);
    }
    for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid) {
        const QVMClump& clump = *GetClump(cid);
        if (clump.clumpType == QVMClumpTypeMaster) continue;
        text += "<" + pluginUri + ":" + groupName(clump) + ">\n\ta pg:Group ;\n\tlv2:name " + turtleString(clump.name) +
                " ;\n\tlv2:symbol " + turtleString(groupName(clump)) + " .\n\n";
    }
    return "<" + pluginUri + ">\n\tpatch:writable" + list + " ;\n\tpatch:readable" + list + " .\n\n" + text;
}

} // namespace QVM_NAMESPACE
