#include "description/Description.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

std::string Shown(const QVMParameter& parameter, float value) {
    std::string text;
    parameter.valueString(&text, nullptr, value);
    return text;
}

TEST(QVMParameterText, StringAndSuffixAreThoseOfThePid) {
    EXPECT_EQ(GetParameter(2)->stringForValue(1000), "1.00");
    EXPECT_EQ(GetParameter(2)->suffixForValue(1000), "kHz");
    EXPECT_EQ(GetParameter(0)->suffixForValue(1), std::nullopt);
}

TEST(QVMParameterText, NegativeZeroOfTheTiltGainNeverShowsItsSign) {
    EXPECT_EQ(Shown(*GetParameter(1), -0.0f), "0.0");
    EXPECT_EQ(Shown(*GetParameter(1), GetParameter(1)->normalizeFloatValue(-0.04f, QVMGranularityFine)), "0.0");
}

TEST(QVMParameterText, EitherTextMayBeLeftOut) {
    std::optional<std::string> suffix = "untouched";
    GetParameter(7)->valueString(nullptr, &suffix, -96);
    EXPECT_EQ(suffix, "");
    GetParameter(7)->valueString(nullptr, nullptr, -96);
    EXPECT_EQ(Shown(*GetParameter(7), -96), "-Inf");
}

TEST(QVMParameterText, TwoStateParametersShowTheCueSymbolOfTheirState) {
    EXPECT_EQ(Shown(*GetParameter(0), 0.5f), "\uE101");
    EXPECT_EQ(Shown(*GetParameter(23), 0), "\uE205");
    EXPECT_EQ(Shown(*GetParameter(23), 1), "\uE206");
}

TEST(QVMParameterText, ThePowerGlyphIsShownBeyondTheLastStateToo) {
    EXPECT_EQ(GetParameter(0)->stringForValue(2), "");
    EXPECT_EQ(Shown(*GetParameter(0), 2), "\uE101");
    EXPECT_EQ(Shown(*GetParameter(23), 9), "\uE206");
    EXPECT_EQ(Shown(*GetParameter(23), -9), "\uE205");
}

TEST(QVMParameterText, ModesKeepTheirNames) {
    EXPECT_EQ(Shown(*GetParameter(6), 2), "Treble");
    EXPECT_EQ(Shown(*GetParameter(8), 2), "Diff");
}

TEST(QVMParameterText, CueSymbolsCountFromTheMinimum) {
    QVMParameter parameter;
    parameter.pid = 24;
    parameter.minValue = 5;
    parameter.stringValues = {"a", "b", "c"};
    parameter.cueSymbols = {"x", "y", "z"};
    EXPECT_EQ(Shown(parameter, 6.9f), "y");
    parameter.cueSymbols.pop_back(); // no longer one for each name
    EXPECT_EQ(Shown(parameter, 6.9f), "");
}

TEST(QVMParameterText, FrequencyMarksReadInWholeHertzOrKilohertz) {
    const QVMParameter* low = GetParameter(2);
    EXPECT_EQ(low->displayStringFromCueValue(12500), "12");
    EXPECT_EQ(low->displayStringFromCueValue(315), "315");
    EXPECT_EQ(low->displayStringFromCueValue(31.5), "31");
    EXPECT_EQ(low->displayStringFromCueValue(1000), "1");
    EXPECT_EQ(low->displayStringFromCueValue(999.9), "999");
}

TEST(QVMParameterText, MarksOfAScaleThatReachesBelowZeroCarryAPlusSign) {
    const QVMParameter* gain = GetParameter(7);
    EXPECT_EQ(gain->displayStringFromCueValue(6), "+6");
    EXPECT_EQ(gain->displayStringFromCueValue(-12), "-12");
    EXPECT_EQ(gain->displayStringFromCueValue(0), "0");
    EXPECT_EQ(gain->displayStringFromCueValue(1.5), "+1.5");
    EXPECT_EQ(GetParameter(15)->displayStringFromCueValue(6), "6"); // starts at zero
}

} // namespace
} // namespace QVM_NAMESPACE
