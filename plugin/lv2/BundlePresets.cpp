// The factory presets in an LV2 bundle's text.
#include "description/Description.h"
#include "description/Presets.h"
#include "plugin/lv2/BundleText.h"
#include "plugin/lv2/Properties.h"
#include "plugin/lv2/TurtleText.h"

namespace QVM_NAMESPACE {

namespace {

constexpr const char* prefixes = "@prefix lv2:   <http://lv2plug.in/ns/lv2core#> .\n"
                                 "@prefix pset:  <http://lv2plug.in/ns/ext/presets#> .\n"
                                 "@prefix rdf:   <http://www.w3.org/1999/02/22-rdf-syntax-ns#> .\n"
                                 "@prefix rdfs:  <http://www.w3.org/2000/01/rdf-schema#> .\n"
                                 "@prefix state: <http://lv2plug.in/ns/ext/state#> .\n"
                                 "@prefix xsd:   <http://www.w3.org/2001/XMLSchema#> .\n\n";

std::string presetUri(const std::string& pluginUri, std::uint32_t index) {
    return "<" + pluginUri + ":preset" + std::to_string(index + 1) + ">";
}

std::string bankUri(const std::string& pluginUri, std::size_t section) {
    return "<" + pluginUri + ":bank" + std::to_string(section + 1) + ">";
}

std::string stateText(const std::string& pluginUri, std::uint32_t index) {
    std::string text = "\t\t<" + pluginUri + ":Program> \"" + std::to_string(index) + "\"^^xsd:int";
    for (const auto& [pid, value] : ValuesThatPresetSets(*PresetIndexToPresetValues(index))) {
        const QVMParameter& parameter = *GetParameter(pid);
        text.append(" ;\n\t\t<").append(pluginUri).append(":").append(propertyName(parameter));
        text.append("> \"").append(propertyNumberText(parameter, value)).append("\"^^xsd:");
        text.append(isWholeProperty(parameter) ? "int" : "float");
    }
    return text;
}

std::string presetText(const std::string& pluginUri, const QVMPresetEntry& preset, const std::string& bank) {
    std::string text = presetUri(pluginUri, preset.presetID) + "\n\ta pset:Preset ;\n\tlv2:appliesTo <" + pluginUri +
                       "> ;\n\tpset:bank " + bank + " ;\n\trdfs:label " + turtleString(preset.name) + " ;\n";
    if (preset.note) text += "\trdfs:comment " + turtleString(*preset.note) + " ;\n";
    return text + "\tstate:state [\n" + stateText(pluginUri, preset.presetID) + "\n\t] .\n\n";
}

} // namespace

std::string lv2PresetsText(const std::string& pluginUri) {
    std::string text = prefixes;
    text += "<" + pluginUri + ":Program>\n\ta rdf:Property ;\n\trdfs:label \"factory preset\" ;\n" +
            "\trdfs:comment \"The number of a factory preset, from 0.\" ;\n\trdfs:range xsd:int .\n\n";
    const std::vector<QVMPresetSection>& sections = GetPresetStructure().sections;
    for (std::size_t section = 0; section < sections.size(); ++section) {
        const std::string bank = bankUri(pluginUri, section);
        text += bank + "\n\ta pset:Bank ;\n\trdfs:label " + turtleString(sections[section].section) + " .\n\n";
        for (const QVMPresetEntry& preset : sections[section].presets)
            text += presetText(pluginUri, preset, bank);
    }
    return text;
}

std::string lv2PresetsManifestText(const std::string& pluginUri) {
    std::string text = "@prefix pset:  <http://lv2plug.in/ns/ext/presets#> .\n\n";
    for (const QVMPresetSection& section : GetPresetStructure().sections)
        for (const QVMPresetEntry& preset : section.presets)
            text += presetUri(pluginUri, preset.presetID) + "\n\ta pset:Preset ;\n\tlv2:appliesTo <" + pluginUri +
                    "> ;\n\trdfs:label " + turtleString(preset.name) + " ;\n\trdfs:seeAlso <" + lv2PresetsFile +
                    "> .\n\n";
    return text;
}

} // namespace QVM_NAMESPACE
