#include "theme/Colors.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// The share of the way to black or white that one step of `contrasted` takes.
constexpr float kContrastStep = 1.0f / 64.0f;

double linear(float component) {
    const double c = component;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double luminance(Color color) {
    return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
}

} // namespace

double contrastRatio(Color one, Color other) {
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

Color contrasted(Color color, Color against, double ratio) {
    const Color black = Color::white(0, color.a), white = Color::white(1, color.a);
    const Color target = contrastRatio(black, against) > contrastRatio(white, against) ? black : white;
    Color result = color;
    for (float amount = kContrastStep; contrastRatio(result, against) < ratio && amount <= 1; amount += kContrastStep) {
        result = color.mixedWith(target, amount);
    }
    return result;
}

Color groundForText(Color ground, Color text, double ratio) {
    const Color opaqueText = text.withAlpha(1);
    const auto isLegible = [&](Color below) { return contrastRatio(composite(text, below), below) >= ratio; };
    Color result = ground;
    for (double step = ratio; !isLegible(result) && step <= 21; step += kContrastStep * ratio)
        result = contrasted(ground, opaqueText, step);
    return result;
}

} // namespace QVM_NAMESPACE
