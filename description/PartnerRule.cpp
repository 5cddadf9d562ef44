#include "description/PartnerRule.h"

#include "description/tables/ParameterTable.h"

#include <algorithm>

namespace QVM_NAMESPACE {

float PartnerRule::partnerValue(float value, float partnerWas) const {
    const float limit = value * factor;
    return factor > 1 ? std::max(partnerWas, limit) : std::min(partnerWas, limit);
}

std::optional<PartnerRule> PartnerRuleForPid(std::uint32_t pid) {
    const tables::ParameterRow* const row = tables::ParameterRowFor(pid);
    if (!row || !row->partner) return std::nullopt;
    const bool low = row->end == tables::RangeEnd::low;
    return PartnerRule{*row->partner, low ? tables::kOctave : 1 / tables::kOctave};
}

} // namespace QVM_NAMESPACE
