// The soft copy of a look that lies beneath it.
#pragma once

#include "platform/surface/Color.h"

#include <juce_graphics/juce_graphics.h>

namespace QVM_NAMESPACE {

// The image's alpha, moved by whole pixels, blurred and filled with a colour; as large as the image. The blur reaches
// two radii and not a pixel further.
juce::Image shadowOf(const juce::Image& look, double radiusPixels, juce::Point<int> offsetPixels, Color color);

} // namespace QVM_NAMESPACE
