#include "description/Description.h"
#include "description/tables/Artwork.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

TEST(MetadataTable, NamesAndVersion) {
    const QVMMetadata& metadata = *GetMetadata();
    EXPECT_EQ(metadata.catalog, "0015");
    EXPECT_EQ(metadata.pluginName, "Slantwise");
    EXPECT_EQ(metadata.pluginPackageName, "qvm2-Slantwise-SW2X");
    EXPECT_EQ(metadata.pluginURLSlug, "slantwise");
    EXPECT_EQ(metadata.version, "2.0.1");
    EXPECT_EQ(metadata.versionHex, "0x00020001");
    EXPECT_EQ(metadata.versionInteger, 131073u);
    EXPECT_EQ(std::stoul(metadata.versionHex, nullptr, 16), metadata.versionInteger);
    EXPECT_EQ(metadata.sha, "a6a669f");
    EXPECT_EQ(metadata.commits, "7804");
}

TEST(MetadataTable, SizeColorAndCapabilities) {
    const QVMMetadata& metadata = *GetMetadata();
    EXPECT_EQ(metadata.width, 480);
    EXPECT_EQ(metadata.height, 320);
    EXPECT_EQ(HexTextFromColor(metadata.color), "#A5666C");
    EXPECT_TRUE(metadata.hasAdvancedControls);
    EXPECT_TRUE(metadata.hasGenericHQMode);
    EXPECT_EQ(metadata.genericHQParameter, "HQMode");
    EXPECT_FALSE(metadata.canSidechain);
    EXPECT_FALSE(metadata.numericMeter.has_value());
    EXPECT_TRUE(metadata.juniors.empty());
}

TEST(MetadataTable, SketchSettings) {
    const QVMSketchSettings& sketch = GetMetadata()->sketch;
    EXPECT_TRUE(sketch.parameterSketch);
    EXPECT_EQ(HexTextFromColor(sketch.color), "#FFFFFF");
    EXPECT_EQ(sketch.inset, (QVMSize{4, 0}));
}

TEST(MetadataTable, ImagesArePNGAndOnlyTheBannerHasAPrefix) {
    EXPECT_EQ(GetMetadata()->logo, artwork::logo);
    EXPECT_TRUE(GetMetadata()->logo.starts_with("iVBOR"));
    EXPECT_EQ(GetMetadata()->advBanner, std::string("base64,") + artwork::advBanner);
    EXPECT_TRUE(GetMetadata()->advBanner.starts_with("base64,iVBOR"));
}

TEST(MetadataTable, ParameterOrderIsThatOfTheSettingsAddress) {
    EXPECT_THAT(GetMetadata()->parameterOrder,
                ElementsAre("MasterOnOff", "TiltGain", "TiltRangeLow", "TiltRangeHigh", "TiltRangeLink",
                            "TiltRangeLinkRatio", "TiltLoudnessMode", "OutputGain", "MeterMode", "FilterRangeLow",
                            "FilterRangeHigh", "FilterRangeLink", "FilterRangeLinkRatio", "FilterListenLow",
                            "FilterListenHigh", "FilterSlopeLow", "FilterResonanceLow", "FilterSlopeLink",
                            "FilterSlopeLinkRatio", "FilterResonanceLink", "FilterResonanceLinkRatio",
                            "FilterSlopeHigh", "FilterResonanceHigh", "HQMode"));
}

TEST(MetadataTable, TabOrderLeavesOutTheMasterSwitch) {
    auto expected = GetMetadata()->parameterOrder;
    expected.erase(expected.begin());
    EXPECT_EQ(GetMetadata()->tabOrder, expected);
    EXPECT_EQ(GetMetadata()->tabOrder.size(), 23u);
}

TEST(MetadataTable, LayoutEdges) {
    const auto& edges = GetMetadata()->layoutEdges;
    ASSERT_EQ(edges.size(), 2u);
    EXPECT_THAT(edges[0], ElementsAre(QVMLineSegment{{321, 0}, {321, 116}}, QVMLineSegment{{0, 116}, {321, 116}},
                                      QVMLineSegment{{321, 116}, {321, 290}}));
    EXPECT_THAT(edges[1], ElementsAre(QVMLineSegment{{0, 320}, {200, 320}}));
}

} // namespace
} // namespace QVM_NAMESPACE
