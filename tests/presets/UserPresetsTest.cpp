#include "presets/UserPresets.h"

#include "description/Description.h"
#include "presets/MemoryPresetStore.h"
#include "presets/PresetFolder.h"
#include "support/ScopedFolder.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Status = PresetOutcome::Status;

constexpr const char* base = "https://maker.example/slantwise/2.0.1";

std::vector<SettingsEntry> tilt(float gain) {
    return {{"tg", gain}};
}

// In memory and in a folder alike.
class UserPresetsTest : public testing::TestWithParam<bool> {
protected:
    UserPresetsTest() { presets_.setStore(&store()); }
    PresetStore& store() { return GetParam() ? static_cast<PresetStore&>(folder_) : memory_; }
    void put(const std::string& fileName, const std::string& text) {
        ASSERT_FALSE(store().write(fileName + ".slantwise-preset", text, ExistingFile::replace));
    }
    static std::string text(const std::string& name, float gain = 1) {
        return writePresetText({name, "", tilt(gain)}, base);
    }
    std::vector<std::string> names() {
        presets_.refresh();
        std::vector<std::string> found;
        for (const UserPresetEntry& entry : presets_.entries())
            found.push_back(entry.preset.name + (entry.problem.empty() ? "" : " (" + entry.problem + ")"));
        return found;
    }

    const std::unique_ptr<QVMConfig> config_ = QVMConfig::inlinedConfig();
    const slantwise_tests::ScopedFolder place_;
    MemoryPresetStore memory_;
    PresetFolder folder_{place_.path() / "presets"};
    UserPresets presets_{*config_, base};
};

INSTANTIATE_TEST_SUITE_P(Kept, UserPresetsTest, testing::Values(false, true),
                         [](const auto& each) { return each.param ? "InAFolder" : "InMemory"; });

TEST_P(UserPresetsTest, WhatIsSavedIsListedByName) {
    EXPECT_THAT(names(), IsEmpty());
    for (const char* name : {"warm", "Bright", "Zero", "bright", "A/B", "Ärger"})
        EXPECT_EQ(presets_.save(name, tilt(2), ExistingFile::keep).status, Status::done) << name;
    EXPECT_THAT(names(), ElementsAre("A/B", "Bright", "bright", "warm", "Zero", "Ärger"));
    ASSERT_TRUE(presets_.find("warm"));
    EXPECT_EQ(presets_.find("warm")->preset.settings, tilt(2));
    EXPECT_FALSE(presets_.find("Warm"));
}

TEST_P(UserPresetsTest, ANameThatIsTakenAsksAndIsReplacedWithItsNoteKept) {
    put("mine", writePresetText({"Warm", "by hand", tilt(1)}, base));
    EXPECT_EQ(presets_.save("Warm", tilt(2), ExistingFile::keep).status, Status::nameTaken)
        << "whatever its file is called";
    EXPECT_EQ(presets_.find("Warm")->preset.settings, tilt(1));
    EXPECT_EQ(presets_.save("Warm", tilt(2), ExistingFile::replace).status, Status::done);
    EXPECT_THAT(names(), ElementsAre("Warm"));
    EXPECT_EQ(presets_.find("Warm")->preset, (UserPreset{"Warm", "by hand", tilt(2)}));
    EXPECT_EQ(presets_.find("Warm")->fileName, "mine.slantwise-preset");
}

TEST_P(UserPresetsTest, NothingIsSavedUnderAFactoryName) {
    const std::string factory = config_->presets->stringValues.at(1);
    for (const std::string& name : {factory, std::string("default")}) {
        const PresetOutcome outcome = presets_.save(name, tilt(2), ExistingFile::replace);
        EXPECT_EQ(outcome.status, Status::failed) << name;
        EXPECT_EQ(outcome.reason, "a factory preset has this name");
    }
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(presets_.save(factory + " 2", tilt(2), ExistingFile::keep).status, Status::done);
}

TEST_P(UserPresetsTest, ADamagedFileThatHasTheNameCountsAsTaken) {
    put("Warm", "half of a pres");
    EXPECT_THAT(names(), ElementsAre("Warm (not a preset)"));
    EXPECT_EQ(presets_.save("Warm", tilt(2), ExistingFile::keep).status, Status::nameTaken);
    EXPECT_THAT(names(), ElementsAre("Warm (not a preset)"));
}

TEST_P(UserPresetsTest, WhatIsDamagedIsListedWithTheReasonAndNotFound) {
    put("Broken", "Slantwise preset 1\nName: Broken\nSettings: https://a.example/s/2/?tg:much\n");
    put("Warm", text("Warm"));
    put("Warm (copy)", text("Warm", 3));
    EXPECT_THAT(names(),
                ElementsAre("Broken (settings: \"tg\" has no number)", "Warm", "Warm (another file has this name)"));
    EXPECT_FALSE(presets_.find("Broken"));
    EXPECT_EQ(presets_.find("Warm")->preset.settings, tilt(1)) << "the one whose file is called so";
}

