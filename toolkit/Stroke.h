// Outlines of stroked lines, with dashes that start anywhere in their pattern.
#pragma once

#include "platform/layer/ShapeLayer.h"

#include <juce_graphics/juce_graphics.h>

namespace QVM_NAMESPACE {

// What to fill to see the layer's stroke. `path` is in pixels already; the layer's widths and dashes are in points.
juce::Path strokeOutline(const juce::Path& path, const ShapeLayer& layer, double dashPhase, double pixelsPerPoint);

// Cuts each figure of a path that is made of straight lines into dashes. Lengths are on, off, on, ... and are used
// again from the first; the phase is how far into the pattern a figure starts. On a closed figure a dash runs across
// its start without a seam.
juce::Path dashed(const juce::Path& lines, const std::vector<double>& lengths, double phase);

} // namespace QVM_NAMESPACE
