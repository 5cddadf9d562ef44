// The parameters in an LV2 bundle's text.
#include "description/Description.h"
#include "plugin/lv2/BundleText.h"
#include "plugin/lv2/Properties.h"

#include <gtest/gtest.h>

#include <set>

namespace QVM_NAMESPACE {
namespace {

// What stands about one property.
std::string about(const std::string& property) {
    static const std::string text = lv2ParametersText("https://a.example/p");
    const std::size_t start = text.find("\n<https://a.example/p:" + property + ">\n");
    if (start == std::string::npos) return {};
    return text.substr(start, text.find(" .\n\n", start) - start);
}

void expectIn(const std::string& text, std::initializer_list<const char*> parts) {
    for (const char* const part : parts)
        EXPECT_NE(text.find(part), std::string::npos) << part << " is not in" << text;
}

TEST(Lv2Parameters, FrequenciesAreInHertz) {
    expectIn(about("TiltRangeLowHz"),
             {"a lv2:Parameter", "rdfs:label \"Tilt Range Low\"", "rdfs:range atom:Float", "lv2:default 20.0",
              "lv2:minimum 10.0", "lv2:maximum 24000.0", "lv2:portProperty pprops:logarithmic", "units:unit units:hz"});
    EXPECT_EQ(about("TiltRangeLow"), "") << "the former name";
    expectIn(about("FilterRangeHighHz"), {"rdfs:label \"Off\" ;\n\t\trdf:value 24000.0"});
}

TEST(Lv2Parameters, SwitchesAndModesAreWholeNumbersWithNames) {
    expectIn(about("HQMode"), {"rdfs:range atom:Int", "lv2:default 0 ", "lv2:maximum 1 ", "lv2:toggled",
                               "rdfs:label \"On\" ;\n\t\trdf:value 1\n"});
    expectIn(about("TiltLoudnessMode"), {"rdfs:range atom:Int", "lv2:enumeration , lv2:integer ;", "lv2:maximum 3 ",
                                         "rdfs:label \"Bass\" ;\n\t\trdf:value 3\n"});
    expectIn(about("TiltRangeLink"), {"lv2:minimum 0 ", "lv2:maximum 1 ", "rdfs:label \"Off\""});
}

TEST(Lv2Parameters, GainsAreInDecibelsAndSilenceHasAName) {
    expectIn(about("TiltGain"), {"units:unit units:db", "lv2:minimum -18.0"});
    expectIn(about("OutputGain"), {"units:unit units:db", "rdfs:label \"-Inf\" ;\n\t\trdf:value -96.0"});
    EXPECT_EQ(about("OutputGain").find("lv2:enumeration"), std::string::npos) << "the names are not all there is";
}

TEST(Lv2Parameters, EachHasACommentOfItsOwnAndAGroupThatIsThere) {
    std::set<std::string> comments;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const std::string text = about(propertyName(*GetParameter(pid)));
        const std::size_t start = text.find("rdfs:comment \"");
        ASSERT_NE(start, std::string::npos) << pid;
        comments.insert(text.substr(start, text.find('\n', start) - start));
        if (pid != pidMasterOnOff)
            expectIn(text, {("pg:group <https://a.example/p:" + GetParameter(pid)->clumpName + "Group>").c_str()});
    }
    EXPECT_EQ(comments.size(), QVMParameterCount);
    for (const char* const group : {"TiltGroup", "OutputGroup", "FilterGroup", "AdvFilterGroup"})
        expectIn(about(group), {"a pg:Group", (std::string("lv2:symbol \"") + group + "\"").c_str()});
}

TEST(Lv2Parameters, ALongNameHasAShortOne) {
    expectIn(about("FilterResonanceLow"), {"lv2:shortName \"Resonance Low\""});
    expectIn(about("FilterResonanceLinkRatio"), {"lv2:shortName \"frelnkr\""});
    EXPECT_EQ(about("TiltGain").find("lv2:shortName"), std::string::npos);
}

TEST(Lv2Parameters, AllCanBeReadAndWritten) {
    const std::string text = lv2ParametersText("https://a.example/p");
    const std::size_t readable = text.find("patch:readable"), end = text.find(" .\n");
    ASSERT_LT(readable, end);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const std::string name = "<https://a.example/p:" + propertyName(*GetParameter(pid)) + ">";
        EXPECT_LT(text.find(name), readable) << name;
        EXPECT_LT(text.find(name, readable), end) << name;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
