#include "unit/ComparisonText.h"

#include "description/Description.h"
#include "description/NumberText.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

// "0;1;2;...;" of so many values, and the preset.
std::string sideOf(std::uint32_t count, const std::string& preset) {
    std::string text;
    for (std::uint32_t pid = 0; pid < count; ++pid)
        text += std::to_string(pid) + ";";
    return text + preset;
}

TEST(ComparisonText, OfThisBuildStaysAsItIs) {
    EXPECT_EQ(comparisonTextOf(sideOf(QVMParameterCount, "7"), QVMParameterCount), sideOf(QVMParameterCount, "7"));
}

TEST(ComparisonText, ParametersThatWereNotThereYetGetTheirInitialValuesBeforeThePreset) {
    std::string expected = sideOf(20, "");
    for (std::uint32_t pid = 20; pid < QVMParameterCount; ++pid)
        expected += ShortestText(GetParameter(pid)->initialValue) + ";";
    EXPECT_EQ(comparisonTextOf(sideOf(20, "7"), 20), expected + "7");
    EXPECT_EQ(comparisonTextOf("7", 0).substr(0, 7), "1;0;20;");
}

TEST(ComparisonText, ParametersThatThisBuildDoesNotKnowGo) {
    EXPECT_EQ(comparisonTextOf(sideOf(QVMParameterCount + 3, "7"), QVMParameterCount + 3),
              sideOf(QVMParameterCount, "7"));
}

TEST(ComparisonText, WhatIsNoWholeSideStaysAsItIs) {
    for (const char* text : {"", "1", "0;1.5;20", ";;;;"})
        EXPECT_EQ(comparisonTextOf(text, 20), text);
    EXPECT_EQ(comparisonTextOf("", 0), "");
}

} // namespace
} // namespace QVM_NAMESPACE
