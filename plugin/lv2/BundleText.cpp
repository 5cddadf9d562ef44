#include "plugin/lv2/BundleText.h"

#include "description/Description.h"
#include "plugin/HostRange.h"
#include "plugin/lv2/TurtleStatements.h"
#include "plugin/lv2/TurtleText.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* prefixes = "@prefix doap:  <http://usefulinc.com/ns/doap#> .\n"
                                 "@prefix lv2:   <http://lv2plug.in/ns/lv2core#> .\n"
                                 "@prefix rdf:   <http://www.w3.org/1999/02/22-rdf-syntax-ns#> .\n"
                                 "@prefix rdfs:  <http://www.w3.org/2000/01/rdf-schema#> .\n"
                                 "@prefix ui:    <http://lv2plug.in/ns/extensions/ui#> .\n"
                                 "@prefix units: <http://lv2plug.in/ns/extensions/units#> .\n\n";

constexpr const char* comment =
    "A tilt equaliser: turns the whole spectrum about a pivot between a low and a high corner frequency, with low and "
    "high cut filters of 6 to 48 dB per octave, loudness compensation and output metering. Frequencies are automated "
    "on a musical scale, so their values here are positions, named in hertz.";

constexpr const char* shortDescription = "Turns the spectrum about a pivot, with low and high cut filters";

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

// What the toolkit's statements are about.
#define LV2_CORE "http://lv2plug.in/ns/lv2core#"
const std::set<std::string> lv2Limits = {LV2_CORE "default", LV2_CORE "minimum", LV2_CORE "maximum"};
// What the toolkit says of the plug-in and the manifest or the extra file says better.
const std::set<std::string> lv2Replaced = {LV2_CORE "scalePoint", LV2_CORE "minorVersion", LV2_CORE "microVersion"};
#undef LV2_CORE
constexpr const char* stateState = "http://lv2plug.in/ns/ext/state#state";
constexpr const char* seeAlso = "http://www.w3.org/2000/01/rdf-schema#seeAlso";
constexpr const char* xsdInteger = "http://www.w3.org/2001/XMLSchema#integer";
constexpr const char* xsdDecimal = "http://www.w3.org/2001/XMLSchema#decimal";

// Whoever is described in dsp.ttl is so in the extra file.
void referToExtraFile(TurtleText& manifest) {
    auto& statements = manifest.statements;
    const auto refersTo = [&](const char* file) {
        return std::ranges::find_if(statements, [&, file](const TurtleStatement& statement) {
            return manifest.full(statement.predicate) == seeAlso && statement.object.text == file;
        });
    };
    const auto found = refersTo("dsp.ttl");
    if (found == statements.end() || refersTo(lv2ExtraFile) != statements.end()) return;
    TurtleStatement reference = *found;
    reference.object.text = lv2ExtraFile;
    statements.insert(found + 1, reference);
}

} // namespace

std::string lv2ExtraText(const std::string& pluginUri) {
    const std::string& product = GetMetadata()->pluginName;
    std::string text = prefixes;
    text += "<" + pluginUri +
            ">\n\ta lv2:Plugin , lv2:EQPlugin ;\n\tdoap:license <https://spdx.org/licenses/"
            "GPL-3.0-or-later> ;\n\tlv2:project <" +
            pluginUri + ":project> ;\n\tdoap:shortdesc \"" + shortDescription + "\" ;\n\trdfs:comment \"" + comment +
            "\" .\n\n";
    text += "<" + pluginUri + ":project>\n\ta doap:Project ;\n\tdoap:name \"" + product + "\" .\n\n";
    // The toolkit says so as well, in a file on the editor alone, which hosts need not read before they make its
    // window.
    text += "<" + pluginUri + ":UI>\n\tlv2:optionalFeature ui:noUserResize .\n\n";
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        text += parameterText(*GetParameter(pid), pluginUri);
    return text;
}

std::string lv2VersionText(const std::string& pluginUri) {
    constexpr int minor = QVM_VERSION_INTEGER / 256, micro = QVM_VERSION_INTEGER % 256;
    return "@prefix lv2:   <http://lv2plug.in/ns/lv2core#> .\n\n<" + pluginUri + ">\n\tlv2:minorVersion " +
           std::to_string(minor) + " ;\n\tlv2:microVersion " + std::to_string(micro) + " .\n\n";
}

std::optional<std::string> repairedLv2Manifest(const std::string& text) {
    std::optional<TurtleText> manifest = readTurtle(text);
    if (!manifest) return {};
    // A preset of ours says what it holds in a file of its own.
    std::set<std::string> presets;
    for (const TurtleStatement& statement : manifest->statements)
        if (manifest->full(statement.predicate) == stateState) presets.insert(statement.subject.text);
    manifest->erase([&](const TurtleStatement& statement) { return presets.contains(statement.subject.text); });
    referToExtraFile(*manifest);
    return writeTurtle(*manifest);
}

std::optional<std::string> repairedLv2Dsp(const std::string& text) {
    std::optional<TurtleText> dsp = readTurtle(text);
    if (!dsp) return {};
    dsp->erase([&](const TurtleStatement& statement) { return lv2Replaced.contains(dsp->full(statement.predicate)); });
    for (TurtleStatement& statement : dsp->statements) {
        if (!lv2Limits.contains(dsp->full(statement.predicate))) continue;
        if (dsp->full(statement.datatype) != xsdInteger) continue;
        statement.object.text += ".0";
        statement.datatype.text = xsdDecimal;
    }
    return writeTurtle(*dsp);
}

} // namespace QVM_NAMESPACE
