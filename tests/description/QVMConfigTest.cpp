#include "description/QVMConfig.h"

#include "description/Description.h"

#include <gmock/gmock.h>
#include <set>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QVMConfigTest : public testing::Test {
protected:
    std::vector<std::uint32_t> cidsOfTypes(std::int32_t types) const {
        std::vector<std::uint32_t> cids;
        config_->enumerateClumpsOfTypes(types, [&cids](QVMClump& clump) { cids.push_back(clump.cid); });
        return cids;
    }
    std::vector<std::uint32_t> cidsOfType(std::int32_t type) const {
        std::vector<std::uint32_t> cids;
        config_->enumerateClumpsOfType(type, [&cids](QVMClump& clump) { cids.push_back(clump.cid); });
        return cids;
    }

    std::unique_ptr<QVMConfig> config_ = QVMConfig::inlinedConfig();
};

TEST_F(QVMConfigTest, HoldsTheWholeDescription) {
    EXPECT_EQ(config_->numParameters, 24);
    EXPECT_EQ(config_->identifier, 0);
    EXPECT_EQ(config_->chanIn, 0u);
    EXPECT_EQ(config_->chanOut, 0u);
    EXPECT_EQ(config_->metadata, GetMetadata());
    EXPECT_EQ(config_->presets, GetPresets());
    EXPECT_TRUE(config_->categorizedPresets.empty());
    ASSERT_EQ(config_->clumps.size(), 5u);
    for (std::uint32_t cid = 0; cid < 5; ++cid)
        EXPECT_EQ(config_->clumps[cid]->cid, cid);
}

TEST_F(QVMConfigTest, TwoConfigurationsAreDistinctButShareEveryRecord) {
    const auto other = QVMConfig::inlinedConfig();
    EXPECT_NE(other.get(), config_.get());
    EXPECT_EQ(other->metadata, config_->metadata);
    EXPECT_EQ(other->presets, config_->presets);
    EXPECT_EQ(other->clumps, config_->clumps);
    for (std::size_t i = 0; i < other->clumps.size(); ++i) {
        EXPECT_EQ(other->clumps[i]->parameters, config_->clumps[i]->parameters);
    }
    other->chanIn = 2;
    EXPECT_EQ(config_->chanIn, 0u);
}

TEST_F(QVMConfigTest, PreferredSizeIsThatOfTheMetadata) {
    EXPECT_EQ(config_->preferredSize(), (QVMSize{480, 320}));
}

TEST_F(QVMConfigTest, AdvancedControlsAreThoseOfAnAdvancedClumpWhateverTheMetadataSays) {
    EXPECT_TRUE(config_->hasAdvancedControls());
    config_->clumps.pop_back();
    EXPECT_FALSE(config_->hasAdvancedControls());
    EXPECT_TRUE(config_->metadata->hasAdvancedControls);
}

TEST_F(QVMConfigTest, AllClumpsAreWalkedInOrder) {
    std::vector<std::uint32_t> cids;
    config_->enumerateClumpsWithBlock([&cids](QVMClump& clump) { cids.push_back(clump.cid); });
    EXPECT_THAT(cids, ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(QVMConfigTest, MaskOneVisitsOnlyTheAdvancedClumpAndMaskThreeTheMasterClumpToo) {
    EXPECT_THAT(cidsOfTypes(1), ElementsAre(4));
    EXPECT_THAT(cidsOfTypes(2), ElementsAre(0));
    EXPECT_THAT(cidsOfTypes(3), ElementsAre(0, 4));
}

TEST_F(QVMConfigTest, NoMaskVisitsAnOrdinaryClump) {
    EXPECT_THAT(cidsOfTypes(0), IsEmpty());
    EXPECT_THAT(cidsOfTypes(-1), ElementsAre(0, 4));
}

TEST_F(QVMConfigTest, OneTypeVisitsExactlyTheClumpsOfIt) {
    EXPECT_THAT(cidsOfType(0), ElementsAre(1, 2, 3));
    EXPECT_THAT(cidsOfType(1), ElementsAre(4));
    EXPECT_THAT(cidsOfType(2), ElementsAre(0));
    EXPECT_THAT(cidsOfType(3), IsEmpty());
    EXPECT_THAT(config_->clumpsOfType(0), ElementsAre(GetClump(1), GetClump(2), GetClump(3)));
}

TEST_F(QVMConfigTest, ParametersAreWalkedClumpByClumpWithTheirClump) {
    std::vector<std::uint32_t> pids;
    config_->enumerateParametersWithBlock([&pids](QVMParameter& parameter, QVMClump& clump) {
        EXPECT_EQ(parameter.clump, &clump);
        pids.push_back(parameter.pid);
    });
    EXPECT_THAT(pids,
                ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 20, 14, 15, 16, 17, 18, 19, 21, 22, 23));
}

TEST_F(QVMConfigTest, ABlockRunsForTheParameterOfAPidAndForNoneOfAnUnknownOne) {
    std::vector<std::string> visited;
    const auto visit = [&visited](QVMParameter& parameter, QVMClump& clump) {
        visited.push_back(parameter.codesafeName + " in " + clump.codesafeName);
    };
    config_->executeBlockWithPid(20, visit);
    EXPECT_THAT(visited, ElementsAre("FilterListenHigh in Filter"));
    config_->executeBlockWithPid(24, visit);
    EXPECT_EQ(visited.size(), 1u);
}

TEST_F(QVMConfigTest, ParametersAreFoundByPid) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        EXPECT_EQ(config_->parameterForPid(pid), GetParameter(pid));
    EXPECT_EQ(config_->parameterForPid(24), nullptr);
}

TEST_F(QVMConfigTest, ParametersAreFoundByTheirExactName) {
    EXPECT_EQ(config_->parameterForName("Tilt Gain"), GetParameter(pidTiltGain));
    EXPECT_EQ(config_->parameterForName("tilt gain"), nullptr);
    EXPECT_EQ(config_->parameterForName("TiltGain"), nullptr);
}

TEST_F(QVMConfigTest, FullAndMinimalCodenameFindTheSameParameter) {
    EXPECT_EQ(config_->parameterForCodename("tg"), GetParameter(pidTiltGain));
    EXPECT_EQ(config_->parameterForCodename("TiltGain"), GetParameter(pidTiltGain));
    EXPECT_EQ(config_->parameterForCodename("Tilt Gain"), nullptr);
    EXPECT_EQ(config_->parameterForCodename(""), nullptr);
}

TEST_F(QVMConfigTest, BothCodenamesAreTriedOnAParameterBeforeTheNext) {
    QVMParameter first;
    first.codesafeName = "First";
    first.minimalName = "Second";
    QVMParameter second;
    second.codesafeName = "Second";
    QVMClump clump;
    clump.parameters = {&first, &second};
    QVMConfig config;
    config.clumps = {&clump};
    EXPECT_EQ(config.parameterForCodename("Second"), &first);
}

TEST_F(QVMConfigTest, EveryCodenameIsUnique) {
    std::set<std::string> names;
    config_->enumerateParametersWithBlock([&names](QVMParameter& parameter, QVMClump&) {
        EXPECT_TRUE(names.insert(parameter.codesafeName).second) << parameter.codesafeName;
        EXPECT_TRUE(names.insert(parameter.minimalName).second) << parameter.minimalName;
    });
}

} // namespace
} // namespace QVM_NAMESPACE
