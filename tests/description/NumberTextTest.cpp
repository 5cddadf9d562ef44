#include "description/NumberText.h"

#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace QVM_NAMESPACE {
namespace {

std::string Printed(const char* format, double value) {
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

TEST(NumberText, FixedTextRoundsAsPrintfDoes) {
    EXPECT_EQ(FixedText(0.25, 1), "0.2"); // ties go to the even digit
    EXPECT_EQ(FixedText(0.35, 1), "0.3"); // just under the tie in binary
    EXPECT_EQ(FixedText(2.5, 0), "2");
    EXPECT_EQ(FixedText(999.9f, 0), "1000");
    std::mt19937 random(1);
    std::uniform_real_distribution<double> values(-30000, 30000);
    for (int i = 0; i < 20000; ++i) {
        const double value = static_cast<float>(values(random));
        EXPECT_EQ(FixedText(value, 0), Printed("%1.0f", value));
        EXPECT_EQ(FixedText(value, 1), Printed("%0.1f", value));
        EXPECT_EQ(FixedText(value / 1000, 2), Printed("%0.2f", value / 1000));
        EXPECT_EQ(SignificantText(value, 9), Printed("%.9g", value));
    }
}

TEST(NumberText, ExtremesArePrintedInFull) {
    const double highest = std::numeric_limits<double>::max();
    EXPECT_EQ(FixedText(highest, 1), Printed("%0.1f", highest));
    EXPECT_EQ(FixedText(std::numeric_limits<double>::infinity(), 1), "inf");
    EXPECT_EQ(FixedText(-std::numeric_limits<double>::quiet_NaN(), 1), "nan");
    EXPECT_EQ(SignificantText(1e-20, 9), "1e-20");
    EXPECT_EQ(SignificantText(std::numeric_limits<double>::quiet_NaN(), 9), "nan");
}

TEST(NumberText, ShortestFloatTextReadsBackInSinglePrecision) {
    EXPECT_EQ(ShortestFloatText(0.1F), "0.1");
    EXPECT_EQ(ShortestFloatText(-18), "-18");
    for (const float value : {1.0F / 3, 1e-20F, 3e38F, 12345.678F})
        EXPECT_EQ(NumberFromText<float>(ShortestFloatText(value)), value);
}

TEST(NumberText, ShortestTextHasNoExponentAndNoSignedZero) {
    EXPECT_EQ(ShortestText(6), "6");
    EXPECT_EQ(ShortestText(-12), "-12");
    EXPECT_EQ(ShortestText(0.1), "0.1");
    EXPECT_EQ(ShortestText(1e6), "1000000");
    EXPECT_EQ(ShortestText(-0.0), "0");
    EXPECT_EQ(ShortestText(std::numeric_limits<double>::quiet_NaN()), "nan");
}

// A locale with a decimal comma for as long as it lives; made for the purpose, since none may be installed.
class CommaLocale {
public:
    CommaLocale() {
        const std::string command = "localedef -i de_DE -f UTF-8 '" + folder_ + "/comma' >/dev/null 2>&1";
        if (folder_.empty() || std::system(command.c_str()) != 0) return;
        ::setenv("LOCPATH", folder_.c_str(), 1);
        inForce_ = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    }
    ~CommaLocale() {
        std::setlocale(LC_NUMERIC, before_.c_str());
        ::unsetenv("LOCPATH");
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    bool inForce() const { return inForce_; }

private:
    static std::string temporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "locale-XXXXXX";
        return ::mkdtemp(name.data()) ? name : std::string();
    }

    std::string before_ = std::setlocale(LC_NUMERIC, nullptr);
    std::string folder_ = temporaryFolder();
    bool inForce_ = false;
};

TEST(NumberText, DecimalSignIsAPointInALocaleWithCommas) {
    const CommaLocale locale;
    if (!locale.inForce()) GTEST_SKIP() << "no locale with a decimal comma can be made here";
    EXPECT_EQ(Printed("%0.1f", 1.5), "1,5"); // the locale is in force
    EXPECT_EQ(FixedText(1.5, 1), "1.5");
    EXPECT_EQ(ShortestText(1.5), "1.5");
    EXPECT_EQ(SignificantText(1.5, 9), "1.5");
}

TEST(NumberText, ReadsTheNumberThatATextBeginsWith) {
    const auto read = NumberAtStart<float>("-12.5e1 kHz");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->value, -125);
    EXPECT_EQ(read->rest, " kHz");
    EXPECT_EQ(NumberAtStart<float>("1,5")->value, 1);
    for (const char* none : {"", "x1", "+1", " 1", ".", "-", "e5"})
        EXPECT_FALSE(NumberAtStart<float>(none)) << none;
}

TEST(NumberText, ReadsATextThatIsANumberAndNothingElse) {
    EXPECT_EQ(NumberFromText<double>("0.1"), 0.1);
    EXPECT_EQ(NumberFromText<float>("0.1"), 0.1f);
    EXPECT_EQ(NumberFromText<float>("1 "), std::nullopt);
    EXPECT_TRUE(std::isinf(*NumberFromText<float>("inf")));
    EXPECT_TRUE(std::isnan(*NumberFromText<float>("nan")));
}

TEST(NumberText, AWholeNumberIsDigitsAndNothingElse) {
    EXPECT_EQ(WholeNumberFromText<int>("-12"), -12);
    EXPECT_EQ(WholeNumberFromText<std::uint32_t>("4294967295"), 4294967295u);
    for (const char* none : {"", "x", "1x", "1 ", " 1", "+1", "1.0", "1e3", "0x1"})
        EXPECT_EQ(WholeNumberFromText<int>(none), std::nullopt) << none;
}

TEST(NumberText, AWholeNumberThatItsTypeCannotHoldIsNone) {
    EXPECT_EQ(WholeNumberFromText<int>("2147483648"), std::nullopt);
    EXPECT_EQ(WholeNumberFromText<std::uint32_t>("4294967296"), std::nullopt);
    EXPECT_EQ(WholeNumberFromText<std::uint32_t>("-1"), std::nullopt);
}

TEST(NumberText, NumbersBeyondAllNumbersAreTheLargestAndThoseTooNearToZeroAreZero) {
    constexpr float largest = std::numeric_limits<float>::max();
    for (const char* huge : {"1e39", "1e999", "1e99999999999999999999", "1000000000000000000000000000000000000000.0",
                             "0.001E+999", "000099e38"})
        EXPECT_EQ(NumberFromText<float>(huge), largest) << huge;
    EXPECT_EQ(NumberFromText<float>("-1e39"), -largest);
    EXPECT_EQ(NumberFromText<double>("1e39"), 1e39);
    EXPECT_EQ(NumberFromText<double>("1e400"), std::numeric_limits<double>::max());
    for (const char* tiny :
         {"1e-60", "1e-99999999999999999999", "1000e-99", "0.00000000000000000000000000000000000000000000000001"})
        EXPECT_EQ(NumberFromText<float>(tiny), 0.0f) << tiny;
    EXPECT_TRUE(std::signbit(*NumberFromText<float>("-1e-60")));
}

} // namespace
} // namespace QVM_NAMESPACE
