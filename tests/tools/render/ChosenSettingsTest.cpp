#include "tools/render/ChosenSettings.h"

#include "description/Description.h"
#include "presets/OwnPresetFile.h"
#include "unit/QVM0015_AudioUnit.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

float valueIn(const QVM0015_AudioUnit& unit, AudioUnitParameterID pid) {
    float value = -1000;
    unit.getParameter(pid, kAudioUnitScope_Global, 0, &value);
    return value;
}

TEST(ChosenSettings, TakesAPresetByNameOrByNumberFromOne) {
    const auto& names = GetPresets()->stringValues;
    ChosenSettings settings;
    EXPECT_EQ(settings.choosePreset(names[4]), "");
    EXPECT_EQ(settings.presetIndex, 4);
    EXPECT_EQ(settings.choosePreset("1"), "");
    EXPECT_EQ(settings.presetIndex, 0);
    EXPECT_EQ(settings.choosePreset(std::to_string(names.size())), "");
    EXPECT_EQ(settings.presetIndex, static_cast<int>(names.size()) - 1);
}

TEST(ChosenSettings, SaysWhichPresetsThereAre) {
    ChosenSettings settings;
    for (const char* number : {"0", "24"})
        EXPECT_EQ(settings.choosePreset(number),
                  "--preset takes a name or a number from 1 to 23, not \"" + std::string(number) + "\"");
    EXPECT_EQ(settings.choosePreset("Aire"), "there is no preset named \"Aire\"; the nearest is \"Air\"");
    EXPECT_FALSE(settings.presetIndex);
}

TEST(ChosenSettings, APresetReachesTheUnit) {
    ChosenSettings settings;
    ASSERT_EQ(settings.choosePreset("Air"), "");
    QVM0015_AudioUnit unit, expected;
    settings.applyTo(unit);
    expected.choosePreset(*settings.presetIndex);
    EXPECT_EQ(unit.saveState(), expected.saveState());
    EXPECT_NE(unit.saveState(), QVM0015_AudioUnit().saveState());
}

TEST(ChosenSettings, AnAddressReachesTheUnitAlsoCutDown) {
    QVM0015_AudioUnit whole, cutDown;
    ChosenSettings settings;
    ASSERT_EQ(settings.chooseAddress("/?tg:4.5/out:-6"), "");
    settings.applyTo(cutDown);
    ASSERT_EQ(settings.chooseAddress("https://a.example/slantwise/2/?tg:4.5/out:-6"), "");
    settings.applyTo(whole);
    EXPECT_EQ(valueIn(cutDown, pidTiltGain), 4.5f);
    EXPECT_EQ(valueIn(cutDown, pidOutputGain), -6);
    EXPECT_EQ(whole.saveState(), cutDown.saveState());
}

TEST(ChosenSettings, WhatAnAddressLeavesAloneStays) {
    ChosenSettings settings;
    ASSERT_EQ(settings.chooseAddress("/?tg:x"), "");
    QVM0015_AudioUnit unit;
    settings.applyTo(unit);
    EXPECT_EQ(unit.saveState(), QVM0015_AudioUnit().saveState());
}

TEST(ChosenSettings, SaysWhyAnAddressIsNone) {
    ChosenSettings settings;
    EXPECT_THAT(settings.chooseAddress("tg:4"), testing::StartsWith("cannot read the settings: "));
    EXPECT_EQ(settings.address, "");
}

TEST(ChosenSettings, TheListHasALineForEveryPreset) {
    const std::string list = presetList();
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 23);
    EXPECT_THAT(list, testing::HasSubstr("  " + GetPresets()->stringValues[22] + "\n"));
    EXPECT_THAT(list, testing::StartsWith(" 1  " + GetPresets()->stringValues[0] + "\n"));
}

TEST(ChosenSettings, AUsersPresetSoundsAsItsAddressDoes) {
    writeOwnPreset("Warm voice", "tg:4.5/trl:120/fsl:2");
    ChosenSettings named, addressed;
    ASSERT_EQ(named.choosePreset("Warm voice"), "");
    EXPECT_EQ(named.presetName(), "Warm voice");
    ASSERT_EQ(addressed.chooseAddress("/?tg:4.5/trl:120/fsl:2"), "");
    QVM0015_AudioUnit unit, expected;
    named.applyTo(unit);
    addressed.applyTo(expected);
    EXPECT_NE(valueIn(unit, pidTiltGain), valueIn(QVM0015_AudioUnit(), pidTiltGain));
    for (AudioUnitParameterID pid = 0; pid < QVMParameterCount; ++pid)
        EXPECT_EQ(valueIn(unit, pid), valueIn(expected, pid)) << pid;
}

TEST(ChosenSettings, TheLastPresetNamedCounts) {
    writeOwnPreset("Warm voice", "tg:4.5");
    ChosenSettings settings;
    ASSERT_EQ(settings.choosePreset("Warm voice"), "");
    ASSERT_EQ(settings.choosePreset("1"), "");
    EXPECT_EQ(settings.presetName(), GetPresets()->stringValues[0]);
    EXPECT_FALSE(settings.own);
    ASSERT_EQ(settings.choosePreset("Warm voice"), "");
    EXPECT_FALSE(settings.presetIndex);
}

TEST(ChosenSettings, SaysWhatIsWrongWithAUsersPreset) {
    writeOwnPresetFile("Broken", "half of");
    ChosenSettings settings;
    EXPECT_EQ(settings.choosePreset("Broken"), "the preset \"Broken\" cannot be read: not a preset");
}

TEST(ChosenSettings, TheListEndsWithTheUsers) {
    writeOwnPreset("Warm voice", "tg:4.5");
    writeOwnPresetFile("Broken", "half of");
    EXPECT_THAT(presetList(), testing::EndsWith("\n    Broken (not a preset)\n    Warm voice\n"));
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
