#include "description/tables/ParameterTable.h"

#include "description/Description.h"
#include "description/NumberText.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

// pid|name|codesafeName|minimalName|clumpName|unit|unitSymbol|minValue|maxValue|initialValue
constexpr const char* kIdentities[] = {
    "0|Master On/Off|MasterOnOff|power|MasterOnOff|2||0|1|1",
    "1|Tilt Gain|TiltGain|tg|Tilt|4|dB|-18|18|0",
    "2|Tilt Range Low|TiltRangeLow|trl|Tilt|5|Hz|10|24000|20",
    "3|Tilt Range High|TiltRangeHigh|trh|Tilt|5|Hz|10|24000|20000",
    "4|Tilt Range Link|TiltRangeLink|trlnk|Tilt|2||10|24000|0",
    "5|Tilt Range Link Ratio|TiltRangeLinkRatio|trrto|Tilt|1|%|10|24000|0",
    "6|Tilt Loudness Mode|TiltLoudnessMode|tal|Output|0||0|3|0",
    "7|Output Gain|OutputGain|out|Output|4|dB|-96|12|0",
    "8|Meter Mode|MeterMode|mm|Output|0||0|2|0",
    "9|Filter Range Low|FilterRangeLow|frl|Filter|5|Hz|4|24000|4",
    "10|Filter Range High|FilterRangeHigh|frh|Filter|5|Hz|4|24000|24000",
    "11|Filter Range Link|FilterRangeLink|frlnk|Filter|2||4|24000|0",
    "12|Filter Range Link Ratio|FilterRangeLinkRatio|frrto|Filter|1|%|4|24000|0",
    "13|Filter Listen Low|FilterListenLow|fll|Filter|2||0|1|0",
    "14|Filter Slope Low|FilterSlopeLow|fsl|AdvFilter|11|dB/Oct|6|48|12",
    "15|Filter Resonance Low|FilterResonanceLow|frsl|AdvFilter|4|dB|0|18|0",
    "16|Filter Slope Link|FilterSlopeLink|fslnk|AdvFilter|2||0|1|0",
    "17|Filter Slope Link Ratio|FilterSlopeLinkRatio|fsrto|AdvFilter|1|%|0|100|0",
    "18|Filter Resonance Link|FilterResonanceLink|frelnk|AdvFilter|2||0|1|0",
    "19|Filter Resonance Link Ratio|FilterResonanceLinkRatio|frelnkr|AdvFilter|1|%|0|100|0",
    "20|Filter Listen High|FilterListenHigh|flh|Filter|2||0|1|0",
    "21|Filter Slope High|FilterSlopeHigh|fsh|AdvFilter|11|dB/Oct|6|48|12",
    "22|Filter Resonance High|FilterResonanceHigh|frsh|AdvFilter|4|dB|0|18|0",
    "23|HQ Mode|HQMode|hq|AdvFilter|0||0|1|0",
};

// pid|steps normal/fine/coarse|format|logarithmic|controlType|controlStyle|labelDisplay|cueSymbolDisplay|horizontal|
// isDisplaced|includeCrementers|color
constexpr const char* kControls[] = {
    "0|1/1/1|%1.0f|no|1|0|2|2|no|no|no|#FFFFFF",       "1|0.5/0.1/1.5|%0.1f|no|0|0|2|0|yes|no|no|#A54D55",
    "2|1/0.1/10|%1.0f|yes|0|0|2|0|yes|no|no|#B25962",  "3|1/0.1/10|%1.0f|yes|0|0|2|0|yes|no|no|#B25962",
    "4|1/1/1|%1.0f|no|1|1|2|2|no|no|no|#B25962",       "5|1/1/10|%1.0f|no|0|0|0|0|no|no|no|#B25962",
    "6|1/1/1|%1.0f|no|3|1|0|0|yes|no|yes|#71343A",     "7|0.5/0.1/3|%0.1f|no|0|0|2|0|no|no|no|#938586",
    "8|1/1/1|%1.0f|no|3|1|0|0|yes|no|yes|#938586",     "9|1/0.1/10|%1.0f|yes|0|0|2|0|yes|no|no|#877879",
    "10|1/0.1/10|%1.0f|yes|0|0|2|0|yes|no|no|#877879", "11|1/1/1|%1.0f|no|1|1|2|2|no|no|no|#877879",
    "12|1/1/10|%1.0f|no|0|0|0|0|no|no|no|#877879",     "13|1/1/1|%1.0f|no|1|4|2|2|no|yes|no|#5E5454",
    "14|1/0.1/6|%0.1f|no|4|0|0|0|no|no|no|#796C6D",    "15|0.5/0.1/3|%0.1f|no|4|0|0|0|no|no|no|#796C6D",
    "16|1/1/1|%1.0f|no|1|1|2|2|no|no|no|#FF69B4",      "17|1/1/10|%1.0f|no|0|0|0|0|no|no|no|#FF69B4",
    "18|1/1/1|%1.0f|no|1|1|2|2|no|no|no|#FF69B4",      "19|1/1/10|%1.0f|no|0|0|0|0|no|no|no|#FF69B4",
    "20|1/1/1|%1.0f|no|1|4|2|2|no|yes|no|#5E5454",     "21|1/0.1/6|%0.1f|no|4|0|0|0|no|no|no|#796C6D",
    "22|0.5/0.1/3|%0.1f|no|4|0|0|0|no|no|no|#796C6D",  "23|1/1/1|%1.0f|no|1|3|2|0|yes|yes|no|#B8868B",
};

