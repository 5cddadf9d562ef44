// An outline made of lines, curves and closed figures, in the coordinates of the layer that shows it (points). A plain
// value; any thread.
#pragma once

#include "geometry/Geometry.h"

#include <vector>

namespace QVM_NAMESPACE {

class Path {
public:
    enum class Verb : unsigned char { move, line, cubic, close };
    struct Element {
        Verb verb = Verb::move;
        Point p1, p2, end; // control points first; unused ones stay zero
        bool operator==(const Element&) const = default;
    };

    Path& moveTo(Point p);
    Path& lineTo(Point p);
    Path& cubicTo(Point control1, Point control2, Point end);
    Path& close();

    Path& addRect(const Rect& r);
    // Radius in points, limited to half the shorter side. Starts at (x + radius, y).
    Path& addRoundedRect(const Rect& r, double radius);
    // A circular arc from angle to angle (radians, measured from +x towards +y), joined by a line to what is there.
    Path& addArc(Point center, double radius, double fromAngle, double toAngle);
    Path& addPath(const Path& other);

    static Path rect(const Rect& r) { return Path{}.addRect(r); }
    static Path roundedRect(const Rect& r, double radius) { return Path{}.addRoundedRect(r, radius); }

    const std::vector<Element>& elements() const { return elements_; }
    bool isEmpty() const { return elements_.empty(); }
    // The box of all end and control points.
    Rect bounds() const;
    // Every point through the transform; an arc of this path is curves by then and goes with it.
    Path transformed(const AffineTransform& t) const;
    bool operator==(const Path&) const = default;

private:
    std::vector<Element> elements_;
};

} // namespace QVM_NAMESPACE
