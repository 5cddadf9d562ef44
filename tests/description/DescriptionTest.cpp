#include "description/Description.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace QVM_NAMESPACE {
namespace {

TEST(Description, NumbersThatDoNotExistGiveNone) {
    EXPECT_EQ(GetParameter(24), nullptr);
    EXPECT_EQ(GetClump(5), nullptr);
    EXPECT_EQ(GetParameter(4294967295u), nullptr);
}

TEST(Description, EveryCallReturnsTheSameRecord) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        ASSERT_NE(GetParameter(pid), nullptr);
        EXPECT_EQ(GetParameter(pid), GetParameter(pid));
        EXPECT_EQ(GetParameter(pid)->pid, pid);
    }
    for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid) {
        EXPECT_EQ(GetClump(cid), GetClump(cid));
        EXPECT_EQ(GetClump(cid)->cid, cid);
    }
    EXPECT_EQ(GetMetadata(), GetMetadata());
    EXPECT_EQ(GetPresets(), GetPresets());
}

TEST(Description, ParametersAndClumpsAgreeOnWhoBelongsWhere) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter* parameter = GetParameter(pid);
        ASSERT_NE(parameter->clump, nullptr);
        EXPECT_EQ(parameter->clumpName, parameter->clump->codesafeName);
        EXPECT_EQ(std::ranges::count(parameter->clump->parameters, parameter), 1);
    }
    std::set<const QVMParameter*> seen;
    for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid) {
        for (const QVMParameter* parameter : GetClump(cid)->parameters) {
            EXPECT_EQ(parameter->clump, GetClump(cid));
            EXPECT_TRUE(seen.insert(parameter).second);
        }
    }
    EXPECT_EQ(seen.size(), QVMParameterCount);
}

TEST(Description, NamesInParametersPointAtParametersThatExist) {
    std::set<std::string> names;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        names.insert(GetParameter(pid)->codesafeName);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter* parameter = GetParameter(pid);
        for (const auto& [value, dimmed] : parameter->dims) {
            for (const std::string& name : dimmed)
                EXPECT_TRUE(names.contains(name)) << name;
        }
        if (!parameter->rangeWith.empty()) {
            EXPECT_TRUE(names.contains(parameter->rangeWith));
        }
    }
    EXPECT_TRUE(names.contains(GetMetadata()->genericHQParameter));
    for (const std::string& name : GetMetadata()->parameterOrder)
        EXPECT_TRUE(names.contains(name)) << name;
    for (const QVMClumpSketch& sketch : GetClump(2)->sketches)
        EXPECT_TRUE(names.contains(sketch.parameter));
}

} // namespace
} // namespace QVM_NAMESPACE
