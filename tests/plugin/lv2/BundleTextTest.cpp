#include "plugin/lv2/BundleText.h"

#include "description/Description.h"
#include "plugin/lv2/TurtleStatements.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

constexpr const char* manifest = "@prefix lv2: <http://lv2plug.in/ns/lv2core#> .\n"
                                 "@prefix pset: <http://lv2plug.in/ns/ext/presets#> .\n"
                                 "@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .\n"
                                 "@prefix state: <http://lv2plug.in/ns/ext/state#> .\n"
                                 "@prefix ui: <http://lv2plug.in/ns/extensions/ui#> .\n"
                                 "@prefix xsd: <http://www.w3.org/2001/XMLSchema#> .\n\n"
                                 "<https://a.example/p>\n\ta lv2:Plugin ;\n\tlv2:binary <p.so> ;\n"
                                 "\trdfs:seeAlso <dsp.ttl> .\n\n"
                                 "<https://a.example/p:UI>\n\ta ui:X11UI ;\n\trdfs:seeAlso <ui.ttl> .\n\n"
                                 "<https://a.example/p:preset1>\n\ta pset:Preset ;\n"
                                 "\tlv2:appliesTo <https://a.example/p> ;\n\trdfs:label \"Default\" ;\n"
                                 "\tstate:state [ <https://a.example/p:Program> \"0\"^^xsd:int ; ] .\n\n";

// What a text says, a statement a line, whatever its layout.
std::vector<std::string> said(const std::string& text) {
    const auto turtle = readTurtle(text);
    if (!turtle) ADD_FAILURE() << "no Turtle:\n" << text;
    std::vector<std::string> lines;
    for (const TurtleStatement& s : turtle ? turtle->statements : std::vector<TurtleStatement>())
        lines.push_back(turtle->full(s.subject) + " " + turtle->full(s.predicate) + " " + turtle->full(s.object) + " " +
                        turtle->full(s.datatype));
    return lines;
}

TEST(Lv2Manifest, LosesThePresetAndNamesTheExtraFile) {
    const std::string repaired = repairedLv2Manifest(manifest).value();
    EXPECT_EQ(repaired.find("preset1"), std::string::npos);
    EXPECT_EQ(repaired.find("Program"), std::string::npos);
    const std::string plugin = "<https://a.example/p> a lv2:Plugin ; lv2:binary <p.so> ;";
    const std::string ui = " <https://a.example/p:UI> a ui:X11UI ; rdfs:seeAlso <ui.ttl> .";
    const std::string prefixes = std::string(manifest).substr(0, std::string(manifest).find("\n\n"));
    EXPECT_EQ(said(repaired), said(prefixes + plugin + " rdfs:seeAlso <dsp.ttl> , <extra.ttl> ." + ui));
}

TEST(Lv2Manifest, IsRepairedOnce) {
    const std::string repaired = repairedLv2Manifest(manifest).value();
    EXPECT_EQ(repairedLv2Manifest(repaired), repaired);
}

TEST(Lv2Manifest, IsRefusedWhereItIsNoTurtle) {
    EXPECT_EQ(repairedLv2Manifest("plug:Mode a lv2:Parameter"), std::nullopt);
    EXPECT_EQ(repairedLv2Dsp("plug:Mode a lv2:Parameter"), std::nullopt);
    EXPECT_EQ(repairedLv2Ui("plug:Mode a lv2:Parameter"), std::nullopt);
}

const std::string prefixes = "@prefix lv2: <http://lv2plug.in/ns/lv2core#> .\n@prefix plug: <https://a.example/p:> .\n"
                             "@prefix doap: <http://usefulinc.com/ns/doap#> .\n"
                             "@prefix opts: <http://lv2plug.in/ns/ext/options#> .\n"
                             "@prefix patch: <http://lv2plug.in/ns/ext/patch#> .\n"
                             "@prefix rdf: <http://www.w3.org/1999/02/22-rdf-syntax-ns#> .\n"
                             "@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .\n"
                             "@prefix ui: <http://lv2plug.in/ns/extensions/ui#> .\n";

TEST(Lv2Dsp, LosesTheParametersAndKeepsTheRest) {
    const std::string mode = "plug:Mode\n\ta lv2:Parameter ;\n\tlv2:default 0 ;\n\tlv2:scalePoint [\n\t\trdfs:label "
                             "\"A\" ;\n\t\trdf:value 0 ;\n\t], [\n\t\trdfs:label \"B\" ;\n\t\trdf:value 0.5 ;\n\t] .\n";
    const std::string plugin = "<https://a.example/p> a lv2:Plugin", lists =
                                                                         " ; patch:writable plug:Mode , plug:Gain ; "
                                                                         "patch:readable plug:Mode , plug:Gain .\n";
    const std::string rest = "plug:Next lv2:index 1 .\n";
    const std::string repaired = repairedLv2Dsp(prefixes + mode + plugin + lists + rest).value();
    EXPECT_EQ(said(repaired), said(prefixes + plugin + " .\n" + rest));
    EXPECT_EQ(repairedLv2Dsp(repaired), repaired);
}

