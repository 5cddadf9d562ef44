#include "platform/layer/Path.h"

#include <limits>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr double pi = std::numbers::pi;

// Distance of the control points, in radii, of a cubic that follows a circular arc of `angle` radians.
double kappaFor(double angle) {
    return 4.0 / 3.0 * std::tan(angle / 4);
}

// How many of p1, p2 and end an element uses, from its end backwards.
void forEachPoint(const Path::Element& e, auto&& visit) {
    if (e.verb == Path::Verb::close) return;
    if (e.verb == Path::Verb::cubic) visit(e.p1), visit(e.p2);
    visit(e.end);
}

} // namespace

Path& Path::moveTo(Point p) {
    elements_.push_back({Verb::move, {}, {}, p});
    return *this;
}

Path& Path::lineTo(Point p) {
    elements_.push_back({Verb::line, {}, {}, p});
    return *this;
}

Path& Path::cubicTo(Point control1, Point control2, Point end) {
    elements_.push_back({Verb::cubic, control1, control2, end});
    return *this;
}

Path& Path::close() {
    elements_.push_back({Verb::close, {}, {}, {}});
    return *this;
}

Path& Path::addRect(const Rect& r) {
    return moveTo({r.x, r.y}).lineTo({r.maxX(), r.y}).lineTo({r.maxX(), r.maxY()}).lineTo({r.x, r.maxY()}).close();
}

Path& Path::addRoundedRect(const Rect& rect, double radius) {
    const double r = std::min(radius, std::min(rect.width, rect.height) / 2);
    if (!(r > 0)) return addRect(rect);
    const double k = r * (1 - kappaFor(pi / 2)); // from the corner to a control point
    const double left = rect.x, low = rect.y, right = rect.maxX(), high = rect.maxY();
    moveTo({left + r, low});
    lineTo({right - r, low}).cubicTo({right - k, low}, {right, low + k}, {right, low + r});
    lineTo({right, high - r}).cubicTo({right, high - k}, {right - k, high}, {right - r, high});
    lineTo({left + r, high}).cubicTo({left + k, high}, {left, high - k}, {left, high - r});
    lineTo({left, low + r}).cubicTo({left, low + k}, {left + k, low}, {left + r, low});
    return close();
}

Path& Path::addArc(Point center, double radius, double fromAngle, double toAngle) {
    const auto at = [&](double angle) {
        return Point{center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
    };
    const auto along = [&](double angle) { return Point{-radius * std::sin(angle), radius * std::cos(angle)}; };
    isEmpty() ? moveTo(at(fromAngle)) : lineTo(at(fromAngle));
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(toAngle - fromAngle) / (pi / 2) - 1e-9)));
    const double step = (toAngle - fromAngle) / pieces, k = kappaFor(step);
    for (int i = 0; i < pieces; ++i) {
        const double a = fromAngle + step * i, b = fromAngle + step * (i + 1);
        cubicTo(at(a) + along(a) * k, at(b) - along(b) * k, at(b));
    }
    return *this;
}

Path& Path::addPath(const Path& other) {
    const std::vector<Element> added = other.elements_; // `other` may be this path
    elements_.insert(elements_.end(), added.begin(), added.end());
    return *this;
}

Rect Path::bounds() const {
    constexpr double huge = std::numeric_limits<double>::max();
    double left = huge, low = huge, right = -huge, high = -huge;
    for (const Element& e : elements_) {
        forEachPoint(e, [&](Point p) {
            left = std::min(left, p.x), right = std::max(right, p.x);
            low = std::min(low, p.y), high = std::max(high, p.y);
        });
    }
    if (left > right) return {};
    return {left, low, right - left, high - low};
}

Path Path::transformed(const AffineTransform& t) const {
    Path result;
    for (const Element& e : elements_) {
        Element moved{e.verb, {}, {}, {}};
        if (e.verb == Verb::cubic) moved.p1 = t.apply(e.p1), moved.p2 = t.apply(e.p2);
        if (e.verb != Verb::close) moved.end = t.apply(e.end);
        result.elements_.push_back(moved);
    }
    return result;
}

} // namespace QVM_NAMESPACE
