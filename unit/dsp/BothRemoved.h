// What is removed by the low and the high filter together: 1 - H L, of their magnitudes.
//
// With A = 1 - H and B = 1 - L it is A + B (1 - A), but no sum of two filters does that, as each has its own phase. So
// both get the same one. A section with the squared magnitude of A, gone through once as it is and once with its
// numerator turned round, has the magnitude A and the phase of the all-pass P over the same poles. With Q for B in the
// same way, the branches A x Q and (P - A) x B are in phase, and their sum has the magnitude A + B (1 - A) and the
// phase of P Q. Every coefficient moves as smoothly as the filters do: nothing has to be solved or sorted.
//
// Render thread; nothing allocates.
#pragma once

#include "unit/dsp/DigitalSection.h"

#include <cstddef>
#include <span>

namespace QVM_NAMESPACE::dsp {

class BothRemoved {
public:
    static constexpr std::size_t sections = 6 * filterSections; // A twice, P, Q, B twice
    using Half = std::span<const DigitalSection, filterSections>;

    // `low` and `high` have A and B as their squared magnitudes.
    static void design(Half low, Half high, std::span<vectors::SvfCoefficients, sections> out);
    // Filters up to `mostFrames` pairs in place through designed sections. `steps` is added to them before each sample,
    // or null.
    static void process(vectors::SvfCoefficients* designed, const vectors::SvfCoefficients* steps,
                        vectors::SvfState* states, double* samples, std::size_t frames);
    static constexpr std::size_t mostFrames = 256;
};

} // namespace QVM_NAMESPACE::dsp