TEST_P(UserPresetsTest, WhatIsRemovedComesBackOnceAsItWas) {
    put("mine", writePresetText({"Warm", "by hand", tilt(1)}, base));
    EXPECT_FALSE(presets_.removed());
    EXPECT_EQ(presets_.remove("Warm").status, Status::done);
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(presets_.removed(), "Warm");
    EXPECT_EQ(presets_.putBack().status, Status::done);
    EXPECT_EQ(presets_.find("Warm")->preset, (UserPreset{"Warm", "by hand", tilt(1)}));
    EXPECT_FALSE(presets_.removed());
    EXPECT_EQ(presets_.putBack().status, Status::failed);
}

TEST_P(UserPresetsTest, WhatIsRemovedDoesNotComeBackOverAnother) {
    ASSERT_EQ(presets_.save("Warm", tilt(1), ExistingFile::keep).status, Status::done);
    ASSERT_EQ(presets_.remove("Warm").status, Status::done);
    ASSERT_EQ(presets_.save("Warm", tilt(2), ExistingFile::keep).status, Status::done);
    EXPECT_EQ(presets_.putBack().status, Status::nameTaken);
    EXPECT_EQ(presets_.find("Warm")->preset.settings, tilt(2));
    EXPECT_EQ(presets_.removed(), "Warm") << "it is not lost";
}

TEST_P(UserPresetsTest, ADamagedOneIsRemovedByItsFileAndComesBackAsItWas) {
    put("Warm", text("Warm"));
    put("Warm (copy)", text("Warm", 3));
    put("Broken", "half of");
    EXPECT_EQ(presets_.removeDamaged("Warm (copy).slantwise-preset").status, Status::done);
    EXPECT_THAT(names(), ElementsAre("Broken (not a preset)", "Warm"));
    EXPECT_EQ(presets_.putBack().status, Status::done) << "a sound one of this name is no obstacle";
    EXPECT_THAT(names(), ElementsAre("Broken (not a preset)", "Warm", "Warm (another file has this name)"));
    EXPECT_EQ(presets_.removeDamaged("Broken.slantwise-preset").status, Status::done);
    EXPECT_EQ(presets_.removed(), "Broken");
    EXPECT_EQ(presets_.putBack().status, Status::done);
    EXPECT_THAT(names(), ElementsAre("Broken (not a preset)", "Warm", "Warm (another file has this name)"));
}

TEST_P(UserPresetsTest, WhatIsSoundIsNotRemovedAsDamaged) {
    put("Warm", text("Warm"));
    EXPECT_EQ(presets_.removeDamaged("Warm.slantwise-preset").reason, "its file is gone");
    EXPECT_THAT(names(), ElementsAre("Warm"));
}

TEST(UserPresets, WhatCannotBeReadIsNotRemoved) {
    const auto config = QVMConfig::inlinedConfig();
    MemoryPresetStore store;
    store.files[store.unreadable = "Locked.slantwise-preset"] = "";
    UserPresets presets(*config, base);
    presets.setStore(&store);
    EXPECT_EQ(presets.removeDamaged(store.unreadable).status, Status::failed);
    EXPECT_EQ(store.files.size(), 1u);
    EXPECT_FALSE(presets.removed());
}

TEST_P(UserPresetsTest, AFileThatIsGoneCannotBeRemoved) {
    put("Warm", text("Warm"));
    presets_.refresh();
    ASSERT_FALSE(store().remove("Warm.slantwise-preset"));
    EXPECT_EQ(presets_.remove("Warm").reason, "its file is gone");
}

TEST_P(UserPresetsTest, ANameThatCannotBeUsedIsRefused) {
    for (const char* name : {"", " ", "a\nb"})
        EXPECT_EQ(presets_.save(name, tilt(1), ExistingFile::keep).status, Status::failed);
    EXPECT_THAT(names(), IsEmpty());
}

TEST_P(UserPresetsTest, TwoListsOfOneStoreSeeEachOther) {
    UserPresets other(*config_, base);
    other.setStore(&store());
    ASSERT_EQ(presets_.save("Warm", tilt(1), ExistingFile::keep).status, Status::done);
    EXPECT_EQ(other.save("Warm", tilt(2), ExistingFile::keep).status, Status::nameTaken);
    EXPECT_EQ(other.find("Warm")->preset.settings, tilt(1));
}

TEST(UserPresets, WhatTheDiskRefusesIsTold) {
    const auto config = QVMConfig::inlinedConfig();
    MemoryPresetStore store;
    UserPresets presets(*config, base);
    presets.setStore(&store);
    ASSERT_EQ(presets.save("Warm", tilt(1), ExistingFile::keep).status, Status::done);
    store.fault = std::make_error_code(std::errc::no_space_on_device);
    EXPECT_EQ(presets.save("Bright", tilt(1), ExistingFile::keep).reason, store.fault.message());
    EXPECT_EQ(presets.remove("Warm").status, Status::failed);
    EXPECT_FALSE(presets.removed());
    EXPECT_TRUE(presets.find("Warm"));
}

TEST(UserPresets, WithoutAStoreThereAreNoneAndNobodyIsAsked) {
    const auto config = QVMConfig::inlinedConfig();
    UserPresets presets(*config, base);
    presets.refresh();
    EXPECT_TRUE(presets.entries().empty());
    EXPECT_EQ(presets.save("Warm", tilt(1), ExistingFile::keep).status, Status::failed);
    EXPECT_EQ(presets.remove("Warm").status, Status::failed);
    EXPECT_EQ(presets.putBack().status, Status::failed);
}

} // namespace
} // namespace QVM_NAMESPACE
