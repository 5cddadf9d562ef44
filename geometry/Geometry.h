// Points, sizes, rectangles and affine transforms, all in points (1/96 inch at scale 1) unless a name says otherwise.
#pragma once

#include "BuildNamespace.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

struct Point {
    double x = 0, y = 0;
    bool operator==(const Point&) const = default;
};

inline Point operator+(Point a, Point b) {
    return {a.x + b.x, a.y + b.y};
}
inline Point operator-(Point a, Point b) {
    return {a.x - b.x, a.y - b.y};
}
inline Point operator*(Point p, double k) {
    return {p.x * k, p.y * k};
}

struct Size {
    double width = 0, height = 0;
    bool operator==(const Size&) const = default;
};

// An axis-aligned rectangle. `minX`..`maxX` and `minY`..`maxY` span it; which end of y is the top is the owner's
// matter.
struct Rect {
    double x = 0, y = 0, width = 0, height = 0;

    double minX() const { return x; }
    double minY() const { return y; }
    double midX() const { return x + width / 2; }
    double midY() const { return y + height / 2; }
    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    Point origin() const { return {x, y}; }
    Point center() const { return {midX(), midY()}; }
    Size size() const { return {width, height}; }

    // True when there is no area to lay anything out in; an unset frame is empty.
    bool isEmpty() const { return !(width > 0 && height > 0); }
    // Minimum edges belong to the rectangle, maximum edges do not.
    bool contains(Point p) const { return p.x >= x && p.x < maxX() && p.y >= y && p.y < maxY(); }
    bool contains(const Rect& r) const { return r.x >= x && r.y >= y && r.maxX() <= maxX() && r.maxY() <= maxY(); }
    bool intersects(const Rect& r) const {
        return !isEmpty() && !r.isEmpty() && x < r.maxX() && r.x < maxX() && y < r.maxY() && r.y < maxY();
    }
    Rect insetBy(double dx, double dy) const { return {x + dx, y + dy, width - 2 * dx, height - 2 * dy}; }
    Rect offsetBy(double dx, double dy) const { return {x + dx, y + dy, width, height}; }
    // The smallest rectangle that holds both; an empty one counts for nothing.
    Rect unionWith(const Rect& r) const {
        if (isEmpty()) return r;
        if (r.isEmpty()) return *this;
        const double left = std::min(x, r.x), low = std::min(y, r.y);
        return {left, low, std::max(maxX(), r.maxX()) - left, std::max(maxY(), r.maxY()) - low};
    }
    Rect intersectionWith(const Rect& r) const {
        const double left = std::max(x, r.x), low = std::max(y, r.y);
        const double w = std::min(maxX(), r.maxX()) - left, h = std::min(maxY(), r.maxY()) - low;
        return w > 0 && h > 0 ? Rect{left, low, w, h} : Rect{};
    }
    // The smallest rectangle with whole coordinates that holds this one.
    Rect integral() const {
        const double left = std::floor(x), low = std::floor(y);
        return {left, low, std::ceil(maxX()) - left, std::ceil(maxY()) - low};
    }
    bool operator==(const Rect&) const = default;
};

// x' = a x + c y + tx,  y' = b x + d y + ty.
struct AffineTransform {
    double a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;

    static AffineTransform translation(double dx, double dy) { return {1, 0, 0, 1, dx, dy}; }
    static AffineTransform scale(double sx, double sy) { return {sx, 0, 0, sy, 0, 0}; }
    static AffineTransform rotation(double radians) {
        const double s = std::sin(radians), k = std::cos(radians);
        return {k, s, -s, k, 0, 0};
    }
    // This transform first, then `next`.
    AffineTransform then(const AffineTransform& n) const {
        return {n.a * a + n.c * b, n.b * a + n.d * b,          n.a * c + n.c * d,
                n.b * c + n.d * d, n.a * tx + n.c * ty + n.tx, n.b * tx + n.d * ty + n.ty};
    }
    Point apply(Point p) const { return {a * p.x + c * p.y + tx, b * p.x + d * p.y + ty}; }
    // The bounding box of the transformed rectangle.
    Rect apply(const Rect& r) const {
        const Point p[] = {apply(Point{r.x, r.y}), apply(Point{r.maxX(), r.y}), apply(Point{r.x, r.maxY()}),
                           apply(Point{r.maxX(), r.maxY()})};
        double l = p[0].x, t = p[0].y, right = l, bottom = t;
        for (const Point& q : p) {
            l = std::min(l, q.x), t = std::min(t, q.y);
            right = std::max(right, q.x), bottom = std::max(bottom, q.y);
        }
        return {l, t, right - l, bottom - t};
    }
    // The identity for a transform that has no inverse.
    AffineTransform inverted() const {
        const double det = a * d - b * c;
        if (det == 0) return {};
        return {d / det, -b / det, -c / det, a / det, (c * ty - d * tx) / det, (b * tx - a * ty) / det};
    }
    bool isTranslation() const { return a == 1 && b == 0 && c == 0 && d == 1; }
    bool isIdentity() const { return *this == AffineTransform{}; }
    bool operator==(const AffineTransform&) const = default;
};

} // namespace QVM_NAMESPACE
