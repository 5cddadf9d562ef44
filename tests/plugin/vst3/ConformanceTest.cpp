// What strict hosts and validators of the format hold a plug-in to: each rule by itself, all of them one after the
// other on one instance, and in an order of chance, as what one leaves behind must not break the next.
#include "plugin/vst3/conformance/ConformanceRule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace slantwise_tests {
namespace {

std::vector<ConformanceRule> allRules() {
    std::vector<ConformanceRule> all;
    for (const auto& some : {descriptionRules(), processingRules(), stateRules()})
        all.insert(all.end(), some.begin(), some.end());
    return all;
}

class Vst3Conformance : public testing::TestWithParam<ConformanceRule> {};

TEST_P(Vst3Conformance, ByItself) {
    Vst3Module module;
    Vst3UnderTest plugin(module);
    GetParam().check(plugin);
}

INSTANTIATE_TEST_SUITE_P(Rules, Vst3Conformance, testing::ValuesIn(allRules()),
                         [](const auto& given) { return std::string(given.param.name); });

TEST(Vst3ConformanceInARow, HoldsInOrderAndInTwentyOrdersOfChance) {
    Vst3Module module;
    std::vector<ConformanceRule> order = allRules();
    for (unsigned seed = 0; seed <= 20; ++seed) {
        if (seed > 0) std::shuffle(order.begin(), order.end(), std::mt19937(seed));
        Vst3UnderTest plugin(module);
        for (const ConformanceRule& rule : order) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", " << rule.name);
            rule.check(plugin);
            if (testing::Test::HasFailure()) return;
        }
    }
}

} // namespace
} // namespace slantwise_tests
