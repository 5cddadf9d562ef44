#include "editor/PartnerRule.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(PartnerRule, PairsTheEndsOfTheTwoFrequencyRangesAndNothingElse) {
    for (std::uint32_t pid = 0; pid < 30; ++pid) {
        const PartnerRule* rule = PartnerRuleForPid(pid);
        switch (pid) {
        case 2:
            EXPECT_EQ(rule->partner, 3u);
            break;
        case 3:
            EXPECT_EQ(rule->partner, 2u);
            break;
        case 9:
            EXPECT_EQ(rule->partner, 10u);
            break;
        case 10:
            EXPECT_EQ(rule->partner, 9u);
            break;
        default:
            EXPECT_EQ(rule, nullptr) << pid;
        }
    }
}

TEST(PartnerRule, KeepsAnOctaveBetweenTheEnds) {
    EXPECT_EQ(PartnerRuleForPid(2)->partnerValue(1000, 1500), 2000);
    EXPECT_EQ(PartnerRuleForPid(2)->partnerValue(700, 1500), 1500);
    EXPECT_EQ(PartnerRuleForPid(3)->partnerValue(1000, 800), 500);
    EXPECT_EQ(PartnerRuleForPid(10)->partnerValue(1000, 400), 400);
}

} // namespace
} // namespace QVM_NAMESPACE
