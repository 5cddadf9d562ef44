#include "plugin/lv2/BundleText.h"

#include "description/Description.h"
#include "plugin/lv2/TurtleStatements.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* prefixes = "@prefix atom:   <http://lv2plug.in/ns/ext/atom#> .\n"
                                 "@prefix doap:   <http://usefulinc.com/ns/doap#> .\n"
                                 "@prefix lv2:    <http://lv2plug.in/ns/lv2core#> .\n"
                                 "@prefix patch:  <http://lv2plug.in/ns/ext/patch#> .\n"
                                 "@prefix pg:     <http://lv2plug.in/ns/ext/port-groups#> .\n"
                                 "@prefix pprops: <http://lv2plug.in/ns/ext/port-props#> .\n"
                                 "@prefix rdf:    <http://www.w3.org/1999/02/22-rdf-syntax-ns#> .\n"
                                 "@prefix rdfs:   <http://www.w3.org/2000/01/rdf-schema#> .\n"
                                 "@prefix ui:     <http://lv2plug.in/ns/extensions/ui#> .\n"
                                 "@prefix units:  <http://lv2plug.in/ns/extensions/units#> .\n\n";

constexpr const char* comment =
    "A tilt equaliser: turns the whole spectrum about a pivot between a low and a high corner frequency, with low and "
    "high cut filters of 6 to 48 dB per octave, loudness compensation and output metering.";

constexpr const char* shortDescription = "Turns the spectrum about a pivot, with low and high cut filters";

#define LV2_CORE "http://lv2plug.in/ns/lv2core#"
constexpr const char* lv2Parameter = LV2_CORE "Parameter";
constexpr const char* lv2Symbol = LV2_CORE "symbol";
// What the manifest or the extra file says of the plug-in.
const std::set<std::string> lv2Replaced = {"http://lv2plug.in/ns/ext/patch#writable",
                                           "http://lv2plug.in/ns/ext/patch#readable", LV2_CORE "minorVersion",
                                           LV2_CORE "microVersion"};
// What the toolkit says of the editor and is not so: a feature among its interfaces, the other way round, and an option
// that nothing reads.
const std::set<std::pair<std::string, std::string>> lv2Misplaced = {
    {LV2_CORE "extensionData", "http://lv2plug.in/ns/extensions/ui#noUserResize"},
    {LV2_CORE "optionalFeature", "http://lv2plug.in/ns/ext/options#interface"},
    {"http://lv2plug.in/ns/ext/options#supportedOption", "http://lv2plug.in/ns/ext/parameters#sampleRate"}};
#undef LV2_CORE
constexpr const char* rdfType = "http://www.w3.org/1999/02/22-rdf-syntax-ns#type";
constexpr const char* stateState = "http://lv2plug.in/ns/ext/state#state";
constexpr const char* seeAlso = "http://www.w3.org/2000/01/rdf-schema#seeAlso";
constexpr const char* rdfsComment = "http://www.w3.org/2000/01/rdf-schema#comment";
// A project has these, and a plug-in has none.
const std::set<std::string> ofProject = {"http://usefulinc.com/ns/doap#maintainer",
                                         "http://usefulinc.com/ns/doap#release"};

// What each port is for, by symbol.
const std::map<std::string, const char*> portComments = {
    {"audio_in_1", "The left channel before the effect."},
    {"audio_in_2", "The right channel before the effect."},
    {"audio_out_1", "The left channel behind the effect."},
    {"audio_out_2", "The right channel behind the effect."},
    {"in", "Messages that set parameters or ask for them."},
    {"out", "Messages with the parameters' values, and that the session has changed."},
    {"latency", "The effect's latency in samples."},
    {"freeWheeling", "Whether the host renders faster than it plays."},
    {"enabled", "Whether the effect is in the way; if not, the audio passes unchanged."},
};

std::string projectOf(const std::string& pluginUri) {
    return pluginUri + ":project";
}

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

void commentOnPorts(TurtleText& dsp) {
    auto& statements = dsp.statements;
    for (std::size_t i = 0; i < statements.size(); ++i) {
        if (statements[i].subject.kind != TurtleTerm::Kind::blank || dsp.full(statements[i].predicate) != lv2Symbol)
            continue;
        const auto found = portComments.find(statements[i].object.text);
        if (found == portComments.end()) continue;
        const auto isComment = [&](const TurtleStatement& statement) {
            return statement.subject == statements[i].subject && dsp.full(statement.predicate) == rdfsComment;
        };
        if (std::ranges::any_of(statements, isComment)) continue;
        TurtleStatement said = statements[i];
        said.predicate = {TurtleTerm::Kind::uri, rdfsComment};
        said.object.text = found->second;
        statements.insert(statements.begin() + static_cast<std::ptrdiff_t>(i) + 1, said);
    }
}

} // namespace

std::string lv2ExtraText(const std::string& pluginUri) {
    const std::string& product = GetMetadata()->pluginName;
    std::string text = prefixes;
    text += "<" + pluginUri +
            ">\n\ta lv2:Plugin , lv2:EQPlugin ;\n\tdoap:license <https://spdx.org/licenses/"
            "GPL-3.0-or-later> ;\n\tlv2:project <" +
            projectOf(pluginUri) + "> ;\n\tdoap:shortdesc \"" + shortDescription + "\" ;\n\trdfs:comment \"" + comment +
            "\" .\n\n";
    text += "<" + projectOf(pluginUri) + ">\n\ta doap:Project ;\n\tdoap:name \"" + product + "\" .\n\n";
    // The editor sets its own size, and its interface takes one of the host's. A host whose window the user may drag
    // does not take it back when the editor gets smaller.
    text += "<" + pluginUri + ":UI>\n\tlv2:optionalFeature ui:noUserResize .\n\n";
    return text + lv2ParametersText(pluginUri);
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
    std::set<std::string> parameters;
    for (const TurtleStatement& statement : dsp->statements)
        if (dsp->full(statement.predicate) == rdfType && dsp->full(statement.object) == lv2Parameter)
            parameters.insert(statement.subject.text);
    dsp->erase([&](const TurtleStatement& statement) {
        return parameters.contains(statement.subject.text) || lv2Replaced.contains(dsp->full(statement.predicate));
    });
    for (TurtleStatement& statement : dsp->statements)
        if (ofProject.contains(dsp->full(statement.predicate)) && !statement.subject.text.ends_with(projectOf({})))
            statement.subject.text = projectOf(statement.subject.text);
    commentOnPorts(*dsp);
    return writeTurtle(*dsp);
}

std::optional<std::string> repairedLv2Ui(const std::string& text) {
    std::optional<TurtleText> ui = readTurtle(text);
    if (!ui) return {};
    ui->erase([&](const TurtleStatement& statement) {
        return lv2Misplaced.contains({ui->full(statement.predicate), ui->full(statement.object)});
    });
    return writeTurtle(*ui);
}

} // namespace QVM_NAMESPACE
