#include "unit/UnitSettings.h"

#include "description/Description.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

class UnitSettingsTest : public testing::Test {
protected:
    SavedSettings initial{.presetName = "Default", .abState = 1, .abSettings = "a=1", .uiState = 7};
    UnitSettings settings{initial};
};

TEST_F(UnitSettingsTest, HoldsWhatItWasMadeWith) {
    EXPECT_EQ(settings.saved(), initial);
    EXPECT_EQ(settings.presetIndex(), 0);
    EXPECT_EQ(settings.uiState(), 7u);
    EXPECT_FALSE(settings.interfacePreference());
    EXPECT_EQ(settings.bufferPath(), "");
}

TEST_F(UnitSettingsTest, CountsHowOftenItWasRestored) {
    const std::uint32_t before = settings.restoreCount();
    SavedSettings other;
    other.presetName = "Air";
    settings.restore(other);
    EXPECT_EQ(settings.restoreCount(), before + 1);
    EXPECT_EQ(settings.presetIndex(), 8);
    EXPECT_EQ(settings.abRecord().state, QVMABRecord::nothingSaved);
}

TEST_F(UnitSettingsTest, ANumberNamesThePresetUntilItIsNamedAnew) {
    settings.choosePreset(8);
    EXPECT_EQ(*settings.presetName(), "Air");
    EXPECT_EQ(settings.saved().presetName, "Air");
    const std::string mine = "Something of my own";
    EXPECT_EQ(settings.setPresetName(&mine), noErr);
    EXPECT_EQ(settings.presetIndex(), -1);
    EXPECT_EQ(*settings.presetName(), mine);
}

TEST_F(UnitSettingsTest, TextsThatWereHandedOutStayAsTheyWere) {
    const std::string* const name = settings.presetName();
    const QVMABRecord record = settings.abRecord();
    SavedSettings other;
    other.presetName = "Air";
    other.abSettings = "b=2";
    settings.restore(other);
    EXPECT_EQ(*name, "Default");
    EXPECT_EQ(*record.settings, "a=1");
}

TEST_F(UnitSettingsTest, TextsThatAreMissingOrTooLongChangeNothing) {
    const std::string longText(SavedSettings::maxTextBytes + 1, 'x');
    for (const std::string* text : {static_cast<const std::string*>(nullptr), &longText}) {
        EXPECT_EQ(settings.setPresetName(text), kAudioUnitErr_InvalidPropertyValue);
        EXPECT_EQ(settings.setBufferPath(text), kAudioUnitErr_InvalidPropertyValue);
    }
    EXPECT_EQ(settings.setABRecord({0, 0, &longText}), kAudioUnitErr_InvalidPropertyValue);
    EXPECT_EQ(settings.saved(), initial);
    EXPECT_EQ(settings.setABRecord({0, 0, nullptr}), noErr) << "only the A/B record may come without its text";
    EXPECT_EQ(settings.saved().abSettings, "");
}

// A number that one thread chooses while another stores a name must never be taken for that name's number.
TEST_F(UnitSettingsTest, ANameAndANumberFromTwoThreadsAreNeverMixed) {
    const std::string mine = "Something of my own";
    settings.choosePreset(8);
    std::atomic<bool> isDone = false;
    std::thread naming([&] {
        while (!isDone)
            settings.setPresetName(&mine);
    });
    std::thread choosing([&] {
        for (int i = 0; i < 20000; ++i) {
            settings.choosePreset(8);
            for (int pause = 0; pause < 500; ++pause) // or the next choice would make up for a lost one at once
                settings.presetIndex();
        }
        isDone = true;
    });
    int mixed = 0;
    while (!isDone) {
        const std::string name = settings.saved().presetName;
        mixed += name != mine && name != "Air";
    }
    naming.join();
    choosing.join();
    EXPECT_EQ(mixed, 0);
}

} // namespace
} // namespace QVM_NAMESPACE
