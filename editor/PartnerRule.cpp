#include "editor/PartnerRule.h"

#include <algorithm>
#include <array>

namespace QVM_NAMESPACE {

namespace {

constexpr std::array<PartnerRule, 4> rules = {{
    {2, 3, PartnerRule::Bound::atLeast, 2.0f}, // tilt range
    {3, 2, PartnerRule::Bound::atMost, 0.5f},
    {9, 10, PartnerRule::Bound::atLeast, 2.0f}, // filter range
    {10, 9, PartnerRule::Bound::atMost, 0.5f},
}};

} // namespace

float PartnerRule::partnerValue(float value, float partnerWas) const {
    const float limit = value * factor;
    return bound == Bound::atLeast ? std::max(partnerWas, limit) : std::min(partnerWas, limit);
}

const PartnerRule* PartnerRuleForPid(std::uint32_t pid) {
    const auto rule = std::find_if(rules.begin(), rules.end(), [pid](const PartnerRule& r) { return r.pid == pid; });
    return rule == rules.end() ? nullptr : &*rule;
}

} // namespace QVM_NAMESPACE
