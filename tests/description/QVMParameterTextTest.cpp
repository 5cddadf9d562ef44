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
    EXPECT_EQ(GetParameter(pidTiltRangeLow)->stringForValue(1000), "1.00");
    EXPECT_EQ(GetParameter(pidTiltRangeLow)->suffixForValue(1000), "kHz");
    EXPECT_EQ(GetParameter(pidMasterOnOff)->suffixForValue(1), std::nullopt);
}

TEST(QVMParameterText, NegativeZeroOfTheTiltGainNeverShowsItsSign) {
    EXPECT_EQ(Shown(*GetParameter(pidTiltGain), -0.0f), "0.0");
    EXPECT_EQ(
        Shown(*GetParameter(pidTiltGain), GetParameter(pidTiltGain)->normalizeFloatValue(-0.04f, QVMGranularityFine)),
        "0.0");
}

TEST(QVMParameterText, EitherTextMayBeLeftOut) {
    std::optional<std::string> suffix = "untouched";
    GetParameter(pidOutputGain)->valueString(nullptr, &suffix, -96);
    EXPECT_EQ(suffix, "");
    GetParameter(pidOutputGain)->valueString(nullptr, nullptr, -96);
    EXPECT_EQ(Shown(*GetParameter(pidOutputGain), -96), "-Inf");
}

TEST(QVMParameterText, TwoStateParametersShowTheCueSymbolOfTheirState) {
    EXPECT_EQ(Shown(*GetParameter(pidMasterOnOff), 0.5f), "\uE101");
    EXPECT_EQ(Shown(*GetParameter(pidHQMode), 0), "\uE205");
    EXPECT_EQ(Shown(*GetParameter(pidHQMode), 1), "\uE206");
}

TEST(QVMParameterText, ThePowerGlyphIsShownBeyondTheLastStateToo) {
    EXPECT_EQ(GetParameter(pidMasterOnOff)->stringForValue(2), "");
    EXPECT_EQ(Shown(*GetParameter(pidMasterOnOff), 2), "\uE101");
    EXPECT_EQ(Shown(*GetParameter(pidHQMode), 9), "\uE206");
    EXPECT_EQ(Shown(*GetParameter(pidHQMode), -9), "\uE205");
}

TEST(QVMParameterText, ModesKeepTheirNames) {
    EXPECT_EQ(Shown(*GetParameter(pidTiltLoudnessMode), 2), "Treble");
    EXPECT_EQ(Shown(*GetParameter(pidMeterMode), 2), "Diff");
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
    const QVMParameter* low = GetParameter(pidTiltRangeLow);
    EXPECT_EQ(low->displayStringFromCueValue(12500), "12");
    EXPECT_EQ(low->displayStringFromCueValue(315), "315");
    EXPECT_EQ(low->displayStringFromCueValue(31.5), "31");
    EXPECT_EQ(low->displayStringFromCueValue(1000), "1");
    EXPECT_EQ(low->displayStringFromCueValue(999.9), "999");
}

TEST(QVMParameterText, MarksOfAScaleThatReachesBelowZeroCarryAPlusSign) {
    const QVMParameter* gain = GetParameter(pidOutputGain);
    EXPECT_EQ(gain->displayStringFromCueValue(6), "+6");
    EXPECT_EQ(gain->displayStringFromCueValue(-12), "-12");
    EXPECT_EQ(gain->displayStringFromCueValue(0), "0");
    EXPECT_EQ(gain->displayStringFromCueValue(1.5), "+1.5");
    EXPECT_EQ(GetParameter(pidFilterResonanceLow)->displayStringFromCueValue(6), "6"); // starts at zero
}

} // namespace
} // namespace QVM_NAMESPACE
