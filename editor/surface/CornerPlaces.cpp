#include "editor/surface/CornerPlaces.h"

#include "editor/surface/ScaleGrip.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// Points that a corner stays away from the edges; below it is where the editor's own corner is dragged.
constexpr double kSide = 8, kTop = 8, kBottom = CurveCorner::hitSize / 2 + ScaleGrip::size.height + ScaleGrip::inset;
constexpr double kApart = 2 * CurveCorner::discRadius + 6; // points between the middles of two corners

// The button in the corner has its place for itself.
Point below(Point center, const Rect& button) {
    constexpr double reach = CurveCorner::discRadius + 2;
    if (!button.insetBy(-reach, -reach).contains(center)) return center;
    return {center.x, button.maxY() + reach};
}

// Moves `center` up or down until it is clear of `other`; down, where there is room.
Point clearOf(Point center, Point other, double lowest) {
    const double dx = center.x - other.x, dy = center.y - other.y;
    if (std::hypot(dx, dy) >= kApart) return center;
    const double reach = std::sqrt(kApart * kApart - dx * dx);
    return {center.x, other.y + reach <= lowest ? other.y + reach : other.y - reach};
}

Point onCurve(const CornerSpot& spot, const CornerSite& site, double lowest) {
    const double x = std::clamp(site.scale.xOf(spot.hertz), kSide, site.scale.size.width - kSide);
    return {x, std::clamp(site.yAt(site.scale.hertzAt(x)), kTop, lowest)};
}

} // namespace

std::vector<Point> cornerPlaces(std::span<const CornerSpot> spots, const CornerSite& site) {
    const double lowest = site.scale.size.height - kBottom;
    const auto onPixel = [&site](double at) { return std::round(at * site.pixels) / site.pixels; };
    std::vector<Point> places(spots.size());
    for (std::size_t i = 0; i < spots.size(); ++i) {
        Point place = below(onCurve(spots[i], site, lowest), site.button);
        for (std::size_t other = 0; other < spots.size() && spots[i].shape == CurveCorner::Shape::ring; ++other)
            if (spots[other].shape == CurveCorner::Shape::disc) place = clearOf(place, places[other], lowest);
        places[i] = {onPixel(place.x), onPixel(place.y)};
    }
    return places;
}

} // namespace QVM_NAMESPACE
