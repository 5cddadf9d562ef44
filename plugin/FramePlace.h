// Where an editor stands in the frame that a host has given it, whatever the editor has asked for.
//
// It is shown whole, at its own scale where there is room, in the middle; smaller where there is none.
#pragma once

#include "geometry/Geometry.h"

namespace QVM_NAMESPACE {

struct FramePlace {
    double scale = 1; // of the content
    Point origin;     // of the content in the frame, in whole units of the frame
};

// `content` at the scale `wanted` in a frame. An empty content or frame leaves the scale as it is. Any thread.
FramePlace placeInFrame(Size content, double wanted, Size frame);
// The scale at which `content` fills as much of a frame as it can, whole; 1 for an empty content. Any thread.
double scaleToFit(Size content, Size frame);
// Whether a frame has the content's own shape, but for a size that was rounded. Any thread.
bool hasShapeOf(Size content, Size frame);
// Whether `content` at `scale` has the frame's size, but for rounding.
bool fillsFrame(Size content, double scale, Size frame);
// Whether `content` at `scale` is inside a frame, or sticks out by no more than a size that was rounded up.
bool fitsFrame(Size content, double scale, Size frame);

} // namespace QVM_NAMESPACE
