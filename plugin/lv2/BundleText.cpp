#include "plugin/lv2/BundleText.h"

#include "description/Description.h"
#include "plugin/HostRange.h"
#include "plugin/lv2/TurtleText.h"

#include <array>
#include <map>
#include <regex>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* prefixes = "@prefix doap:  <http://usefulinc.com/ns/doap#> .\n"
                                 "@prefix lv2:   <http://lv2plug.in/ns/lv2core#> .\n"
                                 "@prefix rdf:   <http://www.w3.org/1999/02/22-rdf-syntax-ns#> .\n"
                                 "@prefix rdfs:  <http://www.w3.org/2000/01/rdf-schema#> .\n"
                                 "@prefix units: <http://lv2plug.in/ns/extensions/units#> .\n\n";

constexpr const char* comment =
    "A tilt equaliser: turns the whole spectrum about a pivot between a low and a high corner frequency, with low and "
    "high cut filters of 6 to 48 dB per octave, loudness compensation and output metering. Frequencies are automated "
    "on a musical scale, so their values here are positions, named in hertz.";

// Frequencies are positions on a skewed scale for the host; these get a name, in hertz.
constexpr std::array<float, 12> namedFrequenciesHz = {10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000, 24000};

std::string unitText(const QVMParameter& parameter) {
    switch (parameter.unit) {
    case QVMUnitPercent:
        return "\tunits:unit units:pc";
    case QVMUnitDecibels:
        return "\tunits:unit units:db";
    case QVMUnitDecibelsPerOctave:
        return "\tunits:unit [ a units:Unit ; rdfs:label \"decibels per octave\" ; units:symbol \"dB/Oct\" ; "
               "units:render \"%f dB/Oct\" ]";
    default:
        return {};
    }
}

// The values that have a name, by host-domain value.
std::map<float, std::string> namedValues(const QVMParameter& parameter) {
    const HostRange range(parameter);
    std::map<float, std::string> names;
    for (int step = 0; step < range.steps; ++step) {
        const float value = range.minimum + static_cast<float>(step);
        names[value] = parameter.stringValues.empty() ? (step == 0 ? "Off" : "On") : hostTextForValue(parameter, value);
    }
    if (parameter.unit == QVMUnitHertz) {
        for (const float hz : namedFrequenciesHz) {
            if (hz < parameter.minValue) continue;
            const float value = parameter.reverseCastValue(hz);
            names[value] = hostTextForValue(parameter, value);
        }
    }
    for (const float end : {range.minimum, range.maximum}) {
        if (parameter.substituteStringsForValues.empty()) break;
        names[end] = hostTextForValue(parameter, end);
    }
    return names;
}

std::string scalePointsText(const std::map<float, std::string>& names) {
    std::string text;
    for (const auto& [value, name] : names) {
        text += text.empty() ? "\tlv2:scalePoint " : " , ";
        text += "[\n\t\trdfs:label " + turtleString(name) + " ;\n\t\trdf:value " + turtleFloat(value) + "\n\t]";
    }
    return text;
}

std::string parameterText(const QVMParameter& parameter, const std::string& pluginUri) {
    std::string text;
    for (const std::string& part : {unitText(parameter), scalePointsText(namedValues(parameter))}) {
        if (part.empty()) continue;
        text += (text.empty() ? "" : " ;\n") + part;
    }
    return text.empty() ? text : "<" + pluginUri + ":" + parameter.codesafeName + ">\n" + text + " .\n\n";
}

} // namespace

std::string lv2ExtraText(const std::string& pluginUri) {
    const std::string& product = GetMetadata()->pluginName;
    std::string text = prefixes;
    text += "<" + pluginUri +
            ">\n\ta lv2:Plugin , lv2:EQPlugin ;\n\tdoap:license <https://spdx.org/licenses/"
            "GPL-3.0-or-later> ;\n\tlv2:project <" +
            pluginUri + ":project> ;\n\trdfs:comment \"" + comment + "\" .\n\n";
    text += "<" + pluginUri + ":project>\n\ta doap:Project ;\n\tdoap:name \"" + product + "\" .\n\n";
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        text += parameterText(*GetParameter(pid), pluginUri);
    return text;
}

std::string repairedLv2Manifest(const std::string& text) {
    static const std::regex preset("<[^>]*>\\s*a pset:Preset ;(?:[^\\]]*)\\] \\.\\s*");
    static const std::regex reference("(rdfs:seeAlso <dsp\\.ttl>) \\.");
    const std::string without = std::regex_replace(text, preset, "");
    return std::regex_replace(without, reference, std::string("$1 , <") + lv2ExtraFile + "> .");
}

std::string repairedLv2Dsp(const std::string& text) {
    static const std::regex scalePoints("\\s*;\\s*lv2:scalePoint (?:\\[[^\\]]*\\](?:\\s*,\\s*)?)+");
    static const std::regex wholeLimit("(lv2:(?:default|minimum|maximum)) (-?[0-9]+)(?![0-9.])");
    return std::regex_replace(std::regex_replace(text, scalePoints, ""), wholeLimit, "$1 $2.0");
}

} // namespace QVM_NAMESPACE