// Only a project has them, says the vocabulary.
TEST(Lv2Dsp, GivesMaintainerAndReleaseToTheProject) {
    const std::string maintainer = "doap:maintainer [ doap:name \"N\" ]",
                      release = "doap:release [ doap:revision \"1\" ]";
    const std::string repaired = repairedLv2Dsp(prefixes + "<https://a.example/p> doap:name \"P\" ; " + maintainer +
                                                " ; " + release + " ; lv2:index 1 .")
                                     .value();
    const auto lines = said(repaired);
    EXPECT_EQ(std::ranges::count_if(lines,
                                    [](const std::string& line) {
                                        return line.starts_with(
                                            "https://a.example/p:project http://usefulinc.com/ns/doap#");
                                    }),
              2);
    EXPECT_EQ(said(repaired).back(), "https://a.example/p http://lv2plug.in/ns/lv2core#index 1 "
                                     "http://www.w3.org/2001/XMLSchema#integer");
    EXPECT_EQ(repairedLv2Dsp(repaired), repaired);
}

TEST(Lv2Dsp, SaysOfEachPortWhatItIsFor) {
    const std::string port = "<https://a.example/p> lv2:port [ lv2:index 0 ; lv2:symbol \"latency\"", end = " ] .";
    const std::string repaired = repairedLv2Dsp(prefixes + port + end).value();
    EXPECT_EQ(said(repaired), said(prefixes + port + " ; rdfs:comment \"The effect's latency in samples.\"" + end));
    EXPECT_EQ(repairedLv2Dsp(repaired), repaired);
}

TEST(Lv2Ui, LosesTheOptionThatNothingReads) {
    const std::string repaired =
        repairedLv2Ui(prefixes + "<https://a.example/p:UI> opts:supportedOption ui:scaleFactor , "
                                 "<http://lv2plug.in/ns/ext/parameters#sampleRate> .")
            .value();
    EXPECT_EQ(said(repaired), said(prefixes + "<https://a.example/p:UI> opts:supportedOption ui:scaleFactor ."));
}

TEST(Lv2Ui, LosesWhatIsNoInterfaceOrNoFeature) {
    const std::string text = "<https://a.example/p:UI> lv2:extensionData ui:idleInterface , opts:interface , "
                             "ui:noUserResize , ui:resize ; lv2:optionalFeature ui:noUserResize , opts:interface , "
                             "opts:options .";
    const std::string wanted =
        "<https://a.example/p:UI> lv2:extensionData ui:idleInterface , opts:interface , ui:resize ; "
        "lv2:optionalFeature ui:noUserResize , opts:options .";
    const std::string repaired = repairedLv2Ui(prefixes + text).value();
    EXPECT_EQ(said(repaired), said(prefixes + wanted));
    EXPECT_EQ(repairedLv2Ui(repaired), repaired);
}

// A greater version of the product is a greater one of the bundle, though the format has no major number.
TEST(Lv2Version, HasTheMajorNumberInTheMinorOne) {
    const std::string uri = "https://a.example/p", core = "http://lv2plug.in/ns/lv2core#";
    const std::string integer = " http://www.w3.org/2001/XMLSchema#integer";
    const auto number = [](int from, int to) {
        return std::stoi(std::string(QVM_VERSION_TEXT).substr(from, to - from));
    };
    const std::string version = QVM_VERSION_TEXT;
    const int first = static_cast<int>(version.find('.')), second = static_cast<int>(version.rfind('.'));
    const int minor = number(0, first) * 256 + number(first + 1, second);
    const int micro = number(second + 1, static_cast<int>(version.size()));
    EXPECT_EQ(said(lv2VersionText(uri)),
              (std::vector<std::string>{uri + " " + core + "minorVersion " + std::to_string(minor) + integer,
                                        uri + " " + core + "microVersion " + std::to_string(micro) + integer}));
}

TEST(Lv2Version, IsSaidInTheManifestAlone) {
    const std::string prefix = "@prefix lv2: <http://lv2plug.in/ns/lv2core#> .\n<https://a.example/p> a lv2:Plugin";
    EXPECT_EQ(said(repairedLv2Dsp(prefix + " ; lv2:minorVersion 0 ; lv2:microVersion 1 .").value()),
              said(prefix + " ."));
}

TEST(Lv2Extra, SaysWhatThePluginIs) {
    const std::string text = lv2ExtraText("https://a.example/p");
    for (const char* part : {"lv2:EQPlugin", "GPL-3.0-or-later", "lv2:project <https://a.example/p:project>",
                             "rdfs:comment", "doap:shortdesc \"", "doap:name \"Slantwise\""})
        EXPECT_NE(text.find(part), std::string::npos) << part;
}

// A host whose window the user may drag does not take it back when the editor gets smaller.
TEST(Lv2Extra, SaysThatTheEditorSetsItsOwnSize) {
    const std::string text = lv2ExtraText("https://a.example/p");
    EXPECT_NE(text.find("<https://a.example/p:UI>\n\tlv2:optionalFeature ui:noUserResize ."), std::string::npos);
}

TEST(Lv2Manifest, OurOwnPresetsAreNotTakenForTheToolkits) {
    const std::string finished = repairedLv2Manifest(manifest).value() + lv2PresetsManifestText("https://a.example/p");
    EXPECT_EQ(said(repairedLv2Manifest(finished).value()), said(finished));
}

} // namespace
} // namespace QVM_NAMESPACE
