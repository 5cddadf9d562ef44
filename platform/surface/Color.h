// A colour with straight (not premultiplied) components, each 0 to 1, in the display's own RGB space.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

struct Color {
    float r = 0, g = 0, b = 0, a = 0;

    static constexpr Color white(float level, float alpha = 1) { return {level, level, level, alpha}; }
    static constexpr Color clear() { return {}; }
    constexpr Color withAlpha(float alpha) const { return {r, g, b, alpha}; }
    // This colour moved towards `other` by `amount` (0 keeps this one, 1 gives the other).
    constexpr Color mixedWith(Color other, float amount) const {
        return {r + (other.r - r) * amount, g + (other.g - g) * amount, b + (other.b - b) * amount,
                a + (other.a - a) * amount};
    }
    // White for black, of the same alpha.
    constexpr Color inverted() const { return {1 - r, 1 - g, 1 - b, a}; }
    bool operator==(const Color&) const = default;
};

} // namespace QVM_NAMESPACE
