#include "description/PartnerRule.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(PartnerRule, PairsTheEndsOfTheTwoFrequencyRangesAndNothingElse) {
    for (std::uint32_t pid = 0; pid < 30; ++pid) {
        const std::optional<PartnerRule> rule = PartnerRuleForPid(pid);
        switch (pid) {
        case pidTiltRangeLow:
            EXPECT_EQ(rule->partner, pidTiltRangeHigh);
            break;
        case pidTiltRangeHigh:
            EXPECT_EQ(rule->partner, pidTiltRangeLow);
            break;
        case pidFilterRangeLow:
            EXPECT_EQ(rule->partner, pidFilterRangeHigh);
            break;
        case pidFilterRangeHigh:
            EXPECT_EQ(rule->partner, pidFilterRangeLow);
            break;
        default:
            EXPECT_FALSE(rule) << pid;
        }
    }
}

TEST(PartnerRule, KeepsAnOctaveBetweenTheEnds) {
    EXPECT_EQ(PartnerRuleForPid(pidTiltRangeLow)->partnerValue(1000, 1500), 2000);
    EXPECT_EQ(PartnerRuleForPid(pidTiltRangeLow)->partnerValue(700, 1500), 1500);
    EXPECT_EQ(PartnerRuleForPid(pidTiltRangeHigh)->partnerValue(1000, 800), 500);
    EXPECT_EQ(PartnerRuleForPid(pidFilterRangeHigh)->partnerValue(1000, 400), 400);
}

} // namespace
} // namespace QVM_NAMESPACE
