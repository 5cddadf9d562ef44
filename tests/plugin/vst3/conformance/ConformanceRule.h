// A rule that strict hosts and validators of the format hold a plug-in to, and the rules there are, by subject.
#pragma once

#include "plugin/vst3/conformance/Vst3UnderTest.h"

#include <vector>

namespace slantwise_tests {

struct ConformanceRule {
    const char* name;
    void (*check)(Vst3UnderTest& plugin); // leaves the plug-in as good for the next one
};

std::vector<ConformanceRule> descriptionRules();
std::vector<ConformanceRule> processingRules();
std::vector<ConformanceRule> stateRules();

} // namespace slantwise_tests
