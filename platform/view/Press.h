// One press of the pointer's button, by the way that the pointer takes: whether it is a click, or a drag by now. A
// plain value; points of the window.
#pragma once

#include "geometry/Geometry.h"

#include <cmath>

namespace QVM_NAMESPACE {

class Press {
public:
    static constexpr double clickReach = 4; // that a click may move: a hand trembles

    void beginAt(Point at) {
        began_ = pointer_ = at;
        isClick_ = true;
    }
    void moveTo(Point at) {
        pointer_ = at;
        if (std::hypot(at.x - began_.x, at.y - began_.y) > clickReach) isClick_ = false;
    }

    // Where the pointer was last seen.
    Point pointer() const { return pointer_; }
    // What has once gone further is no click any more, wherever it ends.
    bool isClick() const { return isClick_; }

private:
    Point began_, pointer_;
    bool isClick_ = true;
};

} // namespace QVM_NAMESPACE
