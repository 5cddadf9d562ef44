// The factory presets in an LV2 bundle's text.
#include "description/Description.h"
#include "plugin/lv2/BundleText.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

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

TEST(Lv2Presets, SayFrequenciesInHertzAndSwitchesInWholeNumbers) {
    const std::string text = lv2PresetsText("https://a.example/p");
    const std::string first = text.substr(0, text.find("<https://a.example/p:preset2>"));
    for (const char* part : {"<https://a.example/p:TiltRangeLowHz> \"20.0\"^^xsd:float",
                             "<https://a.example/p:FilterRangeHighHz> \"24000.0\"^^xsd:float",
                             "<https://a.example/p:MasterOnOff> \"1\"^^xsd:int"})
        EXPECT_NE(first.find(part), std::string::npos) << part;
    EXPECT_EQ(text.find(":TiltRangeLow>"), std::string::npos) << "the former name";
}

} // namespace
} // namespace QVM_NAMESPACE
