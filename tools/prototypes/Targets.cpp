#include "Targets.h"

#include <algorithm>
#include <cmath>

namespace prototypes {

namespace {

constexpr double kDecibelsPerNeper = 8.685889638065037;
constexpr double kWidestSpan = 7.8; // the whole band: ln(24000 / 10)
constexpr double kClose = -66, kFar = -100;

template <class Level, class Weight>
Target filterLike(double order, Level&& level, Weight&& weight) {
    Target t;
    const double fine = 0.025 / std::max(1.0, order / 4) * (order < 2 ? 2 : 1);
    for (double x = -6; x <= 12 / order + 0.3; x += x < -2.5 ? 0.1 : fine) {
        const double nepers = level(x, order), decibels = nepers * kDecibelsPerNeper;
        if (decibels < kFar) break;
        t.x.push_back(x);
        t.level.push_back(nepers);
        t.weight.push_back(decibels > kClose ? 1 : weight((decibels - kFar) / (kClose - kFar)));
    }
    return t;
}

} // namespace

double tiltLevel(double x, double span, double gain) {
    const double transition = std::max(gain, 12.0);
    const double ratio = std::expm1(transition * std::log(10.0) / 10);
    const double power = std::log(ratio) / span, k = 1 / (ratio + 1);
    const double a = std::exp(std::min(300.0, power * x)), b = ratio / a;
    return -0.5 * gain / transition * std::log(k * std::sqrt(1 / (1 + b)) + 1 / (1 + a));
}

double filterLevel(double x, double order) {
    const double t = 2 * order * x;
    return -0.5 * (std::max(t, 0.0) + std::log1p(std::exp(-std::abs(t))));
}

double removedLevel(double x, double order) {
    const double y = std::exp(-std::clamp(2 * order * x, -300.0, 300.0)), s = std::sqrt(1 + y);
    return std::log(y / (s * (s + 1)));
}

Target tiltTarget(double span, double gain) {
    Target t;
    const double weight = std::sqrt(36 / gain);
    for (double x = span - kWidestSpan - 0.7; x <= kWidestSpan; x += 0.06) {
        t.x.push_back(x);
        t.level.push_back(tiltLevel(x, span, gain));
        t.weight.push_back(weight);
    }
    return t;
}

Target filterTarget(double order) {
    return filterLike(order, filterLevel, [](double share) { return 0.1 + 0.27 * share; });
}

Target removedTarget(double order) {
    return filterLike(order, removedLevel, [](double) { return 0.1; });
}

Target removedRootTarget(double order) {
    Target t = removedTarget(order);
    for (double& level : t.level)
        level /= 2;
    return t;
}

} // namespace prototypes
