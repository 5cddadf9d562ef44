#include "platform/layer/TextMetrics.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

const Font plain{"HelveticaNeue-Medium", 10};
const Font icons{"QVM-Icons-Regular", 10};

TEST(TextMetricsTest, NominalWidthsAreHalfAnEmAndAWholeOneForIcons) {
    EXPECT_EQ(TextMetrics::current().width({"abcd", plain, {}}), 20);
    EXPECT_EQ(TextMetrics::current().width({"\uE101", icons, {}}), 10);
    EXPECT_EQ(TextMetrics::current().width({}), 0);
}

TEST(TextMetricsTest, CharactersCountNotBytes) {
    EXPECT_EQ(TextMetrics::current().width({"−∞ dB", plain, {}}), 25);
}

TEST(TextMetricsTest, KernIsAddedBehindEachCharacter) {
    AttributedString text("ab", plain, {});
    text.runs[0].kern = 1.5;
    EXPECT_EQ(TextMetrics::current().width(text), 13);
}

TEST(TextMetricsTest, TheSizeTakesTheTallestRun) {
    AttributedString text("ab", plain, {});
    text.append({"c", Font{"HelveticaNeue-Medium", 20}, {}});
    EXPECT_EQ(sizeOf(text), (Size{20, 20}));
    EXPECT_EQ(sizeOf({}), Size{});
}

TEST(TextMetricsTest, AnInstalledMeasurementIsUsedUntilItIsTakenAway) {
    struct Fixed : TextMetrics {
        double width(const AttributedString&) const override { return 7; }
        double ascent(const Font&) const override { return 2; }
        double descent(const Font&) const override { return 1; }
        bool hasFace(const std::string& face) const override { return face == "There"; }
    } fixed;
    TextMetrics::install(&fixed);
    EXPECT_EQ(sizeOf({"abcdef", plain, {}}), (Size{7, 3}));
    EXPECT_TRUE(TextMetrics::current().hasFace("There"));
    TextMetrics::install(nullptr);
    EXPECT_EQ(sizeOf({"ab", plain, {}}), (Size{10, 10}));
    EXPECT_FALSE(TextMetrics::current().hasFace("There"));
}

TEST(TextMetricsTest, TellsAsciiFromTheRest) {
    EXPECT_TRUE(isAscii(""));
    EXPECT_TRUE(isAscii("12.5 dB~"));
    EXPECT_FALSE(isAscii("12 µs"));
}

} // namespace
} // namespace QVM_NAMESPACE
