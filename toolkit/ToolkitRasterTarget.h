// Composes into the toolkit's graphics, for the length of one paint.
#pragma once

#include "platform/renderer/RasterBackend.h"

#include <juce_graphics/juce_graphics.h>

namespace QVM_NAMESPACE {

class ToolkitRasterTarget final : public RasterTarget {
public:
    // The graphics is borrowed, and one of its units is a device pixel. Rasters that are only moved by whole pixels are
    // blended as they are: anything else costs several times as much. What misses the clip costs next to nothing.
    explicit ToolkitRasterTarget(juce::Graphics& g) : g_(g) {}

    void draw(const Raster& raster, const AffineTransform& transform, double opacity) override;
    void fill(const Rect& deviceRect, Color color) override;
    void pushClip(const Rect& rect, double cornerRadius, const AffineTransform& transform) override;
    void popClip() override { g_.restoreState(); }
    void pushGroup(const Rect& deviceBounds, double opacity) override;
    void popGroup() override;

private:
    juce::Graphics& g_;
};

} // namespace QVM_NAMESPACE
