#include "plugin/lv2/BundleText.h"

#include "description/Description.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr const char* manifest = "<https://a.example/p>\n\ta lv2:Plugin ;\n\tlv2:binary <p.so> ;\n"
                                 "\trdfs:seeAlso <dsp.ttl> .\n\n"
                                 "<https://a.example/p:UI>\n\ta ui:X11UI ;\n\trdfs:seeAlso <ui.ttl> .\n\n"
                                 "<https://a.example/p:preset1>\n\ta pset:Preset ;\n"
                                 "\tlv2:appliesTo <https://a.example/p> ;\n\trdfs:label \"Default\" ;\n"
                                 "\tstate:state [ <https://a.example/p:Program> \"0\"^^xsd:int ; ] .\n\n";

TEST(Lv2Manifest, LosesThePresetAndNamesTheExtraFile) {
    const std::string repaired = repairedLv2Manifest(manifest);
    EXPECT_EQ(repaired.find("pset:Preset"), std::string::npos);
    EXPECT_EQ(repaired.find("Program"), std::string::npos);
    EXPECT_NE(repaired.find("rdfs:seeAlso <dsp.ttl> , <extra.ttl> ."), std::string::npos);
    EXPECT_NE(repaired.find("rdfs:seeAlso <ui.ttl> ."), std::string::npos);
}

TEST(Lv2Manifest, IsRepairedOnce) {
    const std::string repaired = repairedLv2Manifest(manifest);
    EXPECT_EQ(repairedLv2Manifest(repaired), repaired);
}

TEST(Lv2Dsp, LosesScalePointsOfTheWrongScaleAndKeepsTheRest) {
    const std::string text =
        "plug:Mode\n\ta lv2:Parameter ;\n\tlv2:default 0 ;\n\tlv2:minimum -3 ;\n\tlv2:maximum 1.5\t ;\n"
        "\tlv2:portProperty lv2:enumeration ;\n\tlv2:scalePoint [\n\t\trdfs:label \"A\" ;\n"
        "\t\trdf:value 0 ;\n\t], [\n\t\trdfs:label \"B\" ;\n\t\trdf:value 0.5 ;\n\t] .\n\nplug:Next\n";
    const std::string wanted = "plug:Mode\n\ta lv2:Parameter ;\n\tlv2:default 0.0 ;\n\tlv2:minimum -3.0 ;\n"
                               "\tlv2:maximum 1.5\t ;\n\tlv2:portProperty lv2:enumeration .\n\nplug:Next\n";
    EXPECT_EQ(repairedLv2Dsp(text), wanted);
    EXPECT_EQ(repairedLv2Dsp(wanted), wanted);
}

TEST(Lv2Extra, SaysWhatThePluginIs) {
    const std::string text = lv2ExtraText("https://a.example/p");
    for (const char* part : {"lv2:EQPlugin", "GPL-3.0-or-later", "lv2:project <https://a.example/p:project>",
                             "rdfs:comment", "doap:name \"Slantwise\""})
        EXPECT_NE(text.find(part), std::string::npos) << part;
}

TEST(Lv2Extra, GivesUnitsAndNamesOnTheParametersOwnScale) {
    const std::string text = lv2ExtraText("https://a.example/p");
    EXPECT_NE(text.find("<https://a.example/p:TiltGain>\n\tunits:unit units:db ."), std::string::npos);
    EXPECT_NE(text.find("rdfs:label \"Bass\" ;\n\t\trdf:value 3.0"), std::string::npos);
    EXPECT_NE(text.find("rdfs:label \"-Inf\" ;\n\t\trdf:value -96.0"), std::string::npos);
    EXPECT_NE(text.find("rdfs:label \"1.00 kHz\""), std::string::npos);
    EXPECT_NE(text.find("rdfs:label \"Off\" ;\n\t\trdf:value 24000.0"), std::string::npos);
}

TEST(Lv2Presets, AllFactoryPresetsAreThereInBanks) {
    const std::string uri = "https://a.example/p";
    const std::string text = lv2PresetsText(uri), entries = lv2PresetsManifestText(uri);
    for (const std::string& name : GetPresets()->stringValues) {
        const std::string label = "rdfs:label \"" + name + "\"";
        EXPECT_NE(text.find(label), std::string::npos) << name;
        EXPECT_NE(entries.find(label), std::string::npos) << name;
    }
    for (const char* part : {"<https://a.example/p:bank4>\n\ta pset:Bank ;\n\trdfs:label \"Speakers\"",
                             "pset:bank <https://a.example/p:bank3>", "Vintage 12\u201d guitar cab"})
        EXPECT_NE(text.find(part), std::string::npos) << part;
    EXPECT_NE(entries.find("rdfs:seeAlso <presets.ttl>"), std::string::npos);
}

TEST(Lv2Presets, EachHasItsNumberAndItsValuesButNotTheQualityMode) {
    const std::string text = lv2PresetsText("https://a.example/p");
    const std::size_t start = text.find("<https://a.example/p:preset23>");
    ASSERT_NE(start, std::string::npos);
    const std::string cellphone = text.substr(start);
    EXPECT_NE(cellphone.find("<https://a.example/p:Program> \"22\"^^xsd:int"), std::string::npos);
    EXPECT_NE(cellphone.find("<https://a.example/p:TiltGain> \"7.0\"^^xsd:float"), std::string::npos);
    EXPECT_EQ(text.find("HQMode"), std::string::npos);
}

TEST(Lv2Presets, OurOwnAreNotTakenForTheToolkits) {
    const std::string finished = repairedLv2Manifest(manifest) + lv2PresetsManifestText("https://a.example/p");
    EXPECT_EQ(repairedLv2Manifest(finished), finished);
}

} // namespace
} // namespace QVM_NAMESPACE
