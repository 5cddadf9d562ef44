// From a layer's own coordinates to the pixels.
//
// Between the two stands the layer's box: points from the top left of its bounds, y down, whatever the layer's axis.
// Boxes are what is nested, rasterised and composed; only here does the direction of y matter.
#pragma once

#include "platform/layer/Layer.h"

namespace QVM_NAMESPACE {

// Takes a layer's own coordinates to its box.
AffineTransform ownToBox(YAxis axis, const Rect& bounds);

// Takes a layer's box to the box of its superlayer, which has `superAxis` and presents `superBounds`.
AffineTransform boxToSuperBox(const PresentedLayer& presented, Point anchor, YAxis superAxis, const Rect& superBounds);

// Where the contents are drawn in the layer's own coordinates, after its gravity. Empty without contents.
Rect contentsRect(const Layer& layer, const Rect& bounds);

// The whole pixels that a rectangle touches; the noise of a multiplication touches none.
Rect touchedPixels(const Rect& deviceRect);

} // namespace QVM_NAMESPACE
