// Arithmetic on premultiplied 8-bit pixels in one 0xAARRGGBB word (T. Porter, T. Duff, "Compositing digital images",
// 1984). Pure functions; any thread.
//
// Alpha and green, red and blue are worked on two at a time: each of the two has eight bits of room above it.
#pragma once

#include "platform/surface/Color.h"

#include <algorithm>
#include <cstdint>

namespace QVM_NAMESPACE {

// A colour made ready to be laid on at many coverages.
struct Shades {
    explicit Shades(Color c) {
        const auto within = [](float x) { return std::min(std::max(x, 0.0f), 1.0f); };
        alpha = within(c.a) * 255;
        red = within(c.r) * alpha;
        green = within(c.g) * alpha;
        blue = within(c.b) * alpha;
    }
    // The pixel at `coverage` (0 to 1), rounded to the nearest. More coverage never gives a smaller word.
    std::uint32_t at(float coverage) const {
        const auto part = [coverage](float whole) {
            // Never below zero, and a call of the library's rounding for each pixel would show.
            const float halfUp = whole * coverage + 0.5f;
            return static_cast<std::uint32_t>(static_cast<int>(halfUp));
        };
        return part(alpha) << 24 | part(red) << 16 | part(green) << 8 | part(blue);
    }

    float alpha, red, green, blue; // premultiplied, to 255
};

// Part by part, the greater.
inline std::uint32_t greaterParts(std::uint32_t a, std::uint32_t b) {
    std::uint32_t result = 0;
    for (const std::uint32_t mask : {0xFF000000u, 0xFF0000u, 0xFF00u, 0xFFu})
        result |= std::max(a & mask, b & mask);
    return result;
}

// Part by part, the sum, no more than 255.
inline std::uint32_t addedParts(std::uint32_t a, std::uint32_t b) {
    constexpr std::uint32_t even = 0x00FF00FFu, carry = 0x01000100u;
    const auto saturated = [](std::uint32_t sum) {
        const std::uint32_t over = sum & carry;
        return (sum | (over - (over >> 8))) & even;
    };
    return saturated((a & even) + (b & even)) | saturated((a >> 8 & even) + (b >> 8 & even)) << 8;
}

// Premultiplied `over` on top of `under`.
inline std::uint32_t blendedOver(std::uint32_t over, std::uint32_t under) {
    constexpr std::uint32_t even = 0x00FF00FFu, half = 0x00800080u;
    const std::uint32_t rest = 255 - (over >> 24);
    const auto scaled = [rest](std::uint32_t parts) { // divides by 255, rounded, in both halves at once
        const std::uint32_t product = parts * rest + half;
        return (product + (product >> 8 & even)) >> 8 & even;
    };
    return addedParts(over, scaled(under & even) | scaled(under >> 8 & even) << 8);
}

} // namespace QVM_NAMESPACE
