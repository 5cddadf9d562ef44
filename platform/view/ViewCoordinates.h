// From a view's coordinates to those of its superview and its window, and back.
//
// A view's y grows downwards or upwards as its layer says; "window" is the window's content space: points, y down.
#pragma once

#include "geometry/Geometry.h"

namespace QVM_NAMESPACE {

class View;

// Of one view, which is borrowed: made for a question (View::coordinates), not kept. Main thread.
class ViewCoordinates {
public:
    explicit ViewCoordinates(const View& view) : view_(view) {}

    Point fromWindow(Point p) const;
    Point toWindow(Point p) const;
    Rect toWindow(const Rect& r) const;
    // From another view of the same window.
    Point fromView(Point p, const View& from) const;
    Point fromSuperview(Point p) const;
    Point toSuperview(Point p) const;
    // Whether a point of the superview is in the view's frame: on its top edge it is, and on its bottom edge it is not,
    // whichever way y points.
    bool hasInFrame(Point pointInSuperview) const;

private:
    const View& view_;
};

} // namespace QVM_NAMESPACE
