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

namespace {

// A colour on its way from where it is to black or white, whichever lies farther from the opaque `against`.
class ContrastWalk {
public:
    ContrastWalk(Color color, Color against) : from_(color), against_(against) {
        const Color black = Color::white(0, color.a), white = Color::white(1, color.a);
        target_ = contrastRatio(black, against) > contrastRatio(white, against) ? black : white;
    }

    // Goes on until the colour stands out by `ratio`, or to the end. True when it moved. A larger ratio is never
    // reached earlier than a smaller one, so nothing of the way needs to be gone twice.
    bool goOnTo(double ratio) {
        const float before = next_;
        for (; contrast_ < ratio && next_ <= 1; next_ += kContrastStep) {
            color_ = from_.mixedWith(target_, next_);
            contrast_ = contrastRatio(color_, against_);
        }
        return next_ != before;
    }
    Color color() const { return color_; }

private:
    Color from_, against_, target_;
    Color color_ = from_;
    double contrast_ = contrastRatio(from_, against_);
    float next_ = kContrastStep; // share of the way
};

} // namespace

Color contrasted(Color color, Color against, double ratio) {
    ContrastWalk walk(color, against);
    walk.goOnTo(ratio);
    return walk.color();
}

Color groundForText(Color ground, Color text, double ratio) {
    const auto isLegible = [&](Color below) { return contrastRatio(composite(text, below), below) >= ratio; };
    if (isLegible(ground)) return ground;
    ContrastWalk walk(ground, text.withAlpha(1));
    for (double step = ratio; step <= 21; step += kContrastStep * ratio) {
        if (walk.goOnTo(step) && isLegible(walk.color())) break;
    }
    return walk.color();
}

} // namespace QVM_NAMESPACE
