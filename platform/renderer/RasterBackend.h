// What the renderer needs of a toolkit: pixels of one layer's look, and a place to compose them.
// Rectangles are in device pixels, y down, origin at the window's top left, unless they are called the layer's own.
#pragma once

#include "platform/layer/Layer.h"

#include <memory>

namespace QVM_NAMESPACE {

// A layer's look as pixels, owned by a backend.
class Raster {
public:
    virtual ~Raster() = default;
};

class RasterBackend {
public:
    virtual ~RasterBackend() = default;
    // Draws the layer's own look (no sublayers, no opacity, no transform) inside `lookBounds`, at `scale` pixels a
    // point. `lookBounds` is in the layer's own coordinates and measures a whole number of pixels each way; the
    // raster's first pixel is the box's top left: (minX, minY), or (minX, maxY) in a layer whose y points up.
    virtual std::shared_ptr<Raster> rasterise(const Layer& layer, const PresentedLayer& presented,
                                              const Rect& lookBounds, double scale) = 0;
};

// Where a composition goes, for the length of one compose() call. Pushes nest.
class RasterTarget {
public:
    virtual ~RasterTarget() = default;
    // Places a raster: raster pixels to device pixels by `transform`, blended at `opacity`. Unless the layer is scaled
    // or turned the transform is a translation by whole pixels.
    virtual void draw(const Raster& raster, const AffineTransform& transform, double opacity) = 0;
    // A plain rectangle, without a raster; whole pixels unless the layer is scaled or turned.
    virtual void fill(const Rect& deviceRect, Color color) = 0;
    // Until the matching pop, clips to a rounded rectangle given in a space that `transform` takes to the device.
    virtual void pushClip(const Rect& rect, double cornerRadius, const AffineTransform& transform) = 0;
    virtual void popClip() = 0;
    // Until the matching pop, draws into a group that is then blended at `opacity`.
    virtual void pushGroup(const Rect& deviceBounds, double opacity) = 0;
    virtual void popGroup() = 0;
};

} // namespace QVM_NAMESPACE
