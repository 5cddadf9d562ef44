// Rasterises layers into images of the toolkit and composes them into its graphics.
#pragma once

#include "platform/renderer/RasterBackend.h"
#include "toolkit/FaceLibrary.h"

#include <juce_graphics/juce_graphics.h>

namespace QVM_NAMESPACE {

struct ToolkitRaster final : Raster {
    explicit ToolkitRaster(juce::Image pixels) : image(std::move(pixels)) {}
    const juce::Image image; // device pixels
};

class ToolkitRasterBackend final : public RasterBackend {
public:
    // The library is borrowed.
    explicit ToolkitRasterBackend(FaceLibrary& faces) : faces_(faces) {}
    std::shared_ptr<Raster> rasterise(const Layer& layer, const PresentedLayer& presented, const Rect& lookBounds,
                                      double scale) override;

private:
    FaceLibrary& faces_;
};

} // namespace QVM_NAMESPACE
