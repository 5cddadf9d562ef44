// Colours of the description as the platform's, and the arithmetic that keeps text legible.
#pragma once

#include "description/Types.h"
#include "platform/layer/Layer.h"
#include "platform/surface/Color.h"

namespace QVM_NAMESPACE {

// The least contrast between a text and what it stands on.
inline constexpr double minimumTextContrast = 4.5;

// A description colour; an unset one is fully transparent. Any thread, as all of this file.
constexpr Color QVMCGColor(const QVMColor& color) {
    return {color.r, color.g, color.b, color.a};
}

// For what has no colour of its own: an outline's fill, a ground that lets what is behind it be seen.
constexpr Color QVMCGClearColor() {
    return Color::clear();
}

// The shadow of something in `ink`, whose alpha is its strength, blurred over `radius` and moved by `offset` (points, y
// downwards).
constexpr Shadow QVMBlur(Color ink, double radius, Point offset) {
    return {ink, radius, offset, 1};
}

// `hex` is 0xRRGGBB.
constexpr Color colorFromHex(unsigned hex, float alpha = 1) {
    return {static_cast<float>((hex >> 16) & 0xFFu) / 255.0f, static_cast<float>((hex >> 8) & 0xFFu) / 255.0f,
            static_cast<float>(hex & 0xFFu) / 255.0f, alpha};
}

// What is seen of `top` over an opaque `below`; opaque.
constexpr Color composite(Color top, Color below) {
    return below.withAlpha(1).mixedWith(top.withAlpha(1), top.a);
}

// The ratio of the luminances of two opaque colours, 1 (the same) to 21 (black and white), in either order.
double contrastRatio(Color one, Color other);

// `color`, moved towards black or white (whichever lies farther from `against`) no more than it takes to stand out from
// the opaque `against` by `ratio`; unchanged if it does already. Alpha is kept.
Color contrasted(Color color, Color against, double ratio = minimumTextContrast);

// `ground`, moved no more than it takes for a translucent text of the colour `text` to stand out from it by `ratio`;
// unchanged if it does already.
Color groundForText(Color ground, Color text, double ratio = minimumTextContrast);

} // namespace QVM_NAMESPACE