std::string Number(float value) {
    return SignificantText(value, 6);
}
std::string YesOrNo(bool value) {
    return value ? "yes" : "no";
}

std::string Joined(const std::vector<std::string>& cells) {
    std::string line;
    for (const std::string& cell : cells)
        line += (line.empty() ? "" : "|") + cell;
    return line;
}

std::string IdentityLine(const QVMParameter& p) {
    return Joined({std::to_string(p.pid), p.name, p.codesafeName, p.minimalName, p.clumpName, std::to_string(p.unit),
                   p.unitSymbol, Number(p.minValue), Number(p.maxValue), Number(p.initialValue)});
}

std::string ControlLine(const QVMParameter& p) {
    const std::string steps =
        Number(p.granularity) + "/" + Number(p.fineGranularity) + "/" + Number(p.coarseGranularity);
    return Joined({std::to_string(p.pid), steps, p.formatString, YesOrNo(p.logarithmic), std::to_string(p.controlType),
                   std::to_string(p.controlStyle), std::to_string(p.labelDisplay), std::to_string(p.cueSymbolDisplay),
                   YesOrNo(p.horizontal), YesOrNo(p.isDisplaced), YesOrNo(p.includeCrementers),
                   HexTextFromColor(p.color)});
}

TEST(ParameterTable, IdentityAndRangeOfEveryParameter) {
    ASSERT_EQ(std::size(kIdentities), QVMParameterCount);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        EXPECT_EQ(IdentityLine(*GetParameter(pid)), kIdentities[pid]);
    }
}

TEST(ParameterTable, StepsAndControlOfEveryParameter) {
    ASSERT_EQ(std::size(kControls), QVMParameterCount);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        EXPECT_EQ(ControlLine(*GetParameter(pid)), kControls[pid]);
    }
}

TEST(ParameterTable, EveryRowStandsAtItsPid) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        EXPECT_EQ(tables::kParameters[pid].pid, pid);
    }
}

TEST(ParameterTable, StepsAreTheNearest32BitNumbers) {
    EXPECT_EQ(GetParameter(pidTiltGain)->fineGranularity, 0.1f);
    EXPECT_EQ(GetParameter(pidHQMode)->controlScale, 1.3f);
}

TEST(ParameterTable, WhatAllParametersHaveInCommon) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        EXPECT_TRUE(parameter.automatesSmoothly);
        EXPECT_TRUE(parameter.coarseGranularityShouldPreround);
        EXPECT_EQ(parameter.controlFocusShape, 0);
        EXPECT_EQ(parameter.highlightInsetX, 0);
        EXPECT_FALSE(parameter.meteringOnly);
        EXPECT_EQ(parameter.controlScale, pid == pidHQMode ? 1.3f : 1.0f);
        EXPECT_EQ(parameter.scope, pid == pidMasterOnOff ? 1 : 0);
        EXPECT_EQ(parameter.hidden, pid == pidMeterMode);
        EXPECT_EQ(parameter.chanIn, 0u);
    }
}

TEST(ParameterTable, LinksAndRatiosAloneHaveNoEffect) {
    for (const tables::ParameterRow& row : tables::kParameters) {
        const bool isLink = std::string_view(row.name).find(" Link") != std::string_view::npos;
        EXPECT_EQ(row.hasEffect, !isLink) << row.name;
    }
}

TEST(ParameterTable, OnlyTheQualityModeIsAPresetWildcard) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        EXPECT_EQ(GetParameter(pid)->presetWildcard, pid == pidHQMode);
    }
}

} // namespace
} // namespace QVM_NAMESPACE
