// The low and high ends of a frequency range stay at least an octave apart: the end that moves pushes the other.
#pragma once

#include "description/ParameterIDs.h"

#include <cstdint>
#include <optional>

namespace QVM_NAMESPACE {

struct PartnerRule {
    ParameterID partner; // the end that is pushed
    float factor;        // the partner's bound is this multiple of the moved end's value; above 1 it is the least one

    // What becomes of the partner's value when the moved end stands at `value`.
    float partnerValue(float value, float partnerWas) const;
};

// The rule for the end that moves, or none for a parameter that has no partner. Any thread.
std::optional<PartnerRule> PartnerRuleForPid(std::uint32_t pid);

} // namespace QVM_NAMESPACE
