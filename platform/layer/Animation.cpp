#include "platform/layer/Animation.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// Control points of a cubic Bezier from (0, 0) to (1, 1).
struct Curve {
    double x1, y1, x2, y2;
};
constexpr std::array<Curve, 4> curves = {{
    {0, 0, 1, 1},       // linear
    {0.42, 0, 1, 1},    // easeIn
    {0, 0, 0.58, 1},    // easeOut
    {0.42, 0, 0.58, 1}, // easeInEaseOut
}};

double bezier(double c1, double c2, double t) {
    const double u = 1 - t;
    return 3 * u * u * t * c1 + 3 * u * t * t * c2 + t * t * t;
}

double mix(double from, double to, double k) {
    return from + (to - from) * k;
}

struct Interpolate {
    double k;
    double operator()(double a, double b) const { return mix(a, b, k); }
    Point operator()(Point a, Point b) const { return {mix(a.x, b.x, k), mix(a.y, b.y, k)}; }
    Rect operator()(const Rect& a, const Rect& b) const {
        return {mix(a.x, b.x, k), mix(a.y, b.y, k), mix(a.width, b.width, k), mix(a.height, b.height, k)};
    }
    AffineTransform operator()(const AffineTransform& m, const AffineTransform& n) const {
        return {mix(m.a, n.a, k), mix(m.b, n.b, k),   mix(m.c, n.c, k),
                mix(m.d, n.d, k), mix(m.tx, n.tx, k), mix(m.ty, n.ty, k)};
    }
    Color operator()(Color a, Color b) const { return a.mixedWith(b, static_cast<float>(k)); }
};

} // namespace

double ease(TimingFunction timing, double progress) {
    if (!(progress > 0)) return 0;
    if (progress >= 1) return 1;
    if (timing == TimingFunction::linear) return progress;
    const Curve& curve = curves[static_cast<std::size_t>(timing)];
    // x grows with t, so halving finds t; 40 steps are below the precision of the result.
    double low = 0, high = 1;
    for (int i = 0; i < 40; ++i) {
        const double t = (low + high) / 2;
        (bezier(curve.x1, curve.x2, t) < progress ? low : high) = t;
    }
    return bezier(curve.y1, curve.y2, (low + high) / 2);
}

AnimatableValue interpolate(const AnimatableValue& from, const AnimatableValue& to, double progress) {
    if (progress == 0 && from.index() == to.index()) return from;
    if (progress == 1) return to;
    return std::visit(
        [progress, &to](const auto& a) -> AnimatableValue {
            const auto* b = std::get_if<std::decay_t<decltype(a)>>(&to);
            if (!b) return to;
            return Interpolate{progress}(a, *b);
        },
        from);
}

double BasicAnimation::progressAt(double elapsed) const {
    const double running = elapsed - beginDelay;
    if (running < 0) return 0;
    const double cycle = duration * (autoreverses ? 2 : 1);
    if (!(cycle > 0)) return autoreverses ? 0 : 1;
    const bool over = isFinishedAt(elapsed);
    const double cycles = over ? repeatCount : running / cycle;
    double phase = cycles - std::floor(cycles);
    if (over && phase == 0 && cycles > 0) phase = 1; // the end of the last cycle, not the start of another
    const double way = phase * (autoreverses ? 2 : 1);
    return ease(timing, way > 1 ? 2 - way : way);
}

} // namespace QVM_NAMESPACE
