#include "description/Description.h"
#include "tools/inspect/RunTool.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace QVM_NAMESPACE {
namespace inspect {
namespace {

using Json = nlohmann::json;
using testing::UnorderedElementsAreArray;

const Json& Described() {
    static const Json json = Json::parse(RunTool({"description"}).out);
    return json;
}

std::vector<std::string> Keys(const Json& object) {
    std::vector<std::string> keys;
    for (const auto& item : object.items())
        keys.push_back(item.key());
    return keys;
}

TEST(DescriptionCommand, PrintsOneObjectOfFourParts) {
    const RunResult result = RunTool({"description"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(Keys(Json::parse(result.out)),
                UnorderedElementsAreArray({"metadata", "clumps", "parameters", "presets"}));
}

TEST(DescriptionCommand, ParametersHaveEveryField) {
    const std::vector<std::string> fields = {"pid",
                                             "name",
                                             "codesafeName",
                                             "minimalName",
                                             "purpose",
                                             "label",
                                             "labelString",
                                             "clumpName",
                                             "clump",
                                             "chanIn",
                                             "chanOut",
                                             "C_codename",
                                             "minValue",
                                             "maxValue",
                                             "initialValue",
                                             "unit",
                                             "unitSymbol",
                                             "logarithmic",
                                             "automatesSmoothly",
                                             "presetWildcard",
                                             "hidden",
                                             "meteringOnly",
                                             "granularity",
                                             "fineGranularity",
                                             "coarseGranularity",
                                             "coarseGranularityOptions",
                                             "coarseGranularityShouldPreround",
                                             "channelRestrictions",
                                             "staticConversions",
                                             "controlType",
                                             "controlStyle",
                                             "controlScale",
                                             "controlFocusShape",
                                             "scope",
                                             "labelDisplay",
                                             "isDisplaced",
                                             "horizontal",
                                             "highlightInsetX",
                                             "includeCrementers",
                                             "formatString",
                                             "stringValues",
                                             "substituteStringsForValues",
                                             "textEntryNumbers",
                                             "hierarchy",
                                             "flatHierarchy",
                                             "tickmarks",
                                             "minorTickmarks",
                                             "displayTickmarks",
                                             "cueSymbols",
                                             "cueSymbolPositions",
                                             "cueSymbolValues",
                                             "cueSymbolDisplay",
                                             "numberOnlyPixelConstants",
                                             "color",
                                             "channelLayoutRules",
                                             "dims",
                                             "disables",
                                             "hides",
                                             "tap",
                                             "rangeWith",
                                             "range",
                                             "links",
                                             "frame",
                                             "labelFrame",
                                             "controlFrame"};
    ASSERT_EQ(Described()["parameters"].size(), 24u);
    for (const Json& parameter : Described()["parameters"])
        EXPECT_THAT(Keys(parameter), UnorderedElementsAreArray(fields));
}

TEST(DescriptionCommand, ParametersHaveTheirValues) {
    const Json& low = Described()["parameters"][9];
    EXPECT_EQ(low["pid"], 9);
    EXPECT_EQ(low["clump"], "Filter");
    EXPECT_EQ(low["color"], "#877879");
    EXPECT_EQ(low["fineGranularity"], 0.1); // not 0.10000000149
    EXPECT_EQ(low["coarseGranularityOptions"].size(), 32u);
    EXPECT_EQ(low["substituteStringsForValues"], (Json{{"4.0", "Off"}}));
    EXPECT_EQ(low["dims"], (Json{{"4", {"FilterSlopeLow", "FilterResonanceLow"}}}));
    EXPECT_EQ(low["range"]["limit"], 12000);
    EXPECT_EQ(low["range"]["low"], true);
    EXPECT_EQ(low["range"]["func"], "max");
    EXPECT_EQ(low["frame"], (Json{0, 34, 321, 36}));
    EXPECT_TRUE(low["textEntryNumbers"].is_null());
    EXPECT_EQ(low["links"], Json::array());
    EXPECT_EQ(Described()["parameters"][0]["cueSymbols"], (Json{"\uE101", "\uE101"}));
}

TEST(DescriptionCommand, ClumpsListTheirParametersByPid) {
    const Json& filter = Described()["clumps"][3];
    EXPECT_EQ(Described()["clumps"].size(), 5u);
    EXPECT_EQ(filter["cid"], 3);
    EXPECT_EQ(filter["labelString"], "FILTER");
    EXPECT_EQ(filter["clumpType"], 0);
    EXPECT_EQ(filter["parameters"], (Json{9, 10, 11, 12, 13, 20}));
    EXPECT_EQ(filter["taggedLabels"]["RANGE"]["alignment"], "left");
}

TEST(DescriptionCommand, MetadataHasEveryField) {
    const Json& metadata = Described()["metadata"];
    EXPECT_THAT(Keys(metadata), UnorderedElementsAreArray({"catalog",
                                                           "pluginName",
                                                           "pluginPackageName",
                                                           "pluginURLSlug",
                                                           "version",
                                                           "versionHex",
                                                           "versionInteger",
                                                           "sha",
                                                           "commits",
                                                           "logo",
                                                           "width",
                                                           "height",
                                                           "color",
                                                           "hasAdvancedControls",
                                                           "hasGenericHQMode",
                                                           "genericHQParameter",
                                                           "canSidechain",
                                                           "numericMeter",
                                                           "sketch",
                                                           "parameterOrder",
                                                           "tabOrder",
                                                           "advBanner",
                                                           "juniors",
                                                           "layoutEdges"}));
    EXPECT_EQ(metadata["versionInteger"], 131073);
    EXPECT_EQ(metadata["sketch"]["inset"], (Json{4, 0}));
    EXPECT_EQ(metadata["layoutEdges"][1], Json::parse("[[[0, 320], [200, 320]]]"));
    EXPECT_EQ(metadata["tabOrder"].size(), 23u);
}

TEST(DescriptionCommand, PresetsHaveSectionNoteAndValues) {
    const Json& presets = Described()["presets"];
    ASSERT_EQ(presets.size(), 23u);
    EXPECT_THAT(Keys(presets[0]), UnorderedElementsAreArray({"index", "name", "section", "note", "values"}));
    EXPECT_TRUE(presets[0]["note"].is_null());
    EXPECT_EQ(presets[18]["note"], "Vintage 12\u201D guitar cab");
    for (std::size_t i = 0; i < presets.size(); ++i) {
        EXPECT_EQ(presets[i]["index"], i);
        EXPECT_EQ(presets[i]["values"].get<std::vector<float>>(),
                  PresetIndexToPresetValues(static_cast<std::int64_t>(i)));
    }
}

} // namespace
} // namespace inspect
} // namespace QVM_NAMESPACE
