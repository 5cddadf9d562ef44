#include "presets/PresetByName.h"

#include "description/Description.h"
#include "presets/OwnPresetFile.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

TEST(PresetByName, FindsTheFactorys) {
    const auto& names = GetPresets()->stringValues;
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(presetByName(names[i]).factoryIndex, static_cast<int>(i)) << names[i];
}

TEST(PresetByName, FindsTheUsers) {
    writeOwnPreset("Warm voice", "tg:4.5");
    const PresetByName found = presetByName("Warm voice");
    EXPECT_FALSE(found.factoryIndex);
    ASSERT_TRUE(found.own);
    EXPECT_EQ(found.own->settings, (std::vector<SettingsEntry>{{"tg", 4.5f}}));
}

TEST(PresetByName, OneCalledAsTheFactorysIsFoundByTheNameThatASessionKeeps) {
    writeOwnPreset("Air", "tg:1");
    EXPECT_TRUE(presetByName("Air").factoryIndex);
    ASSERT_TRUE(presetByName("User: Air").own);
    EXPECT_EQ(presetByName("User: Air").own->name, "Air");
}

TEST(PresetByName, SaysWhyOneCannotBeRead) {
    writeOwnPresetFile("Broken", "half of");
    const PresetByName found = presetByName("Broken");
    EXPECT_FALSE(found.factoryIndex || found.own);
    EXPECT_EQ(found.problem, "the preset \"Broken\" cannot be read: not a preset");
}

TEST(PresetByName, NothingHasAnotherName) {
    const PresetByName found = presetByName("Nope");
    EXPECT_FALSE(found.factoryIndex || found.own);
    EXPECT_EQ(found.problem, "");
}

TEST(PresetByName, TheNamesAreThoseThatAreFound) {
    writeOwnPreset("Warm voice", "tg:4.5");
    writeOwnPresetFile("Broken", "half of");
    const std::vector<std::string> names = presetNames();
    EXPECT_EQ(names.size(), GetPresets()->stringValues.size() + 1);
    EXPECT_EQ(names.back(), "Warm voice");
}

} // namespace
} // namespace QVM_NAMESPACE
