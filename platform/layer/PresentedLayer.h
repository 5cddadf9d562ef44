// The values of a layer that animations can change.
#pragma once

#include "geometry/Geometry.h"
#include "platform/surface/Color.h"

namespace QVM_NAMESPACE {

// As they are at one moment: the layer's own, or with its animations applied. Geometry as in Layer.
struct PresentedLayer {
    Point position;
    Rect bounds;
    double opacity = 1;
    AffineTransform transform;
    Color backgroundColor;
    double cornerRadius = 0;
    double lineDashPhase = 0;
    Rect frame(Point anchor) const { // before the transform
        return {position.x - anchor.x * bounds.width, position.y - anchor.y * bounds.height, bounds.width,
                bounds.height};
    }
};

} // namespace QVM_NAMESPACE
