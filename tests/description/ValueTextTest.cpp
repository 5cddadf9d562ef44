#include "description/ValueText.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

struct Expected {
    std::uint32_t pid;
    float value;
    const char* text;
    std::optional<std::string> suffix;
};

void ExpectTexts(const std::vector<Expected>& cases) {
    for (const Expected& expected : cases) {
        EXPECT_EQ(ParameterValueToString(expected.pid, expected.value), expected.text)
            << "pid " << expected.pid << " at " << expected.value;
        EXPECT_EQ(ParameterValueToSuffix(expected.pid, expected.value), expected.suffix)
            << "pid " << expected.pid << " at " << expected.value;
    }
}

TEST(ValueText, FrequenciesReadInHertzBelowAndInKilohertzFromOneThousandUp) {
    ExpectTexts({
        {2, 999.9f, "1000", "Hz"},
        {2, 1000, "1.00", "kHz"},
        {2, 9999, "10.00", "kHz"},
        {2, 10000, "10.0", "kHz"},
        {2, 12345, "12.3", "kHz"},
        {3, 24000, "24.0", "kHz"},
        {3, 31.4f, "31", "Hz"},
    });
}

TEST(ValueText, OutputGainIsMinusInfinityAtItsBottomAndThenHasNoUnit) {
    ExpectTexts({
        {7, -96.005f, "-Inf", ""},
        {7, -95.98f, "-96.0", "dB"},
        {7, -96, "-Inf", ""},
        {7, 0, "0.0", "dB"},
        {7, 12, "12.0", "dB"},
    });
}

TEST(ValueText, FiltersAreOffAtTheirEnds) {
    ExpectTexts({
        {9, 4.009f, "Off", ""},
        {9, 4.02f, "4", "Hz"},
        {9, 24000, "24.0", "kHz"},
        {10, 24000, "Off", ""},
        {10, 23900, "23.9", "kHz"},
        {10, 4, "4", "Hz"},
    });
}

TEST(ValueText, ModesAreNamedByTheirWholePart) {
    ExpectTexts({
        {6, 0, "Auto", std::nullopt},
        {6, 1, "Norm", std::nullopt},
        {6, 2.7f, "Treble", std::nullopt},
        {6, 3, "Bass", std::nullopt},
        {6, 4, "", std::nullopt},
        {6, -1, "", std::nullopt},
        {8, 0, "Pre", std::nullopt},
        {8, 1, "Post", std::nullopt},
        {8, 2, "Diff", std::nullopt},
        {8, 3, "", std::nullopt},
    });
}

TEST(ValueText, ZeroHasNoSign) {
    ExpectTexts({{1, -0.0f, "0.0", "dB"}, {4, -0.0f, "0", std::nullopt}});
}

TEST(ValueText, SwitchesReadAsGlyphsWhileTheyAreZeroOrOne) {
    ExpectTexts({
        {0, 0.5f, "\uE101", std::nullopt},
        {0, 1, "\uE101", std::nullopt},
        {0, 2, "", std::nullopt},
        {13, 0, "\uE219", std::nullopt},
        {13, 2, "", std::nullopt},
        {20, 1, "\uE20B", std::nullopt},
        {20, -1, "", std::nullopt},
        {23, 0, "\uE205", std::nullopt},
        {23, 1, "\uE206", std::nullopt},
        {23, 2, "", std::nullopt},
    });
}

TEST(ValueText, LinkSwitchesAreNumbersWithoutAUnitAndRatiosPercentages) {
    ExpectTexts({
        {4, 1, "1", std::nullopt},
        {11, 0, "0", std::nullopt},
        {16, 1, "1", std::nullopt},
        {18, 1, "1", std::nullopt},
        {5, 12005, "12005", "%"},
        {12, 4, "4", "%"},
        {17, 50.4f, "50", "%"},
        {19, 100, "100", "%"},
    });
}

TEST(ValueText, GainsSlopesAndResonancesHaveOneDecimal) {
    ExpectTexts({
        {1, -4.5f, "-4.5", "dB"},
        {14, 12, "12.0", "dB/Oct"},
        {15, 3, "3.0", "dB"},
        {21, 48, "48.0", "dB/Oct"},
        {22, 0.1f, "0.1", "dB"},
    });
}

TEST(ValueText, APidThatDoesNotExistHasNoTextAndNoUnit) {
    ExpectTexts({{24, 1, "", std::nullopt}, {4294967295u, 0, "", std::nullopt}});
}

} // namespace
} // namespace QVM_NAMESPACE
