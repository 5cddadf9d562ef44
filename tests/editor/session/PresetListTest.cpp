#include "editor/session/PresetList.h"

#include "description/Description.h"
#include "description/ParameterIDs.h"
#include "presets/MemoryPresetStore.h"
#include "presets/PresetName.h"

#include <gmock/gmock.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

class PresetListTest : public testing::Test {
protected:
    PresetListTest() { list_.user().setStore(&store_); }
    void put(const std::string& name, const std::string& query) {
        store_.files[presetFileName(name)] =
            "Slantwise preset 1\nName: " + name + "\nSettings: https://a.example/s/2/?" + query + "\n";
    }
    std::vector<std::string> walk(std::uint32_t from, bool forward, int steps) {
        std::vector<std::string> names;
        for (int i = 0; i < steps; ++i)
            names.push_back(list_.nameOf(from = list_.following(from, forward)));
        return names;
    }

    const std::unique_ptr<QVMConfig> config_ = QVMConfig::inlinedConfig();
    MemoryPresetStore store_;
    PresetList list_{*config_};
};

TEST_F(PresetListTest, TheFactorysComeFirstAndTheOneBehindThemIsNone) {
    EXPECT_EQ(list_.factoryCount(), 23u);
    EXPECT_EQ(list_.nameOf(22), "Cellphone");
    EXPECT_EQ(list_.nameOf(23), "N/A");
    EXPECT_EQ(list_.indexOfSaved("Air"), 8u);
    EXPECT_EQ(list_.indexOfSaved("Nothing of the kind"), 23u);
    EXPECT_EQ(list_.savedName(23), "N/A");
    EXPECT_EQ(list_.indexOfSaved("N/A"), 23u);
    EXPECT_FALSE(list_.isKnown(24));
}

TEST_F(PresetListTest, ANameOfTheUsersKeepsItsIndexWhateverBecomesOfItsFile) {
    const std::uint32_t warm = list_.indexOfUsers("Warm"), bright = list_.indexOfUsers("Bright");
    EXPECT_NE(warm, bright);
    EXPECT_GT(warm, list_.noPreset());
    EXPECT_EQ(list_.indexOfUsers("Warm"), warm);
    EXPECT_EQ(list_.nameOf(warm), "Warm");
    EXPECT_TRUE(list_.isUsers(warm) && list_.isKnown(warm));
}

TEST_F(PresetListTest, WhatASessionKeepsTellsTheUsersFromTheFactorys) {
    const std::uint32_t mine = list_.indexOfUsers("Default");
    EXPECT_EQ(list_.savedName(mine), "User: Default");
    EXPECT_EQ(list_.savedName(0), "Default");
    EXPECT_EQ(list_.indexOfSaved("User: Default"), mine);
    EXPECT_EQ(list_.indexOfSaved("Default"), 0u);
    PresetList another(*config_);
    EXPECT_EQ(another.nameOf(another.indexOfSaved("User: Never seen")), "Never seen");
    EXPECT_EQ(store_.readings, 0) << "a name is shown without a look at the files";
}

TEST_F(PresetListTest, WhatIsNoNameIsNoPreset) {
    for (const std::string& saved : {std::string("User: "), std::string("User: a\nb"), "User: " + std::string(49, 'x')})
        EXPECT_EQ(list_.indexOfSaved(saved), list_.noPreset()) << saved;
}

TEST_F(PresetListTest, ValuesAreThoseOfTheFileAndInitialOnesInPidOrder) {
    put("Warm", "tg:4.5/trl:120/hq:0");
    const auto values = list_.valuesOf(list_.indexOfUsers("Warm"));
    ASSERT_TRUE(values);
    ASSERT_EQ(values->size(), 23u) << "the wildcard has none";
    EXPECT_EQ((*values)[pidTiltGain], 4.5f);
    EXPECT_EQ((*values)[pidTiltRangeLow], 120);
    EXPECT_EQ((*values)[pidMasterOnOff], 1);
    EXPECT_EQ((*values)[pidFilterRangeLow], GetParameter(pidFilterRangeLow)->initialValue);
}

TEST_F(PresetListTest, AValueBeyondTheRangeIsItsEndAndOneLeftAloneIsNoNumber) {
    put("Far", "tg:900/trl:x");
    const auto values = list_.valuesOf(list_.indexOfUsers("Far"));
    ASSERT_TRUE(values);
    EXPECT_EQ((*values)[pidTiltGain], GetParameter(pidTiltGain)->maxValue);
    EXPECT_TRUE(std::isnan((*values)[pidTiltRangeLow]));
}

TEST_F(PresetListTest, WhatCannotBeReadHasNoValuesAndAReason) {
    store_.files["Broken.slantwise-preset"] = "half of";
    EXPECT_FALSE(list_.valuesOf(list_.indexOfUsers("Broken")));
    EXPECT_EQ(list_.reasonAgainst(list_.indexOfUsers("Broken")), "not a preset");
    EXPECT_FALSE(list_.valuesOf(list_.indexOfUsers("Gone")));
    EXPECT_EQ(list_.reasonAgainst(list_.indexOfUsers("Gone")), "its file is gone");
}

TEST_F(PresetListTest, TheWalkGoesOnWithTheUsersByNameAndLeavesOutWhatIsDamaged) {
    put("warm", "tg:1");
    put("Bright", "tg:2");
    store_.files["C.slantwise-preset"] = "half of";
    EXPECT_THAT(walk(21, true, 4), ElementsAre("Cellphone", "Bright", "warm", "Default"));
    EXPECT_THAT(walk(1, false, 4), ElementsAre("Default", "warm", "Bright", "Cellphone"));
}

TEST_F(PresetListTest, TheWalkAmongTheFactorysLooksAtNoFile) {
    put("Warm", "tg:1");
    walk(3, true, 5);
    walk(8, false, 5);
    EXPECT_EQ(store_.readings, 0);
}

TEST_F(PresetListTest, WithoutAnyOfTheUsersTheWalkIsAsEver) {
    EXPECT_THAT(walk(21, true, 2), ElementsAre("Cellphone", "Default"));
    EXPECT_THAT(walk(0, false, 1), ElementsAre("Cellphone"));
}

TEST_F(PresetListTest, FromWhatIsGoneTheWalkGoesBackToTheFactorys) {
    put("Warm", "tg:1");
    const std::uint32_t gone = list_.indexOfUsers("Gone");
    EXPECT_EQ(list_.following(gone, true), 0u);
    EXPECT_EQ(list_.following(gone, false), 22u);
    EXPECT_EQ(list_.following(list_.noPreset(), true), 0u);
    EXPECT_EQ(list_.following(list_.noPreset(), false), 22u);
}

TEST_F(PresetListTest, WhatAnotherWroteSinceIsOnTheWay) {
    EXPECT_THAT(walk(22, true, 1), ElementsAre("Default"));
    put("Warm", "tg:1");
    EXPECT_THAT(walk(22, true, 2), ElementsAre("Warm", "Default"));
}

} // namespace
} // namespace QVM_NAMESPACE
