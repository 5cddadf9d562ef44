// Pixels of a layer's look as the toolkit keeps them, and conversions of pictures to and from it.
#pragma once

#include "platform/Image.h"
#include "platform/RasterBackend.h"

#include <juce_graphics/juce_graphics.h>

namespace QVM_NAMESPACE {

class ToolkitRaster final : public Raster {
public:
    explicit ToolkitRaster(juce::Image pixels) : pixels(std::move(pixels)) {}
    juce::Image pixels; // premultiplied, in memory
};

// An empty picture that lives in memory, whatever the toolkit prefers on this desktop.
juce::Image newToolkitImage(int width, int height);
juce::Image toToolkit(const Image& image);
Image fromToolkit(const juce::Image& image);
juce::AffineTransform toToolkit(const AffineTransform& transform);

} // namespace QVM_NAMESPACE
