#include "platform/view/ViewCoordinates.h"

#include "platform/view/View.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

// The view in its superview, or in the window's coordinates, which are those of the content's bounds.
Rect placeOf(const View& view) {
    const Size size = view.bounds().size();
    return {view.frame().x, view.frame().y, size.width, size.height};
}

YAxis superviewAxis(const View& view) {
    return view.superview() ? view.superview()->yAxis() : YAxis::down;
}

} // namespace

bool ViewCoordinates::hasInFrame(Point p) const {
    const Rect frame = placeOf(view_);
    if (p.x < frame.minX() || p.x >= frame.maxX()) return false;
    return superviewAxis(view_) == YAxis::down ? p.y >= frame.minY() && p.y < frame.maxY()
                                               : p.y > frame.minY() && p.y <= frame.maxY();
}

Point ViewCoordinates::fromSuperview(Point p) const {
    const Rect frame = placeOf(view_);
    return {p.x - frame.x, superviewAxis(view_) == view_.yAxis() ? p.y - frame.y : frame.maxY() - p.y};
}

Point ViewCoordinates::toSuperview(Point p) const {
    const Rect frame = placeOf(view_);
    return {p.x + frame.x, superviewAxis(view_) == view_.yAxis() ? p.y + frame.y : frame.maxY() - p.y};
}

Point ViewCoordinates::fromWindow(Point p) const {
    const View* const superview = view_.superview();
    return fromSuperview(superview ? superview->coordinates().fromWindow(p) : p);
}

Point ViewCoordinates::toWindow(Point p) const {
    const View* const superview = view_.superview();
    const Point inSuperview = toSuperview(p);
    return superview ? superview->coordinates().toWindow(inSuperview) : inSuperview;
}

Rect ViewCoordinates::toWindow(const Rect& r) const {
    const Point a = toWindow(Point{r.minX(), r.minY()}), b = toWindow(Point{r.maxX(), r.maxY()});
    return {std::min(a.x, b.x), std::min(a.y, b.y), r.width, r.height};
}

Point ViewCoordinates::fromView(Point p, const View& from) const {
    return fromWindow(from.coordinates().toWindow(p));
}

} // namespace QVM_NAMESPACE
