// What a VST3 host is told of the parameters before it has shown anything, by the built library.
#include "plugin/vst3/ParameterListing.h"

#include "plugin/host/Vst3Instance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace slantwise_tests {
namespace {

using namespace Steinberg;
using Info = Vst::ParameterInfo;

class Vst3Listing : public testing::Test {
protected:
    std::vector<std::string> textsOf(const std::string& title) const {
        const Info info = instance_.parameter(title);
        std::vector<std::string> texts;
        for (int32 step = 0; step <= info.stepCount; ++step)
            texts.push_back(instance_.textOf(info.id, static_cast<double>(step) / info.stepCount));
        return texts;
    }

    Vst3Module module_;
    Vst3Instance instance_{module_};
};

// Sessions and automation refer to these. They never change, whatever is added goes behind them.
TEST_F(Vst3Listing, IdentifiersPlacesStepsAndInitialValuesAreThoseOfEverySession) {
    struct Row {
        Vst::ParamID id;
        const char* title;
        int32 stepCount;
        double initial;
    };
    const std::vector<Row> kept = {
        {0x2b4e21ae, "Master On/Off", 1, 1},
        {0x0720cffc, "Tilt Gain", 0, 0.5},
        {0x69020ad4, "Tilt Range Low", 0, 0.08905657},
        {0x373d6622, "Tilt Range High", 0, 0.97657502},
        {0x373f387a, "Tilt Range Link", 1, 0},
        {0x5c6463b1, "Tilt Range Link Ratio", 0, 0},
        {0x704b4169, "Tilt Loudness Mode", 3, 0},
        {0x2ade4c40, "Output Gain", 0, 0.88888890},
        {0x3f838cac, "Meter Mode", 2, 0},
        {0x4755108f, "Filter Range Low", 0, 0},
        {0x234b17c7, "Filter Range High", 0, 0.99999994},
        {0x234cea1f, "Filter Range Link", 1, 0},
        {0x13ccf12c, "Filter Range Link Ratio", 0, 0},
        {0x0778e755, "Filter Listen Low", 1, 0},
        {0x774e7561, "Filter Slope Low", 0, 0.14285715},
        {0x347f7fde, "Filter Resonance Low", 0, 0},
        {0x72801f8d, "Filter Slope Link", 1, 0},
        {0x7907f07e, "Filter Slope Link Ratio", 0, 0},
        {0x5b7064b0, "Filter Resonance Link", 1, 0},
        {0x2034693b, "Filter Resonance Link Ratio", 0, 0},
        {0x67a219c1, "Filter Listen High", 1, 0},
        {0x727e4d35, "Filter Slope High", 0, 0.14285715},
        {0x5b6e9258, "Filter Resonance High", 0, 0},
        {0x7f770a4c, "HQ Mode", 1, 0},
        {0x777d5908, "Bypass", 1, 0},
        {0x70727374, "Program", 22, 0},
    };
    const std::vector<Info> listed = instance_.parameters();
    ASSERT_EQ(listed.size(), kept.size());
    for (std::size_t i = 0; i < kept.size(); ++i) {
        EXPECT_EQ(listed[i].id, kept[i].id) << i;
        EXPECT_EQ(plainText(listed[i].title), kept[i].title);
        EXPECT_EQ(listed[i].stepCount, kept[i].stepCount) << kept[i].title;
        EXPECT_NEAR(listed[i].defaultNormalizedValue, kept[i].initial, 1e-6) << kept[i].title;
    }
}

TEST_F(Vst3Listing, ModesAndProgramsAreListsOfNames) {
    std::set<std::string> lists;
    for (const Info& info : instance_.parameters())
        if (info.flags & Info::kIsList) lists.insert(plainText(info.title));
    EXPECT_EQ(lists, (std::set<std::string>{"Tilt Loudness Mode", "Meter Mode", "Program"}));
    for (const std::string& list : lists) {
        const std::vector<std::string> texts = textsOf(list);
        EXPECT_EQ(std::set<std::string>(texts.begin(), texts.end()).size(), texts.size()) << list;
        EXPECT_THAT(texts, testing::Each(testing::Not(testing::IsEmpty())));
    }
    EXPECT_EQ(textsOf("HQ Mode"), (std::vector<std::string>{"Off", "On"}));
    EXPECT_EQ(textsOf("Program").front(), "Default");
}

TEST_F(Vst3Listing, OneBypassStandsForTheMasterSwitch) {
    std::vector<std::string> bypasses;
    for (const Info& info : instance_.parameters())
        if (info.flags & Info::kIsBypass) bypasses.push_back(plainText(info.title));
    ASSERT_EQ(bypasses, std::vector<std::string>{"Bypass"});
    EXPECT_EQ(textsOf("Bypass"), (std::vector<std::string>{"Active", "Bypassed"}));
    EXPECT_TRUE(instance_.parameter("Bypass").flags & Info::kCanAutomate);

    const auto set = [this](const char* title, double normalisedValue) {
        instance_.controller().setParamNormalized(instance_.parameter(title).id, normalisedValue);
        return instance_.runBlocks(50);
    };
    EXPECT_LT(set("Output Gain", 0), 1e-3F);
    EXPECT_EQ(set("Bypass", 1), 1);
    EXPECT_EQ(set("Master On/Off", 0), 1) << "what the block has told the host, which tells the controller";
    EXPECT_LT(set("Master On/Off", 1), 1e-3F) << "as automation of an old session does";
}

TEST_F(Vst3Listing, WhatNobodyIsToSetInAListIsHidden) {
    std::vector<std::string> hidden;
    for (const Info& info : instance_.parameters()) {
        const std::string title = plainText(info.title);
        if (info.flags & Info::kIsHidden) {
            hidden.push_back(title);
            EXPECT_TRUE(info.flags & Info::kIsReadOnly) << title;
            EXPECT_FALSE(info.flags & Info::kCanAutomate) << title;
        } else {
            EXPECT_FALSE(info.flags & Info::kIsReadOnly) << title;
            EXPECT_TRUE(info.flags & Info::kCanAutomate) << title;
        }
    }
    EXPECT_EQ(hidden, (std::vector<std::string>{"Master On/Off", "Tilt Range Link", "Tilt Range Link Ratio",
                                                "Filter Range Link", "Filter Range Link Ratio", "Filter Slope Link",
                                                "Filter Slope Link Ratio", "Filter Resonance Link",
                                                "Filter Resonance Link Ratio"}));
}

} // namespace
} // namespace slantwise_tests
