// What is removed by the low and the high filter together: 1 - H L, of their magnitudes.
//
// No sum of two filters does this, as each has its own phase. With A = 1 - H and B = 1 - L it is A + B - A B, and with
// A and B as squared magnitudes of sections it is a quotient of two polynomials of the frequency squared. The roots of
// the upper one, found by the iteration of O. Aberth, "Iteration methods for finding all zeros of a polynomial
// simultaneously", 1973, are the zeros of a cascade that has the square root of the wanted magnitude; it is gone
// through twice.
//
// Render thread; nothing allocates.
#pragma once

#include "unit/dsp/AnalogSection.h"

#include <array>
#include <complex>
#include <cstddef>
#include <span>

namespace QVM_NAMESPACE::dsp {

class BothRemoved {
public:
    static constexpr std::size_t sections = 2 * filterSections;

    // Sections whose squared magnitude is what both remove; `low` and `high` are those of FilterPart::removedRoot. Near
    // the last call's settings the sections keep their places. False when the iteration has not come to its end: then
    // they are near, but not where they should be.
    bool design(std::span<const AnalogSection, filterSections> low, std::span<const AnalogSection, filterSections> high,
                std::span<AnalogSection, sections> out);
    // The next design() starts anew.
    void forget() { isPlaced_ = false; }

private:
    static constexpr std::size_t degree = 2 * sections;
    using Complex = std::complex<double>;
    using Polynomial = std::array<double, degree + 1>;

    static Polynomial zeros(std::span<const AnalogSection, filterSections> low,
                            std::span<const AnalogSection, filterSections> high, double unit);
    void guess();
    bool solve(int mostRounds);
    void pair();
    void place();
    AnalogPair zerosAt(std::size_t index) const;
    bool isPaired() const;

    double unit_ = 1; // hertz
    Polynomial polynomial_{};
    std::array<Complex, degree> roots_{};       // those of one section beside each other
    std::array<std::size_t, sections> poles_{}; // which of the filters' poles goes with a section
    std::array<AnalogPair, sections> last_;     // zeros of the sections
    bool isPlaced_ = false;
};

} // namespace QVM_NAMESPACE::dsp
