// Values of the platform as values of the toolkit.
#pragma once

#include "geometry/Geometry.h"
#include "platform/layer/Path.h"
#include "platform/surface/Color.h"
#include "platform/surface/Image.h"

#include <juce_graphics/juce_graphics.h>

namespace QVM_NAMESPACE {

juce::Colour toToolkit(Color color);
juce::AffineTransform toToolkit(const AffineTransform& transform);
juce::Rectangle<float> toToolkit(const Rect& rect);
// The rectangle with each edge at the nearest whole number.
juce::Rectangle<int> toNearestPixels(const Rect& rect);
juce::Path toToolkit(const Path& path, const AffineTransform& transform);
// Copies the pixels, those of a part only when one is given.
juce::Image toToolkit(const Image& image);
juce::Image toToolkit(const Image& image, juce::Rectangle<int> part);
Image fromToolkit(const juce::Image& image);

// An image in memory that nothing else draws to, clear at first.
juce::Image makeCanvas(int width, int height);

// The path as straight lines that are never further from the curves than a tenth of a unit, so that circles stay round
// and letters keep their shape at any size. The toolkit's own limit shows.
juce::Path flattened(const juce::Path& path, const juce::AffineTransform& transform = {});

} // namespace QVM_NAMESPACE
