#include "description/tables/ClumpTable.h"

#include "description/Description.h"
#include "description/tables/Artwork.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

struct ExpectedClump {
    const char* name;
    const char* codesafeName;
    const char* labelString;
    std::int32_t clumpType;
    std::vector<std::uint32_t> pids;
};

TEST(ClumpTable, IdentityAndParametersOfEveryClump) {
    const std::vector<ExpectedClump> expected = {
        {"MasterOn/Off", "MasterOnOff", "MasterOn/Off", 2, {0}},
        {"Tilt", "Tilt", "TILT", 0, {1, 2, 3, 4, 5}},
        {"Output", "Output", "OUT", 0, {6, 7, 8}},
        {"Filter", "Filter", "FILTER", 0, {9, 10, 11, 12, 13, 20}},
        {"Adv Filter", "AdvFilter", "ADV FILTER", 1, {14, 15, 16, 17, 18, 19, 21, 22, 23}},
    };
    ASSERT_EQ(expected.size(), QVMClumpCount);
    for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid) {
        const QVMClump& clump = *GetClump(cid);
        EXPECT_EQ(clump.name, expected[cid].name);
        EXPECT_EQ(clump.codesafeName, expected[cid].codesafeName);
        EXPECT_EQ(clump.labelString, expected[cid].labelString);
        EXPECT_EQ(clump.clumpType, expected[cid].clumpType);
        std::vector<std::uint32_t> pids;
        for (const QVMParameter* parameter : clump.parameters)
            pids.push_back(parameter->pid);
        EXPECT_EQ(pids, expected[cid].pids);
        EXPECT_TRUE(clump.showInteriorBorders);
    }
}

TEST(ClumpTable, TheFilterClumpListsTheHighListenSwitchAfterTheLowOne) {
    const auto& parameters = GetClump(3)->parameters;
    ASSERT_EQ(parameters.size(), 6u);
    EXPECT_EQ(parameters[4]->pid, pidFilterListenLow);
    EXPECT_EQ(parameters[5]->pid, pidFilterListenHigh);
}

TEST(ClumpTable, HeadingsAreImagesButForTheMasterClump) {
    const std::string prefix = "base64,";
    EXPECT_EQ(GetClump(0)->label, "MasterOn/Off");
    EXPECT_EQ(GetClump(1)->label, prefix + artwork::headingTilt);
    EXPECT_EQ(GetClump(2)->label, prefix + artwork::headingOutput);
    EXPECT_EQ(GetClump(3)->label, prefix + artwork::headingFilter);
    EXPECT_EQ(GetClump(4)->label, prefix + artwork::headingAdvFilter);
}

TEST(ClumpTable, TaggedLabels) {
    const auto texts = [](std::uint32_t cid) {
        std::vector<std::string> found;
        for (const auto& [text, label] : GetClump(cid)->taggedLabels)
            found.push_back(text);
        return found;
    };
    EXPECT_THAT(texts(0), ElementsAre());
    EXPECT_THAT(texts(1), ElementsAre("GAIN", "RANGE"));
    EXPECT_THAT(texts(2), ElementsAre());
    EXPECT_THAT(texts(3), ElementsAre("RANGE"));
    EXPECT_THAT(texts(4), ElementsAre("HIGH", "LOW"));
    EXPECT_EQ(GetClump(4)->taggedLabels.at("LOW").alignment, QVMLabelAlignment::center);
}

TEST(ClumpTable, CaptionsOfRowsStandInOneColumnAboveTheirRows) {
    const QVMTaggedLabel& gain = GetClump(1)->taggedLabels.at("GAIN");
    const QVMTaggedLabel& tilt = GetClump(1)->taggedLabels.at("RANGE");
    const QVMTaggedLabel& filter = GetClump(3)->taggedLabels.at("RANGE");
    for (const QVMTaggedLabel& caption : {gain, tilt, filter}) {
        EXPECT_EQ(caption.frame.x, gain.frame.x);
        EXPECT_EQ(caption.alignment, QVMLabelAlignment::left);
        EXPECT_GT(caption.frame.x, GetClump(3)->labelFrame.x);
    }
    EXPECT_EQ(gain.frame.y, filter.frame.y) << "beside their headings";
    // The border around a handle starts two points above its row at most; capitals fill the middle of a line.
    const auto lettersEnd = [](const QVMTaggedLabel& label) { return label.frame.midY() + 4; };
    EXPECT_LT(lettersEnd(tilt), GetParameter(pidTiltRangeLow)->frame.y - 3);
    EXPECT_LT(lettersEnd(filter), GetParameter(pidFilterRangeLow)->frame.y - 3);
    EXPECT_LT(lettersEnd(gain), GetParameter(pidTiltGain)->frame.y);
}

TEST(ClumpTable, TheOutputClumpAloneCarriesAMeter) {
    for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid) {
        EXPECT_EQ(GetClump(cid)->sketches.size(), cid == 2 ? 1u : 0u);
    }
    const QVMClumpSketch& meter = GetClump(2)->sketches.at(0);
    EXPECT_EQ(meter.name, "InputOutputMeter");
    EXPECT_EQ(meter.parameter, "OutputGain");
    EXPECT_EQ(HexTextFromColor(meter.color), "#938586");
}

TEST(ClumpTable, TheMasterClumpIsTheColumnBesideTheOthers) {
    const QVMRect& frame = GetClump(0)->frame;
    EXPECT_EQ(frame.x, 418);
    EXPECT_EQ(frame.y, 0);
    EXPECT_EQ(frame.x + frame.width, 480);
    EXPECT_EQ(frame.height, 320);
}

TEST(ClumpTable, TheTitlesOfTheAdvancedColumnsStandSideBySideOverTheirNumbers) {
    const QVMRect& low = GetClump(4)->taggedLabels.at("LOW").frame;
    const QVMRect& high = GetClump(4)->taggedLabels.at("HIGH").frame;
    EXPECT_EQ(low.y, high.y);
    EXPECT_EQ(low.width, high.width);
    EXPECT_EQ(low.height, high.height);
    EXPECT_EQ(low.x, GetParameter(pidFilterSlopeLow)->frame.x);
    EXPECT_EQ(high.x, GetParameter(pidFilterSlopeHigh)->frame.x);
    EXPECT_LE(low.y + low.height, GetParameter(pidFilterSlopeLow)->frame.y);
}

TEST(ClumpTable, OrdinaryClumpsTileTheirViewAndLabelsLieInside) {
    double area = 0;
    for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid) {
        const QVMClump& clump = *GetClump(cid);
        if (clump.clumpType == QVMClumpTypeOrdinary) {
            area += clump.frame.width * clump.frame.height;
            EXPECT_LE(clump.frame.x + clump.frame.width, 418);
            EXPECT_LE(clump.frame.y + clump.frame.height, 290);
        }
        EXPECT_EQ(clump.labelFrame.isEmpty(), clump.clumpType == QVMClumpTypeMaster);
        for (const auto& [text, label] : clump.taggedLabels) {
            EXPECT_LE(label.frame.x + label.frame.width, clump.frame.width) << text;
            EXPECT_LE(label.frame.y + label.frame.height, clump.frame.height) << text;
        }
    }
    EXPECT_EQ(area, 418 * 290);
}

} // namespace
} // namespace QVM_NAMESPACE
