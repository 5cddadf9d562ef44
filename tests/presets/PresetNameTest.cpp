#include "presets/PresetName.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace QVM_NAMESPACE {
namespace {

const std::string longest(longestPresetName, 'x');

TEST(PresetName, IsALineWithSomethingToBeSeenInIt) {
    for (const std::string name : {"Warm", "1", "Warm voice", "A/B", "..", "Wärme für Ä", "\xF0\x9F\x8E\xB8", "100 %"})
        EXPECT_TRUE(isPresetName(name)) << name;
    EXPECT_TRUE(isPresetName(longest));
}

TEST(PresetName, IsNothingThatCannotBeSeenTypedOrKept) {
    for (const std::string& name :
         {std::string(), std::string(" "), std::string(" Warm"), std::string("Warm "), std::string("Wa\nrm"),
          std::string("Wa\trm"), std::string("Wa\0rm", 5), std::string("Wa\x7Frm"), std::string("\xE2\x80\xAEWarm"),
          std::string("W\xE4rme"), std::string("\xC2\xA0"), longest + "x"})
        EXPECT_FALSE(isPresetName(name)) << name;
}

TEST(PresetName, OfWhatIsTypedIsTheNearestThatCanBeUsed) {
    EXPECT_EQ(presetNameFrom("  Warm  "), "Warm");
    EXPECT_EQ(presetNameFrom("\n\nWarm\nand more"), "Warm");
    EXPECT_EQ(presetNameFrom("Warm\r\nand more"), "Warm");
    EXPECT_EQ(presetNameFrom("Wa\trm\x01"), "Wa rm");
    EXPECT_EQ(presetNameFrom("W\xE4rme"), "Wrme") << "broken bytes";
    EXPECT_EQ(presetNameFrom(longest + "yz"), longest);
    EXPECT_EQ(presetNameFrom(std::string(longestPresetName - 1, 'x') + " y"), longest.substr(1))
        << "no blank at the end";
    EXPECT_EQ(presetNameFrom(" \n "), "");
}

TEST(PresetName, WhateverIsTypedWhatComesOfItIsANameOrNothing) {
    for (int first = 0; first < 256; ++first) {
        for (const int second : {0, 9, 10, 32, 0x80, 0xA8, 0xBB, 0xFF}) {
            const std::string name =
                presetNameFrom(std::string{char(first), char(second), 'a', char(second), char(first)});
            EXPECT_TRUE(name.empty() || isPresetName(name)) << first << " " << second;
        }
    }
}

TEST(PresetName, NamesAFileThatNoFolderOrShellTakesAmiss) {
    EXPECT_EQ(presetFileName("Warm voice"), "Warm voice.slantwise-preset");
    EXPECT_EQ(presetFileName("A/B"), "A%2FB.slantwise-preset");
    EXPECT_EQ(presetFileName(".."), "%2E..slantwise-preset");
    EXPECT_EQ(presetFileName("../../etc"), "%2E.%2F..%2Fetc.slantwise-preset");
    EXPECT_EQ(presetFileName("Wärme"), "Wärme.slantwise-preset");
}

TEST(PresetName, TheLongestHasAFileToo) {
    std::string name;
    for (std::size_t i = 0; i < longestPresetName; ++i)
        name += "\xF0\x9F\x8E\xB8";
    ASSERT_TRUE(isPresetName(name));
    EXPECT_LE(presetFileName(name).size(), 255u);
    EXPECT_LE(presetFileName(std::string(longestPresetName, '/')).size(), 255u);
}

TEST(PresetName, TwoNamesNeverShareAFile) {
    std::set<std::string> files;
    const std::string letters = "a/%.2F?E";
    for (const char a : letters)
        for (const char b : letters)
            for (const char c : letters)
                files.insert(presetFileName(std::string{a, b, c}));
    EXPECT_EQ(files.size(), letters.size() * letters.size() * letters.size());
}

TEST(PresetName, OfAFileThatCannotBeReadIsForTheEye) {
    EXPECT_EQ(nameFromPresetFile("A%2FB.slantwise-preset"), "A/B");
    EXPECT_EQ(nameFromPresetFile("100 %.slantwise-preset"), "100 %");
    EXPECT_EQ(nameFromPresetFile("%0A.slantwise-preset"), "?");
    EXPECT_EQ(nameFromPresetFile("W\xE4rme.slantwise-preset"), "Wrme");
}

TEST(PresetName, EscapedMarksAreGoneAndComeBack) {
    EXPECT_EQ(withEscapes("a;b%c", ";"), "a%3Bb%25c");
    EXPECT_EQ(withoutEscapes("a%3Bb%25c"), "a;b%c");
    EXPECT_EQ(withoutEscapes("100 % and %zz"), "100 % and %zz");
}

TEST(PresetName, ThatASessionKeepsSaysWhoseThePresetIs) {
    EXPECT_EQ(savedUsersName("Warm: voice"), "User: Warm: voice");
    EXPECT_EQ(usersNameIn("User: Warm: voice"), "Warm: voice");
    EXPECT_EQ(usersNameIn("User: "), "");
    for (const char* other : {"", "Air", "User:", "user: Warm"})
        EXPECT_EQ(usersNameIn(other), std::nullopt) << other;
}

} // namespace
} // namespace QVM_NAMESPACE
