#include "platform/surface/StrokeGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

constexpr float kSamePlace = 1e-3f;   // pixels: nearer points make no segment
constexpr float kLeastPeriod = 1e-2f; // pixels: a finer pattern of dashes is drawn solid
constexpr float kMostPeriods = 1e4f;  // in one piece: more of them are drawn solid

bool isFinite(Vertex v) {
    return std::isfinite(v.x) && std::isfinite(v.y);
}

Vertex between(Vertex a, Vertex b, float share) {
    return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share};
}

// Follows one uninterrupted strip.
class Walker {
public:
    Walker(std::vector<StrokeSegment>& segments, const StrokeMeasure& measure)
        : segments_(segments), measure_(measure) {
        isDashed_ = measure.dashOn > 0 && measure.dashOff > 0 && measure.dashOn + measure.dashOff > kLeastPeriod;
        left_ = isDashed_ ? measure.dashOn : std::numeric_limits<float>::infinity();
    }

    void lineTo(Vertex from, Vertex to, Color fromColor, Color toColor) {
        const float length = std::hypot(to.x - from.x, to.y - from.y);
        const bool isTooLong = isDashed_ && length > kMostPeriods * (measure_.dashOn + measure_.dashOff);
        float at = 0;
        while (at < length) {
            const float end = isTooLong ? length : std::min(length, at + left_);
            if (isOn_ && end > at) {
                segments_.push_back({between(from, to, at / length), between(from, to, end / length),
                                     fromColor.mixedWith(toColor, at / length),
                                     fromColor.mixedWith(toColor, end / length), measure_.halfWidth, isFresh_, false});
                isFresh_ = false;
            }
            left_ -= end - at;
            if (left_ <= 0 || end == at) turn();
            at = end;
        }
    }
    void finish() {
        if (!isFresh_) segments_.back().isCutAtTo = true;
        isFresh_ = true;
    }

private:
    void turn() {
        if (isOn_) finish();
        isOn_ = !isOn_;
        left_ = isOn_ ? measure_.dashOn : measure_.dashOff;
    }

    std::vector<StrokeSegment>& segments_;
    const StrokeMeasure& measure_;
    bool isDashed_ = false, isOn_ = true;
    bool isFresh_ = true; // nothing of the present dash is there yet
    float left_ = 0;      // of the present dash or gap
};

} // namespace

void appendStroke(std::vector<StrokeSegment>& segments, std::span<const Vertex> points, std::span<const Color> colors,
                  const StrokeMeasure& measure) {
    const auto colorAt = [&](std::size_t i) { return colors[colors.size() == 1 ? 0 : i]; };
    for (std::size_t start = 0; start < points.size(); ++start) {
        Walker walker(segments, measure);
        std::size_t last = start; // where the line has come to
        std::size_t next = start;
        for (; next < points.size() && isFinite(points[next]); ++next) {
            const Vertex from = points[last], to = points[next];
            if (std::hypot(to.x - from.x, to.y - from.y) < kSamePlace) continue;
            walker.lineTo(from, to, colorAt(last), colorAt(next));
            last = next;
        }
        walker.finish();
        start = next;
    }
}

} // namespace QVM_NAMESPACE
