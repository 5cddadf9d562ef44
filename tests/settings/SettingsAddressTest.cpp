#include "settings/SettingsAddress.h"

#include "description/Description.h"

#include <clocale>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <random>

namespace QVM_NAMESPACE {

std::ostream& operator<<(std::ostream& out, const SettingsEntry& entry) {
    return out << entry.key << (entry.value ? ":" + std::to_string(*entry.value) : ":x");
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string base = "https://maker.example/product/2.0.1/?";

class SettingsAddressTest : public testing::Test {
protected:
    std::vector<SettingsEntry> entriesOf(const std::string& text) {
        const auto result = readSettingsAddress(text, *config_);
        if (const auto* refusal = std::get_if<SettingsRefusal>(&result))
            ADD_FAILURE() << text << ": " << refusal->text();
        const auto* address = std::get_if<SettingsAddress>(&result);
        return address ? address->entries : std::vector<SettingsEntry>();
    }
    std::string refusalOf(const std::string& text) {
        const auto result = readSettingsAddress(text, *config_);
        const auto* refusal = std::get_if<SettingsRefusal>(&result);
        return refusal ? refusal->text() : "";
    }

    const std::unique_ptr<QVMConfig> config_ = QVMConfig::inlinedConfig();
};

SettingsEntry entry(const char* key, std::optional<float> value) {
    return {key, value};
}

TEST_F(SettingsAddressTest, KeysAndValuesAreRead) {
    EXPECT_THAT(entriesOf(base + "tg:6/trl:0.3333333/out:-6.5/frl:1e3"),
                ElementsAre(entry("tg", 6.0f), entry("trl", 0.3333333f), entry("out", -6.5f), entry("frl", 1000.0f)));
    EXPECT_THAT(entriesOf(base), IsEmpty());
}

TEST_F(SettingsAddressTest, TheOlderFormIsReadLikeTheCurrentOne) {
    EXPECT_EQ(entriesOf(base + "tg=6&trl=50&fll=x&nothing&=4"), entriesOf(base + "tg:6/trl:50/fll:x/nothing/:4"));
    EXPECT_THAT(entriesOf(base + "tg=6"), ElementsAre(entry("tg", 6.0f)));
}

TEST_F(SettingsAddressTest, OneColonMakesItTheCurrentForm) {
    EXPECT_THAT(entriesOf(base + "tg=6/trl:50"), ElementsAre(entry("trl", 50.0f)));
}

TEST_F(SettingsAddressTest, AnXLeavesAParameterAsItIs) {
    EXPECT_THAT(entriesOf(base + "tg:x/TiltRangeLow:x"),
                ElementsAre(entry("tg", std::nullopt), entry("TiltRangeLow", std::nullopt)));
    EXPECT_EQ(refusalOf(base + "tg:X"), "\"tg\" has no number");
}

TEST_F(SettingsAddressTest, EntriesWithoutAValueAreLeftOut) {
    EXPECT_THAT(entriesOf(base + "tg/trl:50//out"), ElementsAre(entry("trl", 50.0f)));
}

TEST_F(SettingsAddressTest, AValueEndsAtASecondSeparator) {
    EXPECT_THAT(entriesOf(base + "tg:6:9/trl:x:5/out:-3:"),
                ElementsAre(entry("tg", 6.0f), entry("trl", std::nullopt), entry("out", -3.0f)));
    EXPECT_THAT(entriesOf(base + "tg=6=9&trl=x="), ElementsAre(entry("tg", 6.0f), entry("trl", std::nullopt)));
    EXPECT_EQ(refusalOf(base + "tg::6"), "\"tg\" has no number");
}

TEST_F(SettingsAddressTest, UnknownKeysAreLeftOutWhateverStandsBehindThem) {
    EXPECT_THAT(entriesOf(base + "loudness:1/tg:6/utm_source:mail/TG:3/%C3%A9:nan/p:2"),
                ElementsAre(entry("tg", 6.0f)));
}

TEST_F(SettingsAddressTest, TheLastOfEqualKeysCounts) {
    EXPECT_THAT(entriesOf(base + "tg:6/trl:50/tg:-3"), ElementsAre(entry("tg", -3.0f), entry("trl", 50.0f)));
    EXPECT_THAT(entriesOf(base + "tg:6/tg:x"), ElementsAre(entry("tg", std::nullopt)));
}

TEST_F(SettingsAddressTest, FullAndMinimalNamesAreTwoKeys) {
    EXPECT_THAT(entriesOf(base + "tg:6/TiltGain:3"), ElementsAre(entry("tg", 6.0f), entry("TiltGain", 3.0f)));
}

TEST_F(SettingsAddressTest, PercentEncodingIsUndoneBeforeAnythingElse) {
    EXPECT_THAT(entriesOf(base + "tg%3A6%2Ftrl%3A5%30"), ElementsAre(entry("tg", 6.0f), entry("trl", 50.0f)));
    EXPECT_EQ(refusalOf(base + "tg:6%"), "it is not a web address");
    EXPECT_EQ(refusalOf(base + "tg:6%00"), "\"tg\" has no number");
}

TEST_F(SettingsAddressTest, ANumberIsAllOfItsTextAndFinite) {
    for (const char* value : {"",    "six", "6dB",  "0x10",     "+6",   "--6",  "6,5", "6.5.", "nan", "-nan",
                              "NaN", "inf", "-inf", "infinity", "%206", "6%20", ".",   "-",    "e5",  "xx"})
        EXPECT_EQ(refusalOf(base + "trl:50/tg:" + value), "\"tg\" has no number") << value;
    EXPECT_THAT(entriesOf(base + "tg:.5/trl:5."), ElementsAre(entry("tg", 0.5f), entry("trl", 5.0f)));
    EXPECT_THAT(entriesOf(base + "tg:3e38"), ElementsAre(entry("tg", 3e38f)));
    // A number beyond single precision, or beyond any, is one out of range.
    constexpr float largest = std::numeric_limits<float>::max();
    EXPECT_THAT(entriesOf(base + "tg:1e39/trl:-1e999"), ElementsAre(entry("tg", largest), entry("trl", -largest)));
    EXPECT_THAT(entriesOf(base + "tg:1e-60/trl:-0"), ElementsAre(entry("tg", 0.0f), entry("trl", -0.0f)));
}

TEST_F(SettingsAddressTest, TheDecimalMarkIsAPointInEveryLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    // Whichever of them the machine has; the reading is the same with none.
    for (const char* locale : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "tr_TR.UTF-8"}) {
        std::setlocale(LC_ALL, locale);
        EXPECT_THAT(entriesOf(base + "tg:1.5"), ElementsAre(entry("tg", 1.5f)));
        EXPECT_EQ(refusalOf(base + "tg:1,5"), "\"tg\" has no number");
        EXPECT_EQ(writeSettingsAddress("https://a.example/b/1", {entry("tg", 1.5f)}), "https://a.example/b/1/?tg:1.5");
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST_F(SettingsAddressTest, WhatIsNoAddressIsRefused) {
    for (const char* text : {"", "   ", "hello", "/?tg:6", "tg:6", "mailto:a@b.example?tg:6", "https:///b/1/?tg:6"})
        EXPECT_EQ(refusalOf(text), "it is not a web address") << text;
}

TEST_F(SettingsAddressTest, APathWithoutProductAndVersionIsRefused) {
    for (const char* text : {"https://a.example/?tg:6", "https://a.example?tg:6", "https://a.example/slantwise?tg:6",
                             "https://a.example/slantwise/?tg:6"})
        EXPECT_EQ(refusalOf(text), "it names no product and version") << text;
    EXPECT_THAT(entriesOf("https://a.example/slantwise/2.0.1?tg:6"), ElementsAre(entry("tg", 6.0f)));
    EXPECT_THAT(entriesOf("ftp://a.example/slantwise/2.0.1?tg:6"), ElementsAre(entry("tg", 6.0f)));
}

TEST_F(SettingsAddressTest, AnAddressWithoutAQueryHasNoEntries) {
    const auto result = readSettingsAddress("https://maker.example/product/2.0.1/", *config_);
    ASSERT_TRUE(std::holds_alternative<SettingsAddress>(result));
    EXPECT_THAT(std::get<SettingsAddress>(result).entries, IsEmpty());
}

TEST_F(SettingsAddressTest, TheProductNeedNotBeThisOne) {
    const auto result = readSettingsAddress("https://other.example/echo/1.2/more/?tg:6", *config_);
    const auto& address = std::get<SettingsAddress>(result);
    EXPECT_EQ(address.slug, "echo");
    EXPECT_EQ(address.version, "1.2");
    EXPECT_THAT(address.entries, ElementsAre(entry("tg", 6.0f))); // not renamed for being a version 1
    EXPECT_EQ(address.entryFor("tg")->value, 6.0f);
    EXPECT_EQ(address.entryFor("trl"), nullptr);
}

TEST_F(SettingsAddressTest, BlanksAroundAnAddressDoNotCount) {
    EXPECT_THAT(entriesOf(" \n" + base + "tg:6\r\n"), ElementsAre(entry("tg", 6.0f)));
    EXPECT_EQ(refusalOf(base + "tg:6\n/trl:50"), "it is not a web address");
}

TEST_F(SettingsAddressTest, TheLengthIsBounded) {
    const std::string longest = base + std::string(longestSettingsAddress - base.size(), 'a');
    EXPECT_EQ(refusalOf(longest), "");
    EXPECT_EQ(refusalOf(longest + "a"), "it is longer than 4096 bytes");
    EXPECT_EQ(refusalOf(base + std::string(1 << 20, '/')), "it is longer than 4096 bytes");
    EXPECT_EQ(refusalOf(std::string(1 << 20, ' ')), "it is not a web address");
}

TEST_F(SettingsAddressTest, ValuesStayWithinTheRangeAndAreElseAsTheyStand) {
    const auto valueFor = [](std::uint32_t pid, float value) { return settingsValueFor(*GetParameter(pid), value); };
    EXPECT_EQ(valueFor(1, 99), 18);
    EXPECT_EQ(valueFor(1, -99), -18);
    EXPECT_EQ(valueFor(1, 4.53f), 4.53f);
    EXPECT_EQ(valueFor(2, 0), 10);
    EXPECT_EQ(valueFor(2, 3e38f), 24000);
    EXPECT_EQ(valueFor(6, 2.7f), 2.7f);
    EXPECT_EQ(valueFor(6, 70), 3);
    EXPECT_EQ(valueFor(13, 0.3f), 0.3f);
    EXPECT_EQ(valueFor(13, -5), 0);
    EXPECT_EQ(valueFor(13, 7), 1);
    EXPECT_EQ(valueFor(4, 0), 0); // begins below its own range
}

TEST_F(SettingsAddressTest, TheBaseIsSiteSlugAndVersion) {
    EXPECT_EQ(settingsBaseAddress("https://maker.example", *GetMetadata()), "https://maker.example/slantwise/2.0.1");
}

TEST_F(SettingsAddressTest, TheKeyIsTheMinimalNameIfThereIsOne) {
    QVMParameter parameter = *GetParameter(pidTiltGain);
    EXPECT_EQ(settingsKeyFor(parameter), "tg");
    parameter.minimalName.clear();
    EXPECT_EQ(settingsKeyFor(parameter), "TiltGain");
}

TEST_F(SettingsAddressTest, NumbersAreWrittenWithUpToSevenDigits) {
    const auto text = [](float value) { return writeSettingsAddress("", {{"k", value}}).substr(4); };
    EXPECT_EQ(text(1000), "1000");
    EXPECT_EQ(text(2.5f), "2.5");
    EXPECT_EQ(text(1 / 3.0f), "0.3333333");
    EXPECT_EQ(text(-6), "-6");
    EXPECT_EQ(text(1e-5f), "1e-05");
    EXPECT_EQ(text(12345678), "1.234568e+07");
}

TEST_F(SettingsAddressTest, NoEntriesAreNothingBehindTheQuestionMark) {
    EXPECT_EQ(writeSettingsAddress("https://a.example/b/1", {}), "https://a.example/b/1/?");
}

TEST_F(SettingsAddressTest, WhatIsWrittenReadsBack) {
    std::mt19937 random(5);
    for (int round = 0; round < 5000; ++round) {
        std::vector<SettingsEntry> entries;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            const QVMParameter& parameter = *GetParameter(pid);
            if (random() % 3 == 0) continue;
            std::uniform_real_distribution<float> values(parameter.minValue, parameter.maxValue);
            const std::optional<float> value = random() % 9 == 0 ? std::nullopt : std::optional(values(random));
            entries.push_back({random() % 2 ? parameter.codesafeName : parameter.minimalName, value});
        }
        const std::string address = writeSettingsAddress("https://maker.example/product/2.0.1", entries);
        ASSERT_LT(address.size(), longestSettingsAddress / 5);
        const std::vector<SettingsEntry> read = entriesOf(address);
        ASSERT_EQ(read.size(), entries.size()) << address;
        for (std::size_t i = 0; i < read.size(); ++i) {
            ASSERT_EQ(read[i].key, entries[i].key);
            ASSERT_EQ(read[i].value.has_value(), entries[i].value.has_value());
            if (!read[i].value) continue;
            const float value = *entries[i].value;
            ASSERT_NEAR(*read[i].value, value, std::abs(value) * 6e-7f) << address; // seven digits
        }
        // Written again it is the same to the letter.
        ASSERT_EQ(writeSettingsAddress("https://maker.example/product/2.0.1", read), address);
    }
}

TEST_F(SettingsAddressTest, CutShortAnywhereItIsRefusedOrReadAsFarAsItGoes) {
    const std::string whole = base + "tg:6.5/TiltRangeLow:x/trh:12000/frl:1e3/out%3A-6";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto result = readSettingsAddress(whole.substr(0, length), *config_);
        const auto* refusal = std::get_if<SettingsRefusal>(&result);
        EXPECT_TRUE(refusal || length > base.find("2.0.1")) << length; // by then there are a product and a version
        EXPECT_TRUE(!refusal || !refusal->text().empty());
    }
}

} // namespace
} // namespace QVM_NAMESPACE
