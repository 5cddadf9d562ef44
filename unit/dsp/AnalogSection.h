// Second-order sections in the analog domain, and where they come from.
//
// Pure functions; any thread, no allocation.
#pragma once

#include "unit/dsp/PrototypeTables.h"

#include <array>
#include <span>

namespace QVM_NAMESPACE::dsp {

// Two poles or zeros: 1 + k s/w + (s/w)^2.
struct AnalogPair {
    double corner = 1;  // w / 2 pi, hertz
    double damping = 2; // k
};

enum class Direction : unsigned char { lowPass, highPass };
enum class Zeros : unsigned char { two, one }; // the other one is at infinity, for a high-pass at 0

// Squared magnitude as the quotient of two polynomials: c[0] + c[1] x + c[2] x^2.
struct Powers {
    std::array<double, 3> num{}, den{};
};

// Level 1 at 0 Hz (low-pass) or towards infinity (high-pass).
struct AnalogSection {
    AnalogPair num, den;
    Direction direction = Direction::lowPass;
    Zeros zeros = Zeros::two;

    Powers powers() const; // over hertz squared
};

// What of a filter is wanted. `removedRoot` has the square root of the magnitude of `removed`.
enum class FilterPart : unsigned char { passed, removed, removedRoot };

// The tilt: 0 dB far below `low` (hertz), twice `gain` (dB, -18 to 18) far above `high`, which counts as no less than
// an octave above `low`.
void makeTilt(double gain, double low, double high, std::span<AnalogSection, tiltSections> out);
// A filter 1 / sqrt(1 + (f / corner)^(2 order)), or one minus it, or either upside down. `removed` of a low-pass is a
// high-pass.
void makeFilter(FilterPart part, Direction direction, double order, double corner,
                std::span<AnalogSection, filterSections> out);

} // namespace QVM_NAMESPACE::dsp
