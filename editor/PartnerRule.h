// Low and high ends of a frequency range stay at least an octave apart: the end that moves pushes the other.
//
// The only place where the editor names parameters of this product.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>

namespace QVM_NAMESPACE {

struct PartnerRule {
    enum class Bound : std::uint8_t { atLeast, atMost };

    std::uint32_t pid = 0;     // the end that moved
    std::uint32_t partner = 0; // the end that is pushed
    Bound bound = Bound::atLeast;
    float factor = 1; // the partner's bound is this multiple of the moved end's value

    // What becomes of the partner's value when the moved end stands at `value`.
    float partnerValue(float value, float partnerWas) const;
};

// The rule for a parameter, or null when it has no partner. Any thread.
const PartnerRule* PartnerRuleForPid(std::uint32_t pid);

} // namespace QVM_NAMESPACE
